#ifndef QUOR_WORKBENCH_SCENARIO_LOG_LINES_H
#define QUOR_WORKBENCH_SCENARIO_LOG_LINES_H

#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

struct LogLines {
  std::vector<std::string> texts;  // without their time stamps
  std::string firstError;          // a line whose stamp is malformed or runs backwards; else empty
};

// Splits the content of a diagnostic log. Every line begins with
// "2009/03/07 08:05:09.042 " in local time, never earlier than the line before.
LogLines ReadLogLines(std::string_view content);

// Empty when `seen` is exactly `expected`; else both around the first difference, one line each.
std::string DescribeDifference(const std::vector<std::string>& expected,
                               const std::vector<std::string>& seen);

}  // namespace quor::workbench

#endif
