#ifndef QUOR_SETTINGS_CONFIGURATION_H
#define QUOR_SETTINGS_CONFIGURATION_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quor {

inline constexpr int kEnglish = 0;
inline constexpr int kFrench = 1;
inline constexpr int kSpanish = 2;
inline constexpr int kLanguageCount = 3;

// How an incoming call on a line or cell is shown. Any other value opens the contact form.
inline constexpr int kPopUpOff = 0;
inline constexpr int kPopUpContactForm = 1;
inline constexpr int kPopUpSimpleWindow = 2;

// An entry of the dial-number list ("History") or of the caller list ("CallerList"). `name` is the
// text shown in the box or menu; `number` is what is dialled.
struct CallEntry {
  std::wstring name;
  std::wstring fileAs;
  std::wstring number;

  bool operator==(const CallEntry&) const = default;
};

struct SpeedDialEntry {
  std::wstring name;
  std::wstring number;

  bool operator==(const SpeedDialEntry&) const = default;
};

// Position of a command bar, in the properties of these names: pixels, and for `position` an
// MsoBarPosition.
struct ToolBarRecord {
  int32_t read = 0;  // 1 after the element was read from the file
  int32_t width = 0;
  int32_t height = 0;
  int32_t left = 0;
  int32_t top = 0;
  int32_t rowIndex = 0;
  int32_t position = 0;
  int32_t visible = 0;  // 0 or 1

  bool operator==(const ToolBarRecord&) const = default;
};

inline constexpr size_t kHistoryLimit = 20;
inline constexpr size_t kCallerListLimit = 10;
inline constexpr size_t kSpeedDialCount = 10;
inline constexpr size_t kPopUpSlots = 6;  // Line1, Line2, Cell1 .. Cell4

// All values that the add-in keeps between sessions, as plain data. The initial values apply in a
// session without a place for the file; if there is a place but no readable file, CSettings changes
// some of them.
struct Configuration {
  // The two intervals and the wait are read from the file and written back, but not used.
  int32_t aCheckInterval = 0;
  int32_t connectInterval = 0;
  int32_t dialClear = 1;  // 0: the dial box keeps a dialled number
  int32_t connectWait = 0;
  int32_t debugLog = 0;  // not 0: the diagnostic log is written
  // Milliseconds during which a second click on a line button is ignored.
  int32_t delayBtnEvent = 0;

  int32_t languageNo = kEnglish;  // m_langno; a negative number keeps the system's locale
  int32_t callerInfo = 1;         // this and the next switch are not used either
  int32_t popUp = 1;
  std::array<int32_t, kPopUpSlots> popUpModes = {1, 1, 1, 1, 1, 1};  // by line slot, kPopUp...

  int32_t recordCalls = 0;  // not 0: calls are recorded in Outlook's journal

  ToolBarRecord mainToolBar;
  ToolBarRecord contactToolBar;

  // Pass each entry through StorableEntry (entry_text.h) before adding it.
  std::vector<CallEntry> histories;        // newest first, at most kHistoryLimit
  std::vector<CallEntry> callerLists;      // newest first, at most kCallerListLimit
  std::vector<SpeedDialEntry> speedDials;  // at most kSpeedDialCount, empty entries included
};

}  // namespace quor

#endif
