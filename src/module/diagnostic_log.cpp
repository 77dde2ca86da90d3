#include "module/diagnostic_log.h"

#include <cstdarg>
#include <new>

#include "text/format.h"

namespace quor {

void CDiagnosticLog::Print(const char* format, ...) noexcept {
  if (!m_enabled) return;
  va_list arguments;
  va_start(arguments, format);
  try {
    m_writer.WriteLine(FormatArguments(format, arguments));
  } catch (const std::bad_alloc&) {
    m_writer.WriteLine("** log line lost: out of memory\n");
  }
  va_end(arguments);
}

}  // namespace quor
