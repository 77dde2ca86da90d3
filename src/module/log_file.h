#ifndef QUOR_MODULE_LOG_FILE_H
#define QUOR_MODULE_LOG_FILE_H

#include <string>

#include "module/diagnostic_log.h"

namespace quor {

// The day's log file, "Temp\catlogYYYYMMDD.txt" in the user's application-data folder. The file is
// opened and closed for each line, so that it survives a crash of Outlook and can be read at any
// time. The first line creates the folder. A line that cannot be written is dropped.
class CLogFile final : public ILogWriter {
 public:
  void WriteLine(std::string_view text) noexcept override;

  // The file that the next line would go to, whether it exists or not. In the ANSI code page; empty
  // if Windows does not report the folder.
  static std::string TodaysPath();
};

}  // namespace quor

#endif
