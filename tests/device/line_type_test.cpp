#include "device/line_type.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

TEST(LineTypeTest, SixCodesHaveASlotAndNoOtherHas) {
  int slots = 0;
  for (uint32_t code = 0; code <= 0x400; ++code) {
    const int slot = SlotFromLineType(code);
    if (slot == kNoSlot) continue;
    ++slots;
    EXPECT_EQ(LineTypeFromSlot(slot), code);
  }
  EXPECT_EQ(slots, kSlotCount);
  EXPECT_EQ(SlotFromLineType(0x13), 4);
  EXPECT_EQ(LineTypeFromSlot(kNoSlot), kNoLine);
  EXPECT_EQ(LineTypeFromSlot(kSlotCount), kNoLine);
}

}  // namespace
}  // namespace quor
