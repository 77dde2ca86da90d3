#ifndef QUOR_TEXT_FORMAT_H
#define QUOR_TEXT_FORMAT_H

#include <cstdarg>
#include <string>

namespace quor {

// printf-style formatting into a string. Only integer and string conversions are used here; they
// mean the same to every C library.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);
std::string FormatArguments(const char* format, va_list arguments);

// A number in decimal.
std::wstring DecimalText(long long number);

}  // namespace quor

#endif
