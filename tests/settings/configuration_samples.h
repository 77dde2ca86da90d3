#ifndef QUOR_TESTS_SETTINGS_CONFIGURATION_SAMPLES_H
#define QUOR_TESTS_SETTINGS_CONFIGURATION_SAMPLES_H

#include <iterator>
#include <random>
#include <string>

#include "settings/configuration.h"
#include "settings/entry_text.h"

namespace quor {

inline CallEntry SampleCall(int number) {
  const std::wstring digits = std::to_wstring(number);
  return {L"Caller " + digits + L" 0170" + digits, L"Caller " + digits, L"0170" + digits};
}

// A text as from a contact, the base or the keyboard, with every kind of character that is hard to
// store.
inline std::wstring RandomText(std::mt19937& random) {
  static constexpr wchar_t kHard[] =
      L"\x00\x01\x08\t\n\r\x1f \"&'<>]\x7f\x85\xa0\xe9\x20ac"
      L"\x2028\xd800\xdbff\xdc00\xdfff\xe000\xfffd\xfffe\xffff";
  static constexpr size_t kLengths[] = {0, 1, 2, 5, 30, 400, kEntryTextLimit, kEntryTextLimit + 9};
  const size_t length = kLengths[random() % std::size(kLengths)];
  const bool blanks = random() % 8 == 0;
  std::wstring text;
  while (text.size() < length) {
    const bool hard = !blanks && random() % 3 == 0;
    text += hard ? kHard[random() % (std::size(kHard) - 1)] : blanks ? L' ' : L'x';
  }
  return text;
}

// A configuration that the product may hold.
inline Configuration RandomConfiguration(unsigned seed) {
  std::mt19937 random(seed);
  Configuration any;
  const auto number = [&random] { return static_cast<int32_t>(random()); };
  const auto text = [&random] { return RandomText(random); };
  for (auto* value : {&any.aCheckInterval, &any.connectInterval, &any.dialClear, &any.connectWait,
                      &any.debugLog, &any.delayBtnEvent, &any.popUp}) {
    *value = number();
  }
  any.languageNo = static_cast<int32_t>(random() % 4) - 1;
  any.callerInfo = static_cast<int32_t>(random() % 2);
  any.recordCalls = static_cast<int32_t>(random() % 2);
  for (int32_t& mode : any.popUpModes)
    mode = number();
  for (auto* bar : {&any.mainToolBar, &any.contactToolBar}) {
    *bar = {1, number(), number(), number(), number(), number(), number(), number()};
  }
  for (size_t count = random() % (kHistoryLimit + 1); count > 0; --count)
    any.histories.push_back(StorableEntry(CallEntry{text(), text(), text()}));
  for (size_t count = random() % (kCallerListLimit + 1); count > 0; --count)
    any.callerLists.push_back(StorableEntry(CallEntry{text(), text(), text()}));
  for (size_t count = random() % (kSpeedDialCount + 1); count > 0; --count)
    any.speedDials.push_back(StorableEntry(SpeedDialEntry{text(), text()}));
  return any;
}

}  // namespace quor

#endif
