#ifndef QUOR_COM_COM_BOUNDARY_H
#define QUOR_COM_COM_BOUNDARY_H

#include <exception>
#include <new>

#include "com/com_pointers.h"
#include "module/diagnostic_log.h"

namespace quor {

// Runs the body of every function that Windows or Outlook calls: interface methods, sinks, window
// and dialog procedures, timers. No exception passes it. A failure is logged as "** Error : <where>
// failed. (0x........)\n" and returned as its HRESULT.
template <typename Body>
HRESULT GuardComCall(CDiagnosticLog& log, const char* where, Body&& body) noexcept {
  HRESULT result = E_FAIL;
  try {
    return body();
  } catch (const _com_error& error) {
    result = error.Error();
  } catch (const std::bad_alloc&) {
    result = E_OUTOFMEMORY;
  } catch (...) {
    result = E_UNEXPECTED;
  }
  if (SUCCEEDED(result)) result = E_FAIL;
  log.Print("** Error : %s failed. (0x%08X)\n", where, static_cast<unsigned>(result));
  return result;
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
