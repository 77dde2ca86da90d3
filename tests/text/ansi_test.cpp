#include "text/ansi.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

// Code page 1252, the tests' own.
TEST(Ansi, EveryCharacterOfTheCodePageComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte)
    all += static_cast<char>(byte);
  const std::wstring wide = WideFromAnsi(all);
  ASSERT_EQ(wide.size(), 256u);
  EXPECT_EQ(wide[0x80], L'\u20AC');
  EXPECT_EQ(wide[0xE9], L'\u00E9');
  EXPECT_EQ(AnsiFromWide(wide), all);
}

TEST(Ansi, OtherCharactersBecomeQuestionMarks) {
  EXPECT_EQ(AnsiFromWide(L"\u041F\u5BA2 1"), "?? 1");
  const std::wstring face = {wchar_t{0xD83D}, wchar_t{0xDE00}, wchar_t{0xDE00}};
  EXPECT_EQ(AnsiFromWide(face).find_first_not_of('?'), std::string::npos);
}

TEST(Ansi, AResultIsReplacedAndMayBeEmpty) {
  std::string result = "what was there before";
  AnsiFromWide(std::wstring_view(L"a\0b", 3), result);
  EXPECT_EQ(result, std::string("a\0b", 3));
  AnsiFromWide(L"", result);
  EXPECT_EQ(result, "");
  EXPECT_EQ(WideFromAnsi(""), L"");
}

}  // namespace
}  // namespace quor
