#include <cstdlib>

// The runtime's own handler prints the name of the exception, and for that brings along a demangler
// and wide printf, some 60 KB. Outlook has no console to print on: ending is all there is to do.
// The linker takes this definition instead of the library's.
namespace __gnu_cxx {

[[noreturn]] void __verbose_terminate_handler() {
  std::abort();
}

}  // namespace __gnu_cxx
