#ifndef QUOR_WORKBENCH_HOST_CONSOLE_H
#define QUOR_WORKBENCH_HOST_CONSOLE_H

#include <cstdint>
#include <string>

#include "workbench/scenario/options.h"
#include "workbench/scenario/script.h"

namespace quor::workbench {

// The transcript of a run on standard output, UTF-8, line feeds only. A scenario always produces
// the same.
class CConsole {
 public:
  explicit CConsole(Options::Telling telling) : m_telling(telling) {}

  void Command(const Statement& statement);
  // A line of the scenario's story for the reader.
  void Say(const std::string& text);
  // Something that the scenario asked to see, or an observation; may have several lines.
  void Show(const std::string& text);
  void Failure(const std::string& text);

  // The current command, for reports of a crash or a hang.
  static const char* CurrentCommand();
  // The call of the object model that the sweep's round tests; printed before the command.
  static void SetRound(uint64_t call);

 private:
  Options::Telling m_telling;
};

void PrintLine(const std::string& text);

}  // namespace quor::workbench

#endif
