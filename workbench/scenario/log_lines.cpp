#include "workbench/scenario/log_lines.h"

#include <algorithm>
#include <cstddef>

namespace quor::workbench {

namespace {

constexpr std::string_view kStampShape = "dddd/dd/dd dd:dd:dd.ddd ";

bool HasStamp(std::string_view line) {
  if (line.size() < kStampShape.size()) return false;
  for (size_t i = 0; i < kStampShape.size(); ++i) {
    const bool isDigit = line[i] >= '0' && line[i] <= '9';
    if (kStampShape[i] == 'd' ? !isDigit : line[i] != kStampShape[i]) return false;
  }
  return true;
}

// Number of lines shown before a difference.
constexpr size_t kContext = 3;

}  // namespace

LogLines ReadLogLines(std::string_view content) {
  LogLines lines;
  std::string_view previous;
  while (!content.empty()) {
    const size_t end = content.find('\n');
    if (end == std::string_view::npos && lines.firstError.empty()) {
      lines.firstError = "the last line has no line feed";
    }
    std::string_view line = content.substr(0, end);
    content = end == std::string_view::npos ? std::string_view() : content.substr(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);  // the file is opened in text mode
    if (!HasStamp(line)) {
      if (lines.firstError.empty()) lines.firstError = "no time stamp: " + std::string(line);
      lines.texts.emplace_back(line);
      continue;
    }
    const std::string_view stamp = line.substr(0, kStampShape.size());
    if (stamp < previous && lines.firstError.empty()) {
      lines.firstError = "earlier than the line before: " + std::string(line);
    }
    previous = stamp;
    lines.texts.emplace_back(line.substr(kStampShape.size()));
  }
  return lines;
}

std::string DescribeDifference(const std::vector<std::string>& expected,
                               const std::vector<std::string>& seen) {
  const auto [inExpected, inSeen] =
      std::mismatch(expected.begin(), expected.end(), seen.begin(), seen.end());
  if (inExpected == expected.end() && inSeen == seen.end()) return {};
  const auto at = static_cast<size_t>(inExpected - expected.begin());
  std::string text;
  for (size_t i = at > kContext ? at - kContext : 0; i < at; ++i)
    text += "    " + seen[i] + "\n";
  text += "  expected: " + (at < expected.size() ? expected[at] : std::string("(end)")) + "\n";
  text += "  seen:     " + (at < seen.size() ? seen[at] : std::string("(end)")) + "\n";
  for (size_t i = at + 1; i < std::min(seen.size(), at + 1 + kContext); ++i) {
    text += "    " + seen[i] + "\n";
  }
  return text;
}

}  // namespace quor::workbench
