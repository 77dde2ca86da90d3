#ifndef QUOR_WORKBENCH_SCENARIO_BYTES_H
#define QUOR_WORKBENCH_SCENARIO_BYTES_H

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "workbench/base/base_frames.h"

namespace quor::workbench {

// Exactly two hexadecimal digits; anything else leaves `value` alone and answers false.
bool ParseHexByte(std::string_view digits, uint8_t& value);

// "26 01 0D" or "26010D"; each word an even number of hexadecimal digits, and perhaps how often:
// "41*500". Throws CScenarioError.
Bytes ParseHex(std::span<const std::string> words);

// "26 01 0D"; empty for no bytes.
std::string FormatHex(std::span<const uint8_t> bytes);

}  // namespace quor::workbench

#endif
