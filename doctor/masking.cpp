#include "doctor/masking.h"

#include <algorithm>
#include <optional>

#include "device/frame_format.h"

namespace quor::doctor {
namespace {

constexpr size_t kStampSize = 24;  // "2009/03/07 08:05:09.042 "
constexpr size_t kShortestNumber = 5;
constexpr size_t kShortestMarkedNumber = 1;
constexpr size_t kCellNames = 4;
constexpr size_t kCellNameSize = 14;
constexpr size_t kCallNumberOffset = 5;  // start, code, line type, two digits of length
constexpr char kNumberCharacters[] = "0123456789*#-()";
constexpr char kDialCharacters[] = "0123456789*#-()pfPF";  // with pause and flash
constexpr std::string_view kFolderName = "FolderName=";
constexpr std::string_view kFirstOfName = "Name[0]: 0x";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsStamp(std::string_view line) {
  return line.size() >= kStampSize && line[4] == '/' && line[13] == ':' && line[19] == '.' &&
         line[23] == ' ';
}

char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, LowerCase, LowerCase);
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The bytes of a dump such as "[R] (3) 26 01 00"; nothing for other lines.
std::optional<std::vector<uint8_t>> ReadDump(std::string_view message) {
  if (message.size() < 4 || message[0] != '[' || message[2] != ']') return std::nullopt;
  const size_t start = message.find(')');
  if (start == std::string_view::npos) return std::nullopt;
  std::vector<uint8_t> bytes;
  for (size_t i = start + 1; i + 2 < message.size() && message[i] == ' '; i += 3) {
    const int high = HexDigit(message[i + 1]);
    const int low = HexDigit(message[i + 2]);
    if (high < 0 || low < 0) break;
    bytes.push_back(static_cast<uint8_t>(high << 4 | low));
  }
  return bytes;
}

struct NumberRun {
  size_t end = 0;
  bool isMarked = false;  // a number for sure, however short
};

// The number that may start at this position of a log line.
NumberRun NumberAt(std::string_view text, size_t start) {
  const std::string_view before = text.substr(0, start);
  const auto endAt = [&](size_t end) { return std::min(end, text.size()); };
  // A caller's number may contain spaces.
  if (before.ends_with("Number: ")) return {endAt(text.find(',', start)), true};
  if (before.ends_with("number = ")) return {endAt(text.find(' ', start)), true};
  const size_t end = endAt(text.find_first_not_of(kNumberCharacters, start));
  const bool isDialled = text.substr(start, end - start).find('#') != std::string_view::npos;
  if (!isDialled) return {end, false};
  return {endAt(text.find_first_not_of(kDialCharacters, start)), true};
}

bool Begins(const std::vector<uint8_t>& bytes, uint8_t start, uint8_t code) {
  return bytes.size() >= 2 && bytes[0] == start && bytes[1] == code;
}

// An incomplete frame is not parsed: masks every digit and letter, and every byte that may belong
// to a caller's packed number.
void BlankText(std::vector<uint8_t>& bytes, size_t from) {
  constexpr uint8_t kTwoZeros = 0xAA;
  if (Begins(bytes, kIndicationStart, static_cast<uint8_t>(Indication::CallerId))) {
    for (size_t i = kCidNumberOffset; i < bytes.size(); ++i) {
      bytes[i] = kTwoZeros;
    }
  }
  for (size_t i = from; i < bytes.size(); ++i) {
    if (IsDigit(static_cast<char>(bytes[i]))) bytes[i] = '0';
    const uint8_t letter = bytes[i] | 0x20U;
    if (letter >= 'a' && letter <= 'z') bytes[i] = 'X';
  }
}

}  // namespace

std::string CMasking::Line(std::string_view line) {
  const size_t start = IsStamp(line) ? kStampSize : 0;
  const size_t end = line.find_last_not_of("\r\n") + 1;
  if (end <= start) return std::string(line);
  return std::string(line.substr(0, start)) + Message(line.substr(start, end - start)) +
         std::string(line.substr(end));
}

std::string CMasking::Paths(std::string_view text, std::string_view userName) {
  std::string masked;
  bool isUser = false;
  for (size_t start = 0; start < text.size();) {
    const size_t end = std::min(text.find_first_of("\\\r\n", start), text.size());
    const std::string_view folder = text.substr(start, end - start);
    const bool isFolder = start > 0 && text[start - 1] == '\\';
    const bool isNamed = isFolder && !userName.empty() && EqualIgnoringCase(folder, userName);
    masked += isUser || isNamed ? "USER" : folder;
    isUser = isFolder && EqualIgnoringCase(folder, "users") && text.substr(end).starts_with('\\');
    if (end < text.size()) masked += text[end];
    start = end + 1;
  }
  return masked;
}

std::string CMasking::Message(std::string_view message) {
  if (auto bytes = ReadDump(message)) {
    return Dump(message.substr(0, message.find(')') + 1), std::move(*bytes));
  }
  if (message.starts_with(kFolderName)) {
    const std::string name(message.substr(kFolderName.size()));
    const auto [entry, isNew] = m_names.try_emplace(name);
    if (isNew) entry->second = "FOLDER" + std::to_string(m_names.size());
    return std::string(kFolderName) + entry->second;
  }
  return Paths(Text(message));
}

