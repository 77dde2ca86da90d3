#ifndef QUOR_SETTINGS_SYSTEM_LANGUAGE_H
#define QUOR_SETTINGS_SYSTEM_LANGUAGE_H

#include "settings/configuration_document.h"

namespace quor {

// The language of the installed Windows, from the version resource of its KERNEL32.DLL. English if
// the product does not speak it or the resource cannot be read.
class CSystemLanguage final : public ISystemLanguage {
 public:
  int32_t LanguageNumber() override;
};

}  // namespace quor

#endif
