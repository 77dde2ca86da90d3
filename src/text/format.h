#ifndef QUOR_TEXT_FORMAT_H
#define QUOR_TEXT_FORMAT_H

#include <cstdarg>
#include <string>

namespace quor {

// Formats like printf into a string. Use integer and string conversions only; they behave the same
// in every C library.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);
std::string FormatArguments(const char* format, va_list arguments);

// The number in decimal.
std::wstring DecimalText(long long number);

}  // namespace quor

#endif
