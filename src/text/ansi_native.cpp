// Code page 1252 for builds without Windows, so that tests use a real single-byte code page with
// its unassigned codes.
#include <array>

#include "text/ansi.h"

namespace quor {
namespace {

constexpr std::array<wchar_t, 32> kUpperControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

wchar_t WideCharacter(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : static_cast<wchar_t>(byte);
}

char AnsiCharacter(wchar_t character) {
  for (int byte = 0; byte < 256; ++byte) {
    if (WideCharacter(static_cast<unsigned char>(byte)) == character) {
      return static_cast<char>(byte);
    }
  }
  return '?';
}

}  // namespace

std::string AnsiFromWide(std::wstring_view text) {
  std::string result;
  AnsiFromWide(text, result);
  return result;
}

void AnsiFromWide(std::wstring_view text, std::string& result) {
  result.clear();
  for (const wchar_t character : text) {
    result.push_back(AnsiCharacter(character));
  }
}

std::wstring WideFromAnsi(std::string_view text) {
  std::wstring result;
  result.reserve(text.size());
  for (const char character : text) {
    result.push_back(WideCharacter(static_cast<unsigned char>(character)));
  }
  return result;
}

}  // namespace quor
