#include "text/dial_chars.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

TEST(DialChars, AreTheseSixteen) {
  int known = 0;
  for (int byte = 0; byte < 256; ++byte) {
    const auto character = static_cast<char>(byte);
    if (!IsDialChar(character)) continue;
    EXPECT_EQ(kDialChars.at(static_cast<size_t>(DialCharPlace(character))), character);
    ++known;
  }
  EXPECT_EQ(known, 16);
  EXPECT_EQ(DialCharPlace('G'), -1);
  EXPECT_TRUE(IsPauseChar('f') && IsPauseChar('P') && !IsPauseChar('#'));
}

TEST(DialChars, FiltersTellWhatStays) {
  std::string source = "+49 30-5*#pF";
  EXPECT_EQ(FilterDialChars(source), "49305*#pF");
  EXPECT_EQ(source, "");
  EXPECT_EQ(RemovePauseChars("f1P2p3F"), "123");
  EXPECT_EQ(UpperPauseChars("f1p2#"), "F1P2#");
  EXPECT_EQ(WithoutNumberPunctuation(L"+49 (30)\u00A0555-01.9/9\u200E"), L"49305550199");
  EXPECT_EQ(WithoutNumberPunctuation(L"ask Mary, 5"), L"askMary,5");
}

}  // namespace
}  // namespace quor
