#include <windows.h>

// With the first exception the runtime allocates a slot of thread-local storage, which it never
// frees. A process that loads and unloads the DLL some thousand times has no slot left then, and
// the next exception ends it. So the slot is noted here and freed with the module. The linker takes
// this import instead of the library's.

namespace quor {
namespace {

class CThreadSlot {
 public:
  ~CThreadSlot() {
    if (m_slot != TLS_OUT_OF_INDEXES) TlsFree(m_slot);
  }

  DWORD Allocate() noexcept {
    const auto allocate = reinterpret_cast<decltype(&TlsAlloc)>(
        GetProcAddress(GetModuleHandleW(L"kernel32"), "TlsAlloc"));
    return m_slot = allocate();
  }

 private:
  DWORD m_slot = TLS_OUT_OF_INDEXES;
};

CThreadSlot g_slot;

DWORD WINAPI AllocateSlot() noexcept {
  return g_slot.Allocate();
}

}  // namespace

#ifdef __i386__
extern decltype(&TlsAlloc) g_importedTlsAlloc __asm__("__imp__TlsAlloc@0");
#else
extern decltype(&TlsAlloc) g_importedTlsAlloc __asm__("__imp_TlsAlloc");
#endif
decltype(&TlsAlloc) g_importedTlsAlloc = AllocateSlot;

}  // namespace quor
