#ifndef QUOR_WORKBENCH_SCENARIO_LOG_LINES_H
#define QUOR_WORKBENCH_SCENARIO_LOG_LINES_H

#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

struct LogLines {
  std::vector<std::string> texts;  // without their time stamps
  std::string firstError;  // the first line whose stamp is malformed or decreases; empty if none
};

// Splits the content of a diagnostic log. Every line must begin with a stamp such as "2009/03/07
// 08:05:09.042 " in local time, not earlier than the one before.
LogLines ReadLogLines(std::string_view content);

// Empty if `seen` equals `expected`; otherwise the lines of both around the first difference.
std::string DescribeDifference(const std::vector<std::string>& expected,
                               const std::vector<std::string>& seen);

}  // namespace quor::workbench

#endif
