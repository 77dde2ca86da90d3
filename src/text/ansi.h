#ifndef QUOR_TEXT_ANSI_H
#define QUOR_TEXT_ANSI_H

#include <string>
#include <string_view>

namespace quor {

// Text is UTF-16 at COM and in the configuration, and in the process's ANSI code page (GetACP) in
// the device records, the index and the log. These two are the only conversions between them.
//
// A character that the code page lacks becomes its replacement ("?"); nothing fails. Embedded NULs
// are converted like any other character.
std::string AnsiFromWide(std::wstring_view text);
// The same into a string that keeps its memory, for many texts one after the other.
void AnsiFromWide(std::wstring_view text, std::string& result);
std::wstring WideFromAnsi(std::string_view text);

}  // namespace quor

#endif
