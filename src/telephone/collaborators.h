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

// What the telephone needs from the rest of the add-in. Any of these calls may pump messages and
// re-enter the telephone, which therefore updates its own state first. Failures are returned or
// handled by the callee; none of the calls throws.

namespace quor {

// The telephone's controls on command bar, ribbon and contact windows. The implementation reads
// captions and enabled flags back from the telephone (telephone.h).
class ITelephoneControls {
 public:
  // Refreshes every control's caption and enabled flag, also after DisableControls.
  virtual void SetToolBarState() = 0;
  // The base is disconnected: disables the telephone controls of the toolbar and of every contact
  // window, and invalidates the ribbon.
  virtual void DisableControls() = 0;

  // As SetToolBarState, after a call was announced or its announcement withdrawn: a line button's
  // caption may change to or from "Answer". Logs nothing.
  virtual void RedrawControls() = 0;

  // Redraws the names in the call-from-cell menu, and their enabled flags by IsCellItemEnabled.
  virtual void PutCallFromCellButton() = 0;
  // Disables the items of the three cells other than `cell` (0 = Cell1 .. 3 = Cell4) until the menu
  // is redrawn.
  virtual void DisableOtherCellItems(int cell) = 0;
  virtual void PutSpeedDialButton() = 0;
  virtual void PutCallerList() = 0;

  // Fills the toolbar dial box's drop-down list from Configuration::histories.
  virtual void PutHistory() = 0;
  // Sets the text of the dial box. Must not raise a change event as if the user had typed it.
  virtual void SetDialText(std::wstring_view text) = 0;

 protected:
  ~ITelephoneControls() = default;
};

// The only modeless message pop-up. Does not wait for the user.
class IMessagePopup {
 public:
  virtual void ShowMessage(int stringId) = 0;

 protected:
  ~IMessagePopup() = default;
};

// Why a contact was taken for the caller: its number of this type ends in as many digits of the
// caller's.
struct MatchReason {
  int telNumberType = 0;     // 1 to 12: the contact's phone field that matched
  size_t matchedDigits = 0;  // pause characters do not count
  size_t numberDigits = 0;   // of the caller's number, as reported
  size_t moreContacts = 0;   // others with a number that ends in the matched digits
};

// A value of the caller window: a text or, if the caller withheld it, the number of the string that
// gives the reason.
struct CallerValue {
  std::wstring text;
  int withheldTextId = 0;               // 0: show `text`, even if it is empty
  std::optional<MatchReason> reason{};  // of a contact's name
};

// The simple caller window. It is created hidden; afterwards it is only filled, shown and hidden.
class ICallerWindow {
 public:
  // Stores the slot (0 to 5), shows the line's name (string 1500 + slot) and enables "Answer".
  virtual void Fill(const CallerValue& name, const CallerValue& number, int slot) = 0;
  // Shows the window in the foreground.
  virtual void Show() = 0;
  virtual void Hide() = 0;
  // Takes the states of a status report as reported. Ignored while the window is hidden.
  virtual void Follow(uint8_t line1, uint8_t line2, uint8_t cell) = 0;

 protected:
  ~ICallerWindow() = default;
};

struct CallerMatch {
  std::string entryId;
  MatchReason reason;  // an unchecked look-up fills the type only
  // Set by a checked look-up: keeps the contact open for the two reads below. Do not hold it
  // longer.
  std::shared_ptr<const void> opened;
};

enum class FormResult {
  Shown,
  NoContact,     // the contact could not be opened or created
  NotDisplayed,  // its form could not be displayed
};

// The phone-number index and the contacts behind it. The numbers to look up are in the ANSI code
// page, as the base sends them.
class ICallerDirectory {
 public:
  // The two look-ups of the index. With `check`, each candidate contact is opened to make sure that
  // it exists.
  virtual std::optional<CallerMatch> FindPhoneNumber(std::string_view number, bool check) = 0;
  virtual std::optional<CallerMatch> SearchPhoneNumber(std::string_view number, bool check) = 0;

  virtual std::optional<std::wstring> FindContactFileAs(const CallerMatch& match) = 0;
  // The contact's number that matched, as the user typed it.
  virtual std::optional<std::wstring> FindContactPhoneNumber(const CallerMatch& match) = 0;

  virtual FormResult DisplayContact(std::string_view entryId) = 0;
  // Opens a new contact form with the number filled in.
  virtual FormResult DisplayNewContact(std::wstring_view number) = 0;

 protected:
  ~ICallerDirectory() = default;
};

// The other party of a call. Empty texts are unknown.
struct CallParty {
  std::wstring name;
  std::wstring number;
  std::string entryId;  // of the contact, ANSI
};

// Follows the calls for the user's call records. Must not call back. Slots are 0 to 5; kNoSlot is
// ignored.
class ICallObserver {
 public:
  virtual void OnRing(int slot) = 0;
  virtual void OnCaller(int slot, const CallParty& party) = 0;
  virtual void OnDial(int slot, const CallParty& party) = 0;
  // The base answered the last dial request with its busy reply.
  virtual void OnDialRefused() = 0;
  // The states as reported.
  virtual void OnStates(uint8_t line1, uint8_t line2, uint8_t cell) = 0;
  virtual void EndAll() = 0;

 protected:
  ~ICallObserver() = default;
};

// timeGetTime: milliseconds, wraps around after 49.7 days.
class ITickClock {
 public:
  virtual uint32_t TickMilliseconds() noexcept = 0;

 protected:
  ~ITickClock() = default;
};

// All must outlive the telephone.
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
