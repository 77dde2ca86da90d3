#ifndef QUOR_RESOURCES_RESOURCE_LOADER_H
#define QUOR_RESOURCES_RESOURCE_LOADER_H

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "resources/string_table.h"

namespace quor {

// The module's resources. Strings and dialogs are loaded by explicit language: since Windows Vista
// the thread's locale does not select resources, and the process's locale is Outlook's.
class CResourceLoader final : public IStringTable {
 public:
  // English until SetLanguage.
  explicit CResourceLoader(HINSTANCE module) noexcept : m_module(module) {}
  CResourceLoader(const CResourceLoader&) = delete;
  CResourceLoader& operator=(const CResourceLoader&) = delete;

  // A text missing in this language is taken from English.
  void SetLanguage(uint16_t primary, uint16_t sub) noexcept;

  std::wstring Text(int id) const override;
  // The text in each language that has it.
  std::vector<std::wstring> TextInEveryLanguage(int id) const;
  // The template in the user's message font, no larger than `mostPoints`, or in its own font if
  // Windows does not report that one. Empty if there is none. Aligned as required for a
  // DLGTEMPLATE.
  std::vector<std::byte> DialogTemplate(int id, uint16_t mostPoints = UINT16_MAX) const;
  // The bytes of a language-neutral resource with one of our types; empty if there is none. Valid
  // while the module is loaded.
  std::span<const std::byte> Data(const wchar_t* type, int id) const noexcept;

  HINSTANCE Module() const noexcept { return m_module; }

 private:
  HINSTANCE m_module;
  LANGID m_language = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
};

}  // namespace quor

#endif
