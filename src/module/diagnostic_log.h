#ifndef QUOR_MODULE_DIAGNOSTIC_LOG_H
#define QUOR_MODULE_DIAGNOSTIC_LOG_H

#include <string_view>

namespace quor {

// Where finished log lines go. The product's writer stamps the line with the local time and appends
// it to the day's file; tests keep the lines.
class ILogWriter {
 public:
  // Text is in the ANSI code page and ends with its own line feed. Must not throw: a line that
  // cannot be written is dropped, since this is the reporting path itself.
  virtual void WriteLine(std::string_view text) noexcept = 0;

 protected:
  ~ILogWriter() = default;
};

// The one entry point of every diagnostic line. Switched off it costs a branch: nothing is
// formatted, no file and no folder is made. Off until SetEnabled.
class CDiagnosticLog {
 public:
  // The writer must outlive the log.
  explicit CDiagnosticLog(ILogWriter& writer) noexcept : m_writer(writer) {}
  CDiagnosticLog(const CDiagnosticLog&) = delete;
  CDiagnosticLog& operator=(const CDiagnosticLog&) = delete;

  bool IsEnabled() const noexcept { return m_enabled; }
  void SetEnabled(bool enabled) noexcept { m_enabled = enabled; }

  void Write(std::string_view text) noexcept {
    if (m_enabled) m_writer.WriteLine(text);
  }

  // printf-style; callers whose arguments are costly ask IsEnabled first.
  [[gnu::format(printf, 2, 3)]] void Print(const char* format, ...) noexcept;

 private:
  ILogWriter& m_writer;
  bool m_enabled = false;
};

}  // namespace quor

#endif
