#ifndef QUOR_WORKBENCH_HOST_CONSOLE_H
#define QUOR_WORKBENCH_HOST_CONSOLE_H

#include <cstdint>
#include <string>

#include "workbench/scenario/options.h"
#include "workbench/scenario/run.h"

namespace quor::workbench {

// The transcript on standard output, UTF-8, line feeds only.
class CConsole final : public ITranscript {
 public:
  explicit CConsole(Options::Telling telling) : m_telling(telling) {}

  void Command(const Statement& statement) override;
  void Say(const std::string& text) override;
  void Show(const std::string& text) override;
  void Failure(const std::string& text) override;

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
