#ifndef QUOR_SETTINGS_CONFIGURATION_DOCUMENT_H
#define QUOR_SETTINGS_CONFIGURATION_DOCUMENT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "settings/configuration.h"
#include "settings/xml_element.h"

namespace quor {

// The operating system's language. Asked only when the file has none.
class ISystemLanguage {
 public:
  // kEnglish, kFrench or kSpanish.
  virtual int32_t LanguageNumber() = 0;

 protected:
  ~ISystemLanguage() = default;
};

// The language number for a Windows language id, by its low byte: 0x040C, French, gives kFrench.
// kEnglish for any other language.
int32_t LanguageNumberFromId(uint16_t languageId) noexcept;

// Errors found while reading. They are logged afterwards, because the document itself switches the
// log on.
struct DocumentFindings {
  std::optional<int32_t> illegalLanguage;  // a "LanguageNo" above 2, read as English
};

// Reads the values of the document below `root` into `configuration`. A missing section or element
// leaves its value unchanged, and so does a toolbar element without any field. The sections of a
// list replace the whole list; surplus entries and the surplus end of a text (entry_text.h) are
// dropped.
//
// An element without text, or with only blanks for a number, gives the default.
DocumentFindings ReadConfiguration(const XmlElement& root, ISystemLanguage& systemLanguage,
                                   Configuration& configuration);

// Writes the whole document, "Root" with its five sections. Texts must be storable (entry_text.h).
XmlElement WriteConfiguration(const Configuration& configuration);

// Converts like C's atoi: blanks, a sign, digits; the rest is ignored and no digits give 0. Clamps
// to the range of int32_t. " -12ab" gives -12.
int32_t NumberFromText(std::wstring_view text) noexcept;

}  // namespace quor

#endif
