#include "module/module_registration.h"

#include <array>
#include <exception>

#include "module/module.h"
#include "module/resource_ids.h"
#include "resources/resource_data.h"

namespace quor {
namespace {

using Scripts = std::array<RegistrationScript, 2>;

std::string_view ScriptText(int id) noexcept {
  const std::span<const std::byte> script = ResourceData(ModuleInstance(), L"REGISTRY", id);
  return {reinterpret_cast<const char*>(script.data()), script.size()};
}

// Reads both scripts before either is applied. Empty if one cannot be read.
std::optional<Scripts> ReadScripts() {
  const std::wstring path = ModulePath();
  auto addin = ParseRegistrationScript(ScriptText(IDR_REGISTRATION_ADDIN), path);
  auto page = ParseRegistrationScript(ScriptText(IDR_REGISTRATION_PROPERTY_PAGE), path);
  if (path.empty() || !addin || addin->empty() || !page || page->empty()) return std::nullopt;
  return Scripts{std::move(*addin), std::move(*page)};
}

using RunScripts = uint32_t (*)(std::span<const RegistrationScript>, IRegistry&);

HRESULT Run(RunScripts run, RegistrationScope scope) noexcept {
  try {
    const std::optional<Scripts> scripts = ReadScripts();
    if (!scripts) return E_UNEXPECTED;
    CWindowsRegistry registry(scope);
    return HRESULT_FROM_WIN32(run(*scripts, registry));
  } catch (const std::exception&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

HRESULT RegisterModule(RegistrationScope scope) noexcept {
  return Run(ApplyScripts, scope);
}

HRESULT UnregisterModule(RegistrationScope scope) noexcept {
  return Run(RevokeScripts, scope);
}

}  // namespace quor
