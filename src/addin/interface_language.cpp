#include "addin/interface_language.h"

#include <utility>

#include "settings/configuration.h"

namespace quor {
namespace {

struct Language {
  WORD primary;
  WORD sub;
};

// The languages with resources, by language number.
constexpr Language kLanguages[kLanguageCount] = {
    {LANG_ENGLISH, SUBLANG_ENGLISH_US},      // 1033
    {LANG_FRENCH, SUBLANG_FRENCH},           // 1036
    {LANG_SPANISH, SUBLANG_SPANISH_MODERN},  // 3082
};

}  // namespace

void CInterfaceLanguage::Choose(int32_t languageNo) noexcept {
  if (languageNo < 0 || languageNo >= kLanguageCount) return;
  const Language& language = kLanguages[languageNo];
  const LCID previous = GetThreadLocale();
  if (SetThreadLocale(MAKELCID(MAKELANGID(language.primary, language.sub), SORT_DEFAULT))) {
    if (m_previousLocale == 0) m_previousLocale = previous;
  } else {
    m_log.Write("** SetThreadLocale set error.\n");
  }
  m_log.Print("SetThreadLocale PrimaryLanguage = %d SubLanguage = %d\n", language.primary,
              language.sub);
  m_plid = language.primary;
  m_slid = language.sub;
  m_resources.SetLanguage(m_plid, m_slid);
  m_log.Print("change language m_plid = %d m_slid = %d\n", m_plid, m_slid);
}

void CInterfaceLanguage::Leave() noexcept {
  if (m_previousLocale != 0) SetThreadLocale(std::exchange(m_previousLocale, 0));
}

}  // namespace quor
