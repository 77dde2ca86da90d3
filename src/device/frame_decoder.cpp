#include "device/frame_decoder.h"

#include <cstring>

namespace quor {
namespace {

constexpr size_t kMaxNumberLength = 2 * kCidNumberSize;
static_assert(sizeof(CallerIdRecord::number) == kMaxNumberLength + 1);
static_assert(sizeof(CallerIdRecord::name) == kCidNameSize + 1);

void DecodeName(std::span<const uint8_t, kCidNameSize> padded, char (&name)[17]) noexcept {
  size_t length = padded.size();
  while (length > 0 && padded[length - 1] == ' ')
    --length;
  std::memcpy(name, padded.data(), length);
}

void DecodeNumber(std::span<const uint8_t, kCidNumberSize> packed, size_t length,
                  char (&number)[25]) noexcept {
  for (size_t i = 0; i < length; ++i) {
    const unsigned byte = packed[i / 2];
    number[i] = kDigitCharacters[i % 2 == 0 ? byte >> 4U : byte & 0x0FU];
  }
}

}  // namespace

StatusRecord DecodeStatus(std::span<const uint8_t, kSetStatusSize> frame) noexcept {
  StatusRecord record;
  std::memcpy(&record, &frame[kReportOffset], sizeof record);
  return record;
}

IncomingCallRecord DecodeReceiveCall(std::span<const uint8_t, kReceiveCallSize> frame) noexcept {
  IncomingCallRecord record;
  std::memcpy(&record, &frame[kReportOffset], sizeof record);
  return record;
}

bool HasValidNumberLength(std::span<const uint8_t, kCallerIdSize> frame) noexcept {
  return frame[kCidNumberLengthOffset] <= kMaxNumberLength;
}

CallerIdRecord DecodeCallerId(std::span<const uint8_t, kCallerIdSize> frame) noexcept {
  CallerIdRecord record{};
  const unsigned reasons = frame[kCidReasonsOffset];
  record.noNum = static_cast<uint8_t>(reasons & 0x0FU);
  record.noName = static_cast<uint8_t>(reasons >> 4U);
  record.longDistance = (frame[kCidFlagsOffset] & kCidLongDistanceMask) != 0 ? 1 : 0;
  DecodeName(frame.subspan<kCidNameOffset, kCidNameSize>(), record.name);
  if (HasValidNumberLength(frame)) {
    DecodeNumber(frame.subspan<kCidNumberOffset, kCidNumberSize>(), frame[kCidNumberLengthOffset],
                 record.number);
  }
  record.lineType = frame[kCidLineTypeOffset];
  record.lineUnitNo = frame[kCidLineUnitNoOffset];
  return record;
}

CellRegistrationRecord DecodeCellRegistration(
    std::span<const uint8_t, kCellRegistrationSize> frame) noexcept {
  CellRegistrationRecord record;
  static_assert(kCellNamesOffset == kCellRegInfoOffset + 1);
  std::memcpy(&record, &frame[kCellRegInfoOffset], sizeof record);
  return record;
}

}  // namespace quor
