#include "telephone/withheld_caller.h"

#include "resources/resource_ids.h"

namespace quor {

namespace {

int WithheldText(uint8_t code, bool longDistance, int unavailable) noexcept {
  switch (code) {
    case 0:
      return longDistance ? IDS_LONG_DISTANCE : unavailable;
    case 1:
      return IDS_PRIVATE_CALLER;
    case 2:
      return IDS_OUT_OF_AREA;
    case 3:
      return IDS_PAY_PHONE;
    case 4:
      return IDS_INTERNATIONAL;
    case 5:
    case 6:
      return unavailable;
    case 7:
      return IDS_UNAVAILABLE_NAME_AND_NUMBER;
    case 8:
      return IDS_COIN_PHONE;
    default:
      return IDS_UNKNOWN;
  }
}

}  // namespace

int WithheldNumberText(uint8_t noNum, bool longDistance) noexcept {
  return WithheldText(noNum, longDistance, IDS_UNAVAILABLE_NUMBER);
}

int WithheldNameText(uint8_t noName, bool longDistance) noexcept {
  return WithheldText(noName, longDistance, IDS_UNAVAILABLE_NAME);
}

}  // namespace quor
