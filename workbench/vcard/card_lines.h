#ifndef QUOR_WORKBENCH_VCARD_CARD_LINES_H
#define QUOR_WORKBENCH_VCARD_CARD_LINES_H

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quor::workbench {

// One property of a card: GROUP.NAME;PARAMETER=VALUE,VALUE:VALUE
struct CardProperty {
  int line = 0;      // first line
  std::string name;  // upper case, without the group
  std::vector<std::pair<std::string, std::string>>
      parameters;     // names in upper case; a bare "WORK" is TYPE
  std::string value;  // still escaped
};

// Splits a text into logical lines; continuation lines begin with a blank or a tab.
class CCardLines {
 public:
  explicit CCardLines(std::string_view text);
  bool Next(std::string& line, int& number);  // false at the end; skips blank lines

 private:
  bool NextPhysical(std::string_view& line);

  std::string_view m_rest;
  int m_number = 0;
};

// False if the line has no name or no colon, or a quoted parameter value does not end.
bool ParseProperty(std::string_view line, CardProperty& property);

// Decodes \n, \, \; and \\ in a single text.
std::string UnescapedText(std::string_view value);

// The decoded parts of a structured value, which are separated by unescaped semicolons.
std::vector<std::string> StructuredText(std::string_view value);

bool IsUtf8(std::string_view text) noexcept;
std::string UpperAscii(std::string_view text);

}  // namespace quor::workbench

#endif
