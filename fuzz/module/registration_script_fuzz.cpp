// Any bytes are either rejected or give keys that the registry can hold.
#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "module/registration_script.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using quor::Require;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto script = quor::ParseRegistrationScript(text, L"C:\\'%MODULE%'.dll");
  if (!script) return 0;
  for (const quor::RegistryKey& key : *script) {
    Require(!key.path.empty() && key.path.front() != L'\\' && key.path.back() != L'\\');
    Require(key.path.find(L"\\\\") == std::wstring::npos);
    Require(key.path.size() <= 16 * 256);
  }
  return 0;
}
