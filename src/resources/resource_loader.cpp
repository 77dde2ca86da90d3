#include "resources/resource_loader.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "resources/dialog_font.h"
#include "resources/message_font.h"
#include "resources/resource_data.h"

namespace quor {
namespace {

constexpr LANGID kEnglishLanguage = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr int kStringsPerBlock = 16;

// A block of a string table has sixteen strings, each a length and that many UTF-16 units; length 0
// means that the string is missing.
std::wstring StringInBlock(std::span<const std::byte> block, int position) {
  for (;; --position) {
    WORD length = 0;
    if (block.size() < sizeof length) return {};
    std::memcpy(&length, block.data(), sizeof length);
    block = block.subspan(sizeof length);
    const size_t bytes = length * sizeof(wchar_t);
    if (block.size() < bytes) return {};
    if (position == 0) {
      std::wstring text(length, L'\0');
      std::memcpy(text.data(), block.data(), bytes);
      return text;
    }
    block = block.subspan(bytes);
  }
}

BOOL CALLBACK CollectLanguage(HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR found) noexcept {
  try {
    reinterpret_cast<std::vector<LANGID>*>(found)->push_back(language);
    return TRUE;
  } catch (...) {
    return FALSE;
  }
}

}  // namespace

void CResourceLoader::SetLanguage(uint16_t primary, uint16_t sub) noexcept {
  m_language = static_cast<LANGID>(MAKELANGID(primary, sub));
}

std::wstring CResourceLoader::Text(int id) const {
  const int block = id / kStringsPerBlock + 1;
  for (const LANGID language : {m_language, kEnglishLanguage}) {
    std::wstring text =
        StringInBlock(ResourceData(m_module, RT_STRING, block, language), id % kStringsPerBlock);
    if (!text.empty()) return text;
  }
  return {};
}

std::vector<std::wstring> CResourceLoader::TextInEveryLanguage(int id) const {
  const int block = id / kStringsPerBlock + 1;
  std::vector<LANGID> languages;
  EnumResourceLanguagesW(m_module, RT_STRING, MAKEINTRESOURCEW(block), CollectLanguage,
                         reinterpret_cast<LONG_PTR>(&languages));
  std::vector<std::wstring> texts;
  for (const LANGID language : languages) {
    std::wstring text =
        StringInBlock(ResourceData(m_module, RT_STRING, block, language), id % kStringsPerBlock);
    if (!text.empty()) texts.push_back(std::move(text));
  }
  return texts;
}

std::vector<std::byte> CResourceLoader::DialogTemplate(int id, uint16_t mostPoints) const {
  for (const LANGID language : {m_language, kEnglishLanguage}) {
    const std::span<const std::byte> found = ResourceData(m_module, RT_DIALOG, id, language);
    if (found.empty()) continue;
    std::optional<DialogFont> font = MessageFont();
    if (!font) return {found.begin(), found.end()};
    font->points = std::min(font->points, mostPoints);
    return WithFont(found, *font);
  }
  return {};
}

std::span<const std::byte> CResourceLoader::Data(const wchar_t* type, int id) const noexcept {
  return ResourceData(m_module, type, id);
}

}  // namespace quor
