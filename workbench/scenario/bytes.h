#ifndef QUOR_WORKBENCH_SCENARIO_BYTES_H
#define QUOR_WORKBENCH_SCENARIO_BYTES_H

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "workbench/base/base_frames.h"

namespace quor::workbench {

// Parses exactly two hexadecimal digits: "0D" gives 13. False, with `value` unchanged, for anything
// else.
bool ParseHexByte(std::string_view digits, uint8_t& value);

// Parses "26 01 0D" or "26010D". Each word has an even number of hexadecimal digits and optionally
// a count: "41*500". Throws CScenarioError.
Bytes ParseHex(std::span<const std::string> words);

// "26 01 0D"; empty for no bytes.
std::string FormatHex(std::span<const uint8_t> bytes);

}  // namespace quor::workbench

#endif
