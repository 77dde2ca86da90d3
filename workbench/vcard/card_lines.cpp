#include "workbench/vcard/card_lines.h"

#include <algorithm>
#include <cstdint>

namespace quor::workbench {
namespace {

bool IsBlank(char character) noexcept {
  return character == ' ' || character == '\t';
}

bool IsNameCharacter(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '-' || character == '_';
}

// Position of the first character of `stops` outside double quotes, or npos.
size_t FindOutsideQuotes(std::string_view text, std::string_view stops) noexcept {
  bool quoted = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (!quoted && stops.find(text[i]) != std::string_view::npos) return i;
  }
  return std::string_view::npos;
}

// One value of a parameter, without quotes and with ^n ^' ^^ decoded.
std::string ParameterText(std::string_view value) {
  std::string text;
  for (size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '"') continue;
    const char next = value[i] == '^' && i + 1 < value.size() ? value[i + 1] : '\0';
    if (next == 'n' || next == '\'' || next == '^') {
      text += next == 'n' ? '\n' : next == '\'' ? '"' : '^';
      ++i;
    } else {
      text += value[i];
    }
  }
  return text;
}

void AddParameter(std::string_view parameter, CardProperty& property) {
  const size_t equals = FindOutsideQuotes(parameter, "=");
  const bool bare = equals == std::string_view::npos;
  const std::string name = bare ? "TYPE" : UpperAscii(parameter.substr(0, equals));
  std::string_view values = bare ? parameter : parameter.substr(equals + 1);
  // vCard 4.0 also writes several types as one quoted value: TYPE="work,voice".
  while (true) {
    const size_t comma = values.find(',');
    property.parameters.emplace_back(name, ParameterText(values.substr(0, comma)));
    if (comma == std::string_view::npos) return;
    values.remove_prefix(comma + 1);
  }
}

size_t SequenceLength(uint8_t lead) noexcept {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

// Checks the second byte: excludes overlong forms, surrogates and codes above U+10FFFF.
bool IsSecondByteGood(uint8_t lead, uint8_t second) noexcept {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second <= 0x9F;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second <= 0x8F;
    default:
      return true;
  }
}

}  // namespace

CCardLines::CCardLines(std::string_view text) : m_rest(text) {
  if (m_rest.starts_with("\xEF\xBB\xBF")) m_rest.remove_prefix(3);
}

bool CCardLines::NextPhysical(std::string_view& line) {
  if (m_rest.empty()) return false;
  const size_t end = m_rest.find('\n');
  line = m_rest.substr(0, end);
  m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  ++m_number;
  return true;
}

bool CCardLines::Next(std::string& line, int& number) {
  std::string_view physical;
  do {
    if (!NextPhysical(physical)) return false;
  } while (physical.empty());
  number = m_number;
  line = physical;
  while (!m_rest.empty() && IsBlank(m_rest.front()) && NextPhysical(physical)) {
    line += physical.substr(1);
  }
  return true;
}

bool ParseProperty(std::string_view line, CardProperty& property) {
  const size_t colon = FindOutsideQuotes(line, ":");
  if (colon == std::string_view::npos) return false;
  std::string_view head = line.substr(0, colon);
  property.value = line.substr(colon + 1);
  property.parameters.clear();

  const size_t nameEnd = std::min(head.find(';'), head.size());
  std::string_view name = head.substr(0, nameEnd);
  name.remove_prefix(name.find('.') + 1);  // npos + 1 is 0: no group
  if (name.empty() || !std::all_of(name.begin(), name.end(), IsNameCharacter)) return false;
  property.name = UpperAscii(name);

  head.remove_prefix(nameEnd);
  while (!head.empty()) {
    head.remove_prefix(1);
    const size_t end = std::min(FindOutsideQuotes(head, ";"), head.size());
    if (end != 0) AddParameter(head.substr(0, end), property);
    head.remove_prefix(end);
  }
  return true;
}

std::string UnescapedText(std::string_view value) {
  std::string text;
  text.reserve(value.size());
  for (size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      text += value[i];
      continue;
    }
    const char next = value[++i];
    text += next == 'n' || next == 'N' ? '\n' : next;
  }
  return text;
}

std::vector<std::string> StructuredText(std::string_view value) {
  std::vector<std::string> parts;
  size_t start = 0;
  for (size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\') {
      ++i;
    } else if (value[i] == ';') {
      parts.push_back(UnescapedText(value.substr(start, i - start)));
      start = i + 1;
    }
  }
  parts.push_back(UnescapedText(value.substr(start)));
  return parts;
}

bool IsUtf8(std::string_view text) noexcept {
  for (size_t i = 0; i < text.size();) {
    const auto lead = static_cast<uint8_t>(text[i]);
    const size_t length = SequenceLength(lead);
    if (length == 0 || length > text.size() - i) return false;
    for (size_t offset = 1; offset < length; ++offset) {
      const auto byte = static_cast<uint8_t>(text[i + offset]);
      if ((byte & 0xC0) != 0x80) return false;
      if (offset == 1 && !IsSecondByteGood(lead, byte)) return false;
    }
    i += length;
  }
  return true;
}

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& character : upper) {
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
  }
  return upper;
}

}  // namespace quor::workbench
