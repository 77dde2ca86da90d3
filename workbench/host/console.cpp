#include "workbench/host/console.h"

#include <cstdio>
#include <iterator>

namespace quor::workbench {

namespace {

// A plain buffer, because the crash handler reads it.
char g_currentCommand[256] = "before the first command";
uint64_t g_round = 0;  // 0: no sweep

std::string Indented(const std::string& text, const char* indentation) {
  std::string result = indentation;
  for (const char c : text) {
    result += c;
    if (c == '\n') result += indentation;
  }
  return result;
}

}  // namespace

void PrintLine(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

const char* CConsole::CurrentCommand() {
  return g_currentCommand;
}

void CConsole::SetRound(uint64_t call) {
  g_round = call;
}

void CConsole::Command(const Statement& statement) {
  const std::string round = g_round != 0 ? "call " + std::to_string(g_round) + ", " : "";
  std::snprintf(g_currentCommand, std::size(g_currentCommand), "%sline %d: %s", round.c_str(),
                statement.line, statement.source.c_str());
  if (m_telling != Options::Telling::Everything || statement.words.front() == "say") return;
  if (statement.round > 1) return;  // the same as in the first round
  char number[16];
  std::snprintf(number, std::size(number), "%4d  ", statement.line);
  PrintLine(number + statement.source);
}

void CConsole::Say(const std::string& text) {
  if (m_telling == Options::Telling::Everything) PrintLine("");
  if (m_telling != Options::Telling::FailuresOnly) PrintLine("* " + text);
}

void CConsole::Show(const std::string& text) {
  if (m_telling != Options::Telling::FailuresOnly) PrintLine(Indented(text, "      "));
}

void CConsole::Failure(const std::string& text) {
  PrintLine("FAILED " + text);
}

}  // namespace quor::workbench
