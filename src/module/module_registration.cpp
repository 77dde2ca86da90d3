#include "module/module_registration.h"

#include <array>
#include <exception>

#include "module/module.h"
#include "module/resource_ids.h"

namespace quor {
namespace {

using Scripts = std::array<RegistrationScript, 2>;

std::string_view ScriptText(int id) noexcept {
  const HMODULE module = ModuleInstance();
  const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), L"REGISTRY");
  if (resource == nullptr) return {};
  const HGLOBAL loaded = LoadResource(module, resource);
  const void* text = loaded == nullptr ? nullptr : LockResource(loaded);
  if (text == nullptr) return {};
  return {static_cast<const char*>(text), SizeofResource(module, resource)};
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
