#ifndef QUOR_SETTINGS_SYSTEM_LANGUAGE_H
#define QUOR_SETTINGS_SYSTEM_LANGUAGE_H

#include "settings/configuration_document.h"

namespace quor {

// The language Windows itself came in, as told by the version resource of its KERNEL32.DLL. English
// when it is none of ours or cannot be had.
class CSystemLanguage final : public ISystemLanguage {
 public:
  int32_t LanguageNumber() override;
};

}  // namespace quor

#endif
