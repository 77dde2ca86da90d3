#ifndef QUOR_ADDIN_INTERFACE_LANGUAGE_H
#define QUOR_ADDIN_INTERFACE_LANGUAGE_H

#include <windows.h>

#include <cstdint>

#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"

namespace quor {

// Selects the language of the add-in's texts for this session.
class CInterfaceLanguage {
 public:
  // Both must outlive the object.
  CInterfaceLanguage(CResourceLoader& resources, CDiagnosticLog& log) noexcept
      : m_resources(resources), m_log(log) {}

  // Uses the configured language (0 English, 1 French, 2 Spanish) for the resources and the
  // thread's locale; any other number leaves both unchanged.
  void Choose(int32_t languageNo) noexcept;
  // Restores the thread's locale, because the thread is Outlook's.
  void Leave() noexcept;

 private:
  CResourceLoader& m_resources;
  CDiagnosticLog& m_log;
  WORD m_plid = LANG_ENGLISH;
  WORD m_slid = SUBLANG_ENGLISH_US;
  LCID m_previousLocale = 0;
};

}  // namespace quor

#endif
