#include <windows.h>

#include "text/ansi.h"

namespace quor {

std::string AnsiFromWide(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(GetACP(), 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(GetACP(), 0, text.data(), length, result.data(), size, nullptr, nullptr);
  return result;
}

std::wstring WideFromAnsi(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(GetACP(), 0, text.data(), length, nullptr, 0);
  std::wstring result(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(GetACP(), 0, text.data(), length, result.data(), size);
  return result;
}

}  // namespace quor
