#ifndef QUOR_TEXT_ANSI_H
#define QUOR_TEXT_ANSI_H

#include <string>
#include <string_view>

namespace quor {

// The only conversions between UTF-16 and the process's ANSI code page (GetACP). COM and the
// configuration use UTF-16; the device records, the index and the log use ANSI.
//
// A character outside the code page becomes the replacement character "?"; nothing fails. Embedded
// NULs are converted like any other character.
std::string AnsiFromWide(std::wstring_view text);
// The same; `result` keeps its memory when many texts are converted in turn.
void AnsiFromWide(std::wstring_view text, std::string& result);
std::wstring WideFromAnsi(std::string_view text);

}  // namespace quor

#endif
