#include "workbench/scenario/bytes.h"

#include "workbench/scenario/numbers.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

bool ParseHexByte(std::string_view digits, uint8_t& value) {
  const auto parsed = ParseInBase<uint8_t>(digits, 16);
  if (digits.size() != 2 || !parsed) return false;
  value = *parsed;
  return true;
}

namespace {

constexpr size_t kMostRepetitions = 1'000'000;

[[noreturn]] void RefuseWord(const std::string& word) {
  throw CScenarioError("\"" + word + "\" is not hexadecimal bytes");
}

size_t Repetitions(const std::string& word, size_t star) {
  const auto count = ParseInBase<size_t>(std::string_view(word).substr(star + 1), 10);
  if (!count || *count > kMostRepetitions) RefuseWord(word);
  return *count;
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
