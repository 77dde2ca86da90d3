#ifndef QUOR_DEVICE_LINE_TYPE_H
#define QUOR_DEVICE_LINE_TYPE_H

#include <cstdint>

namespace quor {

// A line's byte on the wire and in every record.
inline constexpr uint8_t kNoLine = 0;
inline constexpr uint8_t kLine1 = 0x01;
inline constexpr uint8_t kLine2 = 0x02;
inline constexpr uint8_t kCell1 = 0x11;
inline constexpr uint8_t kCell2 = 0x12;
inline constexpr uint8_t kCell3 = 0x13;
inline constexpr uint8_t kCell4 = 0x14;

// Per-line records are indexed by slot: Line1, Line2, Cell1 .. Cell4.
inline constexpr int kSlotCount = 6;
inline constexpr int kNoSlot = -1;

constexpr int SlotFromLineType(uint32_t lineType) noexcept {
  switch (lineType) {
    case kLine1:
      return 0;
    case kLine2:
      return 1;
    case kCell1:
      return 2;
    case kCell2:
      return 3;
    case kCell3:
      return 4;
    case kCell4:
      return 5;
    default:
      return kNoSlot;
  }
}

// The inverse of the table above; kNoLine for slots other than 0 to 5.
constexpr uint8_t LineTypeFromSlot(int slot) noexcept {
  constexpr uint8_t kLineTypes[kSlotCount] = {kLine1, kLine2, kCell1, kCell2, kCell3, kCell4};
  return slot >= 0 && slot < kSlotCount ? kLineTypes[slot] : kNoLine;
}

}  // namespace quor

#endif
