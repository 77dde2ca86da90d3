#ifndef QUOR_DEVICE_FRAME_BUILDER_H
#define QUOR_DEVICE_FRAME_BUILDER_H

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "device/frame_format.h"

namespace quor {

// Start byte, code, payload, carriage return.
std::vector<uint8_t> BuildRequest(RequestCode code, std::span<const uint8_t> payload);

// Line type, two length digits, number. The digits are "00" for a number of more than 99
// characters, which is sent whole. "123" on Line1 gives line type, "03", "123".
std::vector<uint8_t> CallPayload(uint8_t lineType, std::string_view number);

}  // namespace quor

#endif
