#ifndef QUOR_DOCTOR_CONSOLE_H
#define QUOR_DOCTOR_CONSOLE_H

#include <windows.h>

#include <optional>
#include <string>

namespace quor::doctor {

// Input and output of a program with windows: where they were redirected to, otherwise the output
// is the console of the program that started this one. There is no input from a console then: the
// command interpreter does not wait for a program with windows, and reads the keys itself.
class CConsole {
 public:
  CConsole() noexcept;
  ~CConsole();
  CConsole(const CConsole&) = delete;
  CConsole& operator=(const CConsole&) = delete;

  void Print(const std::string& utf8) const;
  // The first character of the input; 0 at its end; nothing if the input was not redirected.
  std::optional<char> Read() const noexcept;

 private:
  HANDLE m_output;
  bool m_isAttached = false;  // the output is the other program's console
};

}  // namespace quor::doctor

#endif
