#ifndef QUOR_MODULE_DIAGNOSTIC_LOG_H
#define QUOR_MODULE_DIAGNOSTIC_LOG_H

#include <string_view>

namespace quor {

// Receives the log lines. The product's writer adds the local time and appends the line to the
// day's file; tests keep the lines.
class ILogWriter {
 public:
  // `text` is in the ANSI code page and ends with a line feed. Must not throw; drops a line that
  // cannot be written, because there is nowhere else to report it.
  virtual void WriteLine(std::string_view text) noexcept = 0;

 protected:
  ~ILogWriter() = default;
};

// All diagnostic lines pass through this class. While it is off, a line costs one branch: nothing
// is formatted and no file or folder is created. Off until SetEnabled.
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

  // Formats like printf. If computing an argument is expensive, check IsEnabled first.
  [[gnu::format(printf, 2, 3)]] void Print(const char* format, ...) noexcept;

 private:
  ILogWriter& m_writer;
  bool m_enabled = false;
};

}  // namespace quor

#endif
