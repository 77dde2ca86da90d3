#include "text/format.h"

#include <cstdio>

namespace quor {

std::string FormatArguments(const char* format, va_list arguments) {
  va_list measured;
  va_copy(measured, arguments);
#ifdef _WIN32
  // Use the system's C library: mingw's replacement supports every floating-point format and adds
  // 40 KB.
  const int length = _vscprintf(format, measured);
#else
  const int length = std::vsnprintf(nullptr, 0, format, measured);
#endif
  va_end(measured);
  if (length <= 0) {
    return {};
  }
  std::string result(static_cast<size_t>(length), '\0');
#ifdef _WIN32
  _vsnprintf(result.data(), result.size() + 1, format, arguments);
#else
  std::vsnprintf(result.data(), result.size() + 1, format, arguments);
#endif
  return result;
}

std::string Format(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::string result = FormatArguments(format, arguments);
  va_end(arguments);
  return result;
}

std::wstring DecimalText(long long number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::wstring InsertTexts(std::wstring pattern, std::initializer_list<std::wstring> texts) {
  wchar_t number = L'1';
  for (const std::wstring& text : texts) {
    const size_t at = pattern.find(std::wstring{L'%', number++});
    if (at != std::wstring::npos) pattern.replace(at, 2, text);
  }
  return pattern;
}

}  // namespace quor
