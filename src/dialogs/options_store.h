#ifndef QUOR_DIALOGS_OPTIONS_STORE_H
#define QUOR_DIALOGS_OPTIONS_STORE_H

#include <windows.h>

#include <array>
#include <cstdint>

#include "settings/configuration.h"

namespace quor {

// What the user can choose on the options page.
struct OptionValues {
  int32_t languageNo = kEnglish;
  std::array<int32_t, kPopUpSlots> popUpModes = {};  // Line1, Line2, Cell1 to Cell4
  bool recordCalls = false;                          // in Outlook's journal

  bool operator==(const OptionValues&) const = default;
};

// Where the options page takes its values from and brings them to. Called inside a boundary:
// throwing is allowed.
class IOptionsStore {
 public:
  virtual OptionValues Load() = 0;
  // The same for a page that opens: the file is read again first.
  virtual OptionValues Reload() = 0;
  // Keeps the values at once.
  virtual void Apply(const OptionValues& values) = 0;
  // Opens the about box in front of `owner`, a top-level window.
  virtual void ShowAbout(HWND owner) = 0;

 protected:
  ~IOptionsStore() = default;
};

}  // namespace quor

#endif
