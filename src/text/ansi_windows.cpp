#include <windows.h>

#include <algorithm>

#include "text/ansi.h"

namespace quor {
namespace {

// Most names and numbers are shorter and need no measuring call.
constexpr size_t kShortLength = 64;

// ASCII is the same in every ANSI code page.
bool IsAscii(std::wstring_view text) noexcept {
  unsigned bits = 0;
  for (const wchar_t character : text) {
    bits |= character;
  }
  return bits < 0x80;
}

}  // namespace

std::string AnsiFromWide(std::wstring_view text) {
  std::string result;
  AnsiFromWide(text, result);
  return result;
}

void AnsiFromWide(std::wstring_view text, std::string& result) {
  if (IsAscii(text)) {
    result.resize(text.size());
    std::transform(text.begin(), text.end(), result.begin(),
                   [](wchar_t character) { return static_cast<char>(character); });
    return;
  }
  const int length = static_cast<int>(text.size());
  // No code page uses more than four bytes for a UTF-16 unit.
  char shortText[4 * kShortLength];
  if (text.size() <= kShortLength) {
    const int written = WideCharToMultiByte(GetACP(), 0, text.data(), length, shortText,
                                            static_cast<int>(sizeof(shortText)), nullptr, nullptr);
    result.assign(shortText, static_cast<size_t>(written));
    return;
  }
  const int size =
      WideCharToMultiByte(GetACP(), 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  result.resize(static_cast<size_t>(size));
  WideCharToMultiByte(GetACP(), 0, text.data(), length, result.data(), size, nullptr, nullptr);
}

std::wstring WideFromAnsi(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(GetACP(), 0, text.data(), length, nullptr, 0);
  std::wstring result(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(GetACP(), 0, text.data(), length, result.data(), size);
  return result;
}

}  // namespace quor
