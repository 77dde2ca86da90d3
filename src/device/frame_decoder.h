#ifndef QUOR_DEVICE_FRAME_DECODER_H
#define QUOR_DEVICE_FRAME_DECODER_H

#include <cstdint>
#include <span>

#include "device/frame_format.h"
#include "device/records.h"

namespace quor {

// Indications as records. Any bytes decode to a valid record; what the values mean is the telephone
// controller's business.

StatusRecord DecodeStatus(std::span<const uint8_t, kSetStatusSize> frame) noexcept;

// The sixth byte of the record is the frame's carriage return: the indication carries only five.
IncomingCallRecord DecodeReceiveCall(std::span<const uint8_t, kReceiveCallSize> frame) noexcept;

// The name loses its padding on the right, inner spaces stay. A number said to be longer than its
// field is left empty (HasValidNumberLength).
CallerIdRecord DecodeCallerId(std::span<const uint8_t, kCallerIdSize> frame) noexcept;
bool HasValidNumberLength(std::span<const uint8_t, kCallerIdSize> frame) noexcept;

CellRegistrationRecord DecodeCellRegistration(
    std::span<const uint8_t, kCellRegistrationSize> frame) noexcept;

}  // namespace quor

#endif
