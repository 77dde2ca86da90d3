#ifndef QUOR_TELEPHONE_COLLABORATORS_H
#define QUOR_TELEPHONE_COLLABORATORS_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "device/message_queue.h"
#include "device/records.h"
#include "module/diagnostic_log.h"
#include "settings/configuration.h"
#include "settings/settings_store.h"

// What the telephone asks of the rest of the add-in. Any of these calls may pump messages and so
// re-enter the telephone; it has finished with its own state before it makes one. Failures are
// reported by result or swallowed where they happen; nothing throws into the telephone.

namespace quor {

// The telephone's controls wherever they are shown: command bar, ribbon, contact windows. Whoever
// draws them asks back for captions and enabled flags (telephone.h).
class ITelephoneControls {
 public:
  // Asks every control's caption and enabled flag again.
  virtual void SetToolBarState() = 0;
  // The base is gone: disables the telephone controls of the toolbar and of every contact window,
  // and invalidates the ribbon.
  virtual void DisableControls() = 0;

  // A call has been announced, or its announcement withdrawn: a line button may say "Answer", or no
  // longer. Logs nothing.
  virtual void RedrawLineButtons() = 0;

  // Redraws the call-from-cell menu: names, and enabled flags by IsCellItemEnabled.
  virtual void PutCallFromCellButton() = 0;
  // Disables the items of the three cells other than `cell` (0 = Cell1 .. 3 = Cell4) until the menu
  // is redrawn.
  virtual void DisableOtherCellItems(int cell) = 0;
  virtual void PutSpeedDialButton() = 0;
  virtual void PutCallerList() = 0;

  // Fills the toolbar dial box's drop-down list from Configuration::histories.
  virtual void PutHistory() = 0;
  // Sets the text of the dial box. Must not come back as a change made by the user.
  virtual void SetDialText(std::wstring_view text) = 0;

 protected:
  ~ITelephoneControls() = default;
};

// The one modeless message pop-up. Does not wait for the user.
class IMessagePopup {
 public:
  virtual void ShowMessage(int stringId) = 0;

 protected:
  ~IMessagePopup() = default;
};

// A value of the caller window: a text or, when the caller withheld it, the number of the string
// that says why.
struct CallerValue {
  std::wstring text;
  int withheldTextId = 0;  // 0: show `text`, even an empty one
};

// The simple caller window, created hidden and only ever filled, shown and hidden.
class ICallerWindow {
 public:
  // Stores the slot (0 to 5), shows the line's name (string 1500 + slot) and enables "Answer".
  virtual void Fill(const CallerValue& name, const CallerValue& number, int slot) = 0;
  // Shows the window in front.
  virtual void Show() = 0;
  virtual void Hide() = 0;
  // The states of a status report, as reported. Ignored while the window is hidden.
  virtual void Follow(uint8_t line1, uint8_t line2, uint8_t cell) = 0;

 protected:
  ~ICallerWindow() = default;
};

struct CallerMatch {
  std::string entryId;
  int telNumberType = 0;  // 1 to 12: which of the contact's indexed phone fields matched
  // The directory's: set by a checked look-up, it keeps the contact open for the two questions
  // below. Not to be held longer than that.
  std::shared_ptr<const void> opened;
};

enum class FormResult {
  Shown,
  NoContact,     // the contact could not be opened or created
  NotDisplayed,  // its form refused to show
};

// The phone-number index and the contacts behind it. Numbers asked for are in the ANSI code page,
// as the base sends them.
class ICallerDirectory {
 public:
  // The two look-ups of the index; `check` opens each candidate contact to prove that it exists.
  virtual std::optional<CallerMatch> FindPhoneNumber(std::string_view number, bool check) = 0;
  virtual std::optional<CallerMatch> SearchPhoneNumber(std::string_view number, bool check) = 0;

  virtual std::optional<std::wstring> FindContactFileAs(const CallerMatch& match) = 0;
  // The contact's own number that matched, as the user wrote it.
  virtual std::optional<std::wstring> FindContactPhoneNumber(const CallerMatch& match) = 0;

  virtual FormResult DisplayContact(std::string_view entryId) = 0;
  // A new contact form with the number filled in.
  virtual FormResult DisplayNewContact(std::wstring_view number) = 0;

 protected:
  ~ICallerDirectory() = default;
};

// Who is at the other end of a call. Empty texts are unknown.
struct CallParty {
  std::wstring name;
  std::wstring number;
  std::string entryId;  // of the contact, ANSI
};

// Follows the calls for the user's records: notes what it hears and calls nobody. Slots are 0 to 5;
// kNoSlot is ignored.
class ICallObserver {
 public:
  virtual void OnRing(int slot) = 0;
  virtual void OnCaller(int slot, const CallParty& party) = 0;
  virtual void OnDial(int slot, const CallParty& party) = 0;
  // The base's busy reply to what was dialled last.
  virtual void OnDialRefused() = 0;
  // As reported.
  virtual void OnStates(uint8_t line1, uint8_t line2, uint8_t cell) = 0;
  virtual void EndAll() = 0;

 protected:
  ~ICallObserver() = default;
};

// timeGetTime: milliseconds, wraps after 49.7 days.
class ITickClock {
 public:
  virtual uint32_t TickMilliseconds() noexcept = 0;

 protected:
  ~ITickClock() = default;
};

// Handed to the telephone at construction; everything must outlive it.
struct TelephoneCollaborators {
  DeviceRecords& records;
  IMessageQueue& queue;
  ITelephoneControls& controls;
  IMessagePopup& messages;
  ICallerWindow& callerWindow;
  ICallerDirectory& directory;
  ICallObserver& calls;
  Configuration& configuration;
  ISettingsStore& settings;
  ITickClock& clock;
  CDiagnosticLog& log;
};

}  // namespace quor

#endif
