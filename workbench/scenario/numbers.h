#ifndef QUOR_WORKBENCH_SCENARIO_NUMBERS_H
#define QUOR_WORKBENCH_SCENARIO_NUMBERS_H

#include <charconv>
#include <optional>
#include <string_view>

namespace quor::workbench {

// The whole text as a number in this base; nothing if it is none or does not fit the type.
template <class Number>
std::optional<Number> ParseInBase(std::string_view text, int base) {
  Number value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, base);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

// Decimal, or hexadecimal after 0x.
template <class Number>
std::optional<Number> ParseNumber(std::string_view text) {
  if (text.starts_with("0x")) return ParseInBase<Number>(text.substr(2), 16);
  return ParseInBase<Number>(text, 10);
}

}  // namespace quor::workbench

#endif
