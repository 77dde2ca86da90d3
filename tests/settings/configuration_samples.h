#ifndef QUOR_TESTS_SETTINGS_CONFIGURATION_SAMPLES_H
#define QUOR_TESTS_SETTINGS_CONFIGURATION_SAMPLES_H

#include <string>

#include "settings/configuration.h"

namespace quor {

inline CallEntry SampleCall(int number) {
  const std::wstring digits = std::to_wstring(number);
  return {L"Caller " + digits + L" 0170" + digits, L"Caller " + digits, L"0170" + digits};
}

inline Configuration FullConfiguration() {
  Configuration full;
  full.aCheckInterval = 11;
  full.connectInterval = 12;
  full.dialClear = 0;
  full.connectWait = 14;
  full.debugLog = 15;
  full.delayBtnEvent = 16;
  full.languageNo = kSpanish;
  full.callerInfo = 0;
  full.popUp = 17;
  full.popUpModes = {0, 1, 2, 2, 1, 0};
  full.mainToolBar = {1, 100, 20, -5, 7, 3, 1, 1};
  full.contactToolBar = {1, 101, 21, 5, -2147483647 - 1, 4, 2, 0};
  for (int i = 0; i < 20; ++i)
    full.histories.push_back(SampleCall(i));
  for (int i = 20; i < 30; ++i)
    full.callerLists.push_back(SampleCall(i));
  for (int i = 0; i < 9; ++i)
    full.speedDials.push_back({std::to_wstring(i), L"55"});
  full.speedDials.push_back({});  // an unused entry keeps its place
  return full;
}

// Each is kept as it stands.
inline const wchar_t* const kAwkwardTexts[] = {
    L"<b>&amp;\"'</b>]]>",       L" leading and trailing ", L"   ",    L"tab\tand\nline",
    L"\u00e9\u0416\u4e2d\u20ac", L"\xd83d\xde00 pair",      L"%41%00",
};

}  // namespace quor

#endif
