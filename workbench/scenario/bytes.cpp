#include "workbench/scenario/bytes.h"

#include <charconv>

#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

bool ParseHexByte(std::string_view digits, uint8_t& value) {
  if (digits.size() != 2) return false;
  uint8_t parsed = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, parsed, 16);
  if (result.ec != std::errc() || result.ptr != end) return false;
  value = parsed;
  return true;
}

namespace {

constexpr size_t kMostRepetitions = 1'000'000;

[[noreturn]] void RefuseWord(const std::string& word) {
  throw CScenarioError("\"" + word + "\" is not hexadecimal bytes");
}

size_t Repetitions(const std::string& word, size_t star) {
  size_t count = 0;
  const char* end = word.data() + word.size();
  const auto result = std::from_chars(word.data() + star + 1, end, count);
  if (result.ec != std::errc() || result.ptr != end || count > kMostRepetitions) RefuseWord(word);
  return count;
}

}  // namespace

Bytes ParseHex(std::span<const std::string> words) {
  Bytes bytes;
  for (const std::string& word : words) {
    const size_t star = word.find('*');
    const std::string_view digits = std::string_view(word).substr(0, star);
    Bytes part;
    for (size_t at = 0; at < digits.size(); at += 2) {
      uint8_t value = 0;
      if (!ParseHexByte(digits.substr(at, 2), value)) RefuseWord(word);
      part.push_back(value);
    }
    const size_t count = star == std::string::npos ? 1 : Repetitions(word, star);
    for (size_t i = 0; i < count; ++i)
      bytes.insert(bytes.end(), part.begin(), part.end());
  }
  return bytes;
}

std::string FormatHex(std::span<const uint8_t> bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0x0F];
  }
  return text;
}

}  // namespace quor::workbench
