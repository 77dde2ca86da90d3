#ifndef QUOR_TEXT_FORMAT_H
#define QUOR_TEXT_FORMAT_H

#include <cstdarg>
#include <initializer_list>
#include <string>

namespace quor {

// Formats like printf into a string. Use integer and string conversions only; they behave the same
// in every C library.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);
std::string FormatArguments(const char* format, va_list arguments);

// The number in decimal.
std::wstring DecimalText(long long number);

// The pattern with the first "%1" replaced by the first text, and so on. Only the last text may
// contain such a mark itself.
std::wstring InsertTexts(std::wstring pattern, std::initializer_list<std::wstring> texts);

}  // namespace quor

#endif
