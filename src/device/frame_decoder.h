#ifndef QUOR_DEVICE_FRAME_DECODER_H
#define QUOR_DEVICE_FRAME_DECODER_H

#include <cstdint>
#include <span>

#include "device/frame_format.h"
#include "device/records.h"

namespace quor {

// Turn indications into records. Any bytes give a valid record; the telephone controller interprets
// the values.

StatusRecord DecodeStatus(std::span<const uint8_t, kSetStatusSize> frame) noexcept;

// The indication has only five report bytes, so the record's sixth byte is the frame's carriage
// return.
IncomingCallRecord DecodeReceiveCall(std::span<const uint8_t, kReceiveCallSize> frame) noexcept;

// Trailing padding is removed from the name, inner spaces stay. The number is left empty when its
// length field exceeds the field (HasValidNumberLength).
CallerIdRecord DecodeCallerId(std::span<const uint8_t, kCallerIdSize> frame) noexcept;
bool HasValidNumberLength(std::span<const uint8_t, kCallerIdSize> frame) noexcept;

CellRegistrationRecord DecodeCellRegistration(
    std::span<const uint8_t, kCellRegistrationSize> frame) noexcept;

}  // namespace quor

#endif
