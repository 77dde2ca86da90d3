#ifndef QUOR_MODULE_LOG_FILE_H
#define QUOR_MODULE_LOG_FILE_H

#include <string>

#include "module/diagnostic_log.h"

namespace quor {

// The day's log file, "Temp\catlogYYYYMMDD.txt" in the user's application-data folder. The file is
// opened and closed for every line: it survives a crash of Outlook and can be read meanwhile. The
// folder is made by the first line. A line that cannot be written is dropped.
class CLogFile final : public ILogWriter {
 public:
  void WriteLine(std::string_view text) noexcept override;

  // The file that a line written now would go into, whether it exists or not; in the ANSI code
  // page, empty when Windows does not tell the folder.
  static std::string TodaysPath();
};

}  // namespace quor

#endif
