#ifndef QUOR_COM_COM_BOUNDARY_H
#define QUOR_COM_COM_BOUNDARY_H

#include "com/com_pointers.h"
#include "module/diagnostic_log.h"

namespace quor {

// Call it in a catch block. Logs the exception as "** Error : <where> failed. (0x........)\n" and
// returns its HRESULT: a _com_error's own, E_OUTOFMEMORY or E_UNEXPECTED.
HRESULT LogException(CDiagnosticLog& log, const char* where) noexcept;

// Runs the body of every function that Windows or Outlook calls: interface methods, sinks, window
// and dialog procedures, timers. No exception passes it; the result is then LogException's.
template <typename Body>
HRESULT GuardComCall(CDiagnosticLog& log, const char* where, Body&& body) noexcept {
  try {
    return body();
  } catch (...) {
    return LogException(log, where);
  }
}

// The same for a body without a result. True if the body completed.
template <typename Body>
bool GuardCall(CDiagnosticLog& log, const char* where, Body&& body) noexcept {
  return SUCCEEDED(GuardComCall(log, where, [&body]() -> HRESULT {
    body();
    return S_OK;
  }));
}

}  // namespace quor

#endif
