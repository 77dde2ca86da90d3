#include "telephone/withheld_caller.h"

#include "telephone/string_ids.h"

namespace quor {

namespace {

int WithheldText(uint8_t code, bool longDistance, int unavailable) noexcept {
  switch (code) {
    case 0:
      return longDistance ? kTextLongDistance : unavailable;
    case 1:
      return kTextPrivateCaller;
    case 2:
      return kTextOutOfArea;
    case 3:
      return kTextPayPhone;
    case 4:
      return kTextInternational;
    case 5:
    case 6:
      return unavailable;
    case 7:
      return kTextUnavailableNameAndNumber;
    case 8:
      return kTextCoinPhone;
    default:
      return kTextUnknown;
  }
}

}  // namespace

int WithheldNumberText(uint8_t noNum, bool longDistance) noexcept {
  return WithheldText(noNum, longDistance, kTextUnavailableNumber);
}

int WithheldNameText(uint8_t noName, bool longDistance) noexcept {
  return WithheldText(noName, longDistance, kTextUnavailableName);
}

}  // namespace quor
