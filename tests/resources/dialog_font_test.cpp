#include "resources/dialog_font.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>

namespace quor {
namespace {

using Template = std::vector<std::byte>;

void Words(Template& bytes, std::initializer_list<uint16_t> words) {
  for (const uint16_t word : words) {
    bytes.resize(bytes.size() + sizeof word);
    std::memcpy(bytes.data() + bytes.size() - sizeof word, &word, sizeof word);
  }
}

void Text(Template& bytes, std::u16string_view text) {
  for (const char16_t unit : text)
    Words(bytes, {unit});
  Words(bytes, {0});
}

constexpr uint16_t kSetFont = 0x40;

// A dialog with one item of arbitrary bytes. Its class is a name or an ordinal.
Template Dialog(const DialogFont& font, bool classIsOrdinal, uint16_t style = kSetFont,
                uint16_t signature = 0xFFFF) {
  Template bytes;
  Words(bytes, {1, signature, 0, 0, 0, 0, style, 0x80C8, 1, 0, 0, 190, 78});
  Text(bytes, u"");
  if (classIsOrdinal) {
    Words(bytes, {0xFFFF, 0x8002});
  } else {
    Text(bytes, u"Class");
  }
  Text(bytes, u"Téléphone");
  Words(bytes, {font.points, font.weight,
                static_cast<uint16_t>(font.charset << 8 | static_cast<int>(font.italic))});
  Text(bytes, font.face);
  if (bytes.size() % 4 != 0) Words(bytes, {0});
  Words(bytes, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0xFFFF, 0x0080, 0, 0});
  return bytes;
}

// Font names of even and odd length, longer and shorter than the original: the items move with the
// font and stay aligned.
TEST(DialogFont, OnlyTheFontChanges) {
  const DialogFont fonts[] = {{8, 400, false, 1, u"MS Shell Dlg"},
                              {9, 400, false, 0, u"Segoe UI"},
                              {14, 700, true, 128, u"Meiryo UI Bold"},
                              {7, 400, false, 1, u"A"}};
  for (const bool ordinal : {false, true}) {
    for (const DialogFont& from : fonts) {
      for (const DialogFont& to : fonts)
        EXPECT_EQ(WithFont(Dialog(from, ordinal), to), Dialog(to, ordinal));
    }
  }
}

TEST(DialogFont, OtherBytesStayAsTheyAre) {
  const DialogFont shell = {8, 400, false, 1, u"MS Shell Dlg"};
  const DialogFont segoe = {9, 400, false, 0, u"Segoe UI"};
  const Template whole = Dialog(shell, false);
  const size_t fontEnd = whole.size() - 32;
  for (size_t size = 0; size < fontEnd - 4; ++size) {
    const Template cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(WithFont(cut, segoe), cut) << size;
  }
  for (const Template& other : {Dialog(shell, false, 0), Dialog(shell, false, kSetFont, 0)})
    EXPECT_EQ(WithFont(other, segoe), other);
}

}  // namespace
}  // namespace quor
