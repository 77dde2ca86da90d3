#include <exception>
#include <new>

// How the standard library's containers, strings and functions report misuse. Its own definitions
// throw exceptions that hold a text, and bring along for that two whole string classes with their
// tables for unwinding: some 80 KB of the 32-bit DLL. The linker takes these definitions instead; a
// link that fails with "multiple definition" says that one more of them has come into use.
namespace {

// Caught as std::exception like the library's own: no code of ours tells them apart.
class CLibraryMisuse final : public std::exception {
 public:
  const char* what() const noexcept override { return "misuse of the standard library"; }
};

}  // namespace

namespace std {

[[noreturn]] void __throw_bad_alloc() {
  throw bad_alloc();
}

[[noreturn]] void __throw_bad_array_new_length() {
  throw bad_array_new_length();
}

[[noreturn]] void __throw_bad_function_call() {
  throw CLibraryMisuse();
}

[[noreturn]] void __throw_length_error(const char*) {
  throw CLibraryMisuse();
}

[[noreturn]] void __throw_logic_error(const char*) {
  throw CLibraryMisuse();
}

[[noreturn]] void __throw_out_of_range_fmt(const char*, ...) {
  throw CLibraryMisuse();
}

}  // namespace std