std::string CMasking::Dump(std::string_view tag, std::vector<uint8_t> bytes) {
  const auto code = [](auto value) { return static_cast<uint8_t>(value); };
  if (Begins(bytes, kIndicationStart, code(Indication::CallerId)) &&
      bytes.size() == kCallerIdSize) {
    CallerId(bytes);
  } else if (Begins(bytes, kIndicationStart, code(Indication::CellRegistration)) &&
             bytes.size() == kCellRegistrationSize) {
    for (size_t i = 0; i < kCellNames; ++i) {
      Name(bytes, kCellNamesOffset + i * kCellNameSize, kCellNameSize);
    }
  } else if (Begins(bytes, kRequestStart, code(RequestCode::Call))) {
    CallRequest(bytes);
  } else if (bytes.size() > kReceiveCallSize + 1) {
    BlankText(bytes, kHeaderSize);
  }
  constexpr char kHexDigits[] = "0123456789ABCDEF";
  std::string line(tag);
  for (const unsigned byte : bytes) {
    line += {' ', kHexDigits[byte >> 4U], kHexDigits[byte & 0x0FU]};
  }
  return line;
}

void CMasking::CallerId(std::vector<uint8_t>& bytes) {
  Name(bytes, kCidNameOffset, kCidNameSize);
  const size_t length = std::min<size_t>(bytes[kCidNumberLengthOffset], kCidNumberSize * 2);
  std::string digits;
  for (size_t i = 0; i < kCidNumberSize * 2; ++i) {
    const unsigned byte = bytes[kCidNumberOffset + i / 2];
    digits += kDigitCharacters[i % 2 == 0 ? byte >> 4U : byte & 0x0FU];
  }
  // Digits behind the number may be those of an earlier caller.
  std::string masked = Number(digits.substr(0, length)) + digits.substr(length);
  std::replace_if(masked.begin() + static_cast<std::ptrdiff_t>(length), masked.end(), IsDigit, '0');
  for (size_t i = 0; i < masked.size(); i += 2) {
    const std::string_view codes = kDigitCharacters;
    bytes[kCidNumberOffset + i / 2] =
        static_cast<uint8_t>(codes.find(masked[i]) << 4U | codes.find(masked[i + 1]));
  }
}

void CMasking::CallRequest(std::vector<uint8_t>& bytes) {
  if (bytes.size() <= kCallNumberOffset + 1) return;
  const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(kCallNumberOffset);
  const std::string masked = Number(std::string(start, bytes.end() - 1));
  std::ranges::copy(masked, start);
}

// Bytes behind a zero are not part of the name: removes them, too.
void CMasking::Name(std::vector<uint8_t>& bytes, size_t offset, size_t size) {
  const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
  const auto end = start + static_cast<std::ptrdiff_t>(size);
  const std::string name(start, std::find(start, end, uint8_t{0}));
  std::fill(std::ranges::copy(Placeholder(name, size), start).out, end, uint8_t{0});
}

std::string CMasking::Text(std::string_view text) {
  std::string masked = CellNames(std::string(text));
  if (const size_t at = masked.find(kFirstOfName); at != std::string::npos) {
    const size_t value = at + kFirstOfName.size();
    // The "N" of the placeholder, if the frame has a name.
    const std::string code = masked.substr(value, 2);
    if (code != "00" && code != "20") masked.replace(value, 2, "4E");
  }
  for (size_t i = 0; i < masked.size();) {
    const auto [end, isMarked] = NumberAt(masked, i);
    const std::string run = masked.substr(i, end - i);
    const auto digits = static_cast<size_t>(std::ranges::count_if(run, IsDigit));
    const bool isHex = i > 0 && masked[i - 1] == 'x';
    if (!isHex && digits >= (isMarked ? kShortestMarkedNumber : kShortestNumber)) {
      masked.replace(i, run.size(), Number(run));
    }
    i = end + 1;
  }
  return masked;
}

// "RegInfo: 0x01, Cell1Name: Paul's phone  , Cell2Name: ...": as the masked frame is logged.
std::string CMasking::CellNames(std::string text) {
  for (size_t cell = 1; cell <= kCellNames; ++cell) {
    const auto label = [](size_t number) { return ", Cell" + std::to_string(number) + "Name: "; };
    size_t start = text.find(label(cell));
    if (start == std::string::npos) break;
    start += label(cell).size();
    const size_t end = std::min(text.find(label(cell + 1), start), text.size());
    text.replace(start, end - start, Placeholder(text.substr(start, end - start), kCellNameSize));
  }
  return text;
}

// The same for a name with and without trailing spaces; padded to the size. A blank name stays.
std::string CMasking::Placeholder(const std::string& name, size_t size) {
  const size_t length = name.find_last_not_of(' ') + 1;
  if (length == 0) return name;
  const auto [entry, isNew] = m_names.try_emplace(name.substr(0, length));
  if (isNew) entry->second = "NAME" + std::to_string(m_names.size());
  std::string placeholder = entry->second;
  placeholder.resize(size, ' ');
  return placeholder;
}

std::string CMasking::Number(std::string_view text) {
  std::string digits;
  std::ranges::copy_if(text, std::back_inserter(digits), IsDigit);
  const auto [entry, isNew] = m_numbers.try_emplace(digits);
  if (isNew) {
    const std::string number = std::to_string(m_numbers.size());
    const size_t size = digits.size();
    entry->second = number.size() < size ? std::string(size - number.size(), '0') + number
                                         : number.substr(number.size() - size);
  }
  std::string masked(text);
  size_t next = 0;
  for (char& c : masked) {
    if (IsDigit(c)) c = entry->second[next++];
  }
  return masked;
}

}  // namespace quor::doctor
