#include "com/com_boundary.h"

#include <new>

namespace quor {
namespace {

HRESULT CurrentException() noexcept {
  try {
    throw;
  } catch (const _com_error& error) {
    return FAILED(error.Error()) ? error.Error() : E_FAIL;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace

HRESULT LogException(CDiagnosticLog& log, const char* where) noexcept {
  const HRESULT result = CurrentException();
  log.Print("** Error : %s failed. (0x%08X)\n", where, static_cast<unsigned>(result));
  return result;
}

}  // namespace quor
