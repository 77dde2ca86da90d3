#ifndef QUOR_DIALOGS_OPTIONS_STORE_H
#define QUOR_DIALOGS_OPTIONS_STORE_H

#include <windows.h>

#include <array>
#include <cstdint>

#include "settings/configuration.h"

namespace quor {

// The values of the options page.
struct OptionValues {
  int32_t languageNo = kEnglish;
  std::array<int32_t, kPopUpSlots> popUpModes = {};  // Line1, Line2, Cell1 to Cell4
  bool recordCalls = false;                          // in Outlook's journal

  bool operator==(const OptionValues&) const = default;
};

// Loads and stores the values of the options page. Called inside a boundary: exceptions are
// allowed.
class IOptionsStore {
 public:
  virtual OptionValues Load() = 0;
  // Like Load, but reads the file again first; for a page that opens.
  virtual OptionValues Reload() = 0;
  // Stores and saves the values.
  virtual void Apply(const OptionValues& values) = 0;
  // Opens the about box in front of `owner`, a top-level window.
  virtual void ShowAbout(HWND owner) = 0;

 protected:
  ~IOptionsStore() = default;
};

}  // namespace quor

#endif
