#ifndef QUOR_SETTINGS_CONFIGURATION_DOCUMENT_H
#define QUOR_SETTINGS_CONFIGURATION_DOCUMENT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "settings/configuration.h"
#include "settings/xml_element.h"

namespace quor {

// The language of the operating system, asked for only when the file names none.
class ISystemLanguage {
 public:
  // kEnglish, kFrench or kSpanish.
  virtual int32_t LanguageNumber() = 0;

 protected:
  ~ISystemLanguage() = default;
};

// The language number for a Windows language id, whose low byte names the language. English for the
// languages we do not have.
int32_t LanguageNumberFromId(uint16_t languageId) noexcept;

// What reading found out of order. The log is opened only by what is read, so this is said later.
struct DocumentFindings {
  std::optional<int32_t> illegalLanguage;  // a "LanguageNo" above 2, read as English
};

// Takes over what the document below `root` holds. What the document does not mention stays as it
// is: a missing section, a missing element. The sections of a list replace it together, and entries
// past the limit are dropped, as is what a text has past its own (entry_text.h); a toolbar element
// without any field leaves its record alone.
//
// An element without text, or with blanks only where a number belongs, takes its default.
DocumentFindings ReadConfiguration(const XmlElement& root, ISystemLanguage& systemLanguage,
                                   Configuration& configuration);

// The whole document, "Root" with its five sections. Its texts are storable ones (entry_text.h).
XmlElement WriteConfiguration(const Configuration& configuration);

// A number as C's atoi reads it: blanks, a sign, digits; what follows is ignored and no digits give
// 0. Beyond int32_t it stays at the limit.
int32_t NumberFromText(std::wstring_view text) noexcept;

}  // namespace quor

#endif
