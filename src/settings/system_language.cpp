#include "settings/system_language.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "settings/configuration.h"

namespace quor {
namespace {

std::wstring KernelPath() {
  wchar_t folder[MAX_PATH] = L"";
  const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return {};
  return std::wstring(folder) + L"\\KERNEL32.DLL";
}

// The first language listed in the translation table of a file's version resource.
std::optional<LANGID> FirstTranslation(const std::wstring& path) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
  if (size == 0) return std::nullopt;
  std::vector<BYTE> version(size);
  if (!GetFileVersionInfoW(path.c_str(), 0, size, version.data())) return std::nullopt;
  void* translation = nullptr;
  UINT length = 0;
  if (!VerQueryValueW(version.data(), L"\\VarFileInfo\\Translation", &translation, &length) ||
      length < sizeof(LANGID)) {
    return std::nullopt;
  }
  return *static_cast<const LANGID*>(translation);
}

}  // namespace

int32_t CSystemLanguage::LanguageNumber() {
  const std::optional<LANGID> language = FirstTranslation(KernelPath());
  return language ? LanguageNumberFromId(*language) : kEnglish;
}

}  // namespace quor
