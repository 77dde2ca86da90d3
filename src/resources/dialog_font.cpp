#include "resources/dialog_font.h"

#include <cstring>
#include <optional>

namespace quor {
namespace {

using Bytes = std::span<const std::byte>;

// DLGTEMPLATEEX: version, signature, help id, extended style, style, item count, four coordinates;
// then menu, class and title, each a text or an ordinal; then, with DS_SETFONT, the font; then the
// items, each aligned to 4 bytes.
constexpr size_t kStyleOffset = 12;
constexpr size_t kHeaderSize = 26;
constexpr uint32_t kExtendedMark = 0xFFFF0001;  // version 1 and signature
constexpr uint32_t kSetFont = 0x40;             // DS_SETFONT
constexpr uint16_t kOrdinalFollows = 0xFFFF;
constexpr size_t kItemAlignment = 4;

struct FontPlace {
  size_t begin = 0;
  size_t end = 0;  // unaligned
};

template <typename Number>
std::optional<Number> Read(Bytes bytes, size_t at) {
  Number number = 0;
  if (at > bytes.size() || bytes.size() - at < sizeof number) return std::nullopt;
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

// The end of the text that begins at `at`, after its NUL.
std::optional<size_t> EndOfText(Bytes bytes, size_t at) {
  for (;; at += sizeof(char16_t)) {
    const std::optional<uint16_t> unit = Read<uint16_t>(bytes, at);
    if (!unit) return std::nullopt;
    if (*unit == 0) return at + sizeof(char16_t);
  }
}

std::optional<size_t> EndOfTextOrOrdinal(Bytes bytes, size_t at) {
  if (Read<uint16_t>(bytes, at) == kOrdinalFollows) return at + 2 * sizeof(uint16_t);
  return EndOfText(bytes, at);
}

std::optional<FontPlace> FindFont(Bytes dialog) {
  if (Read<uint32_t>(dialog, 0) != kExtendedMark) return std::nullopt;
  const std::optional<uint32_t> style = Read<uint32_t>(dialog, kStyleOffset);
  if (!style || (*style & kSetFont) == 0) return std::nullopt;
  std::optional<size_t> at = kHeaderSize;
  for (int text = 0; text < 3 && at; ++text)
    at = EndOfTextOrOrdinal(dialog, *at);
  if (!at) return std::nullopt;
  constexpr size_t kSizeWeightItalicCharset = 6;
  const std::optional<size_t> end = EndOfText(dialog, *at + kSizeWeightItalicCharset);
  if (!end) return std::nullopt;
  return FontPlace{*at, *end};
}

size_t AlignedForItems(size_t at) {
  return (at + kItemAlignment - 1) / kItemAlignment * kItemAlignment;
}

template <typename Number>
void Append(std::vector<std::byte>& bytes, Number number) {
  const size_t at = bytes.size();
  bytes.resize(at + sizeof number);
  std::memcpy(bytes.data() + at, &number, sizeof number);
}

}  // namespace

std::vector<std::byte> WithFont(std::span<const std::byte> dialog, const DialogFont& font) {
  const std::optional<FontPlace> place = FindFont(dialog);
  if (!place) return {dialog.begin(), dialog.end()};
  const Bytes head = dialog.first(place->begin);
  std::vector<std::byte> result(head.begin(), head.end());
  Append(result, font.points);
  Append(result, font.weight);
  Append(result, static_cast<uint8_t>(font.italic));
  Append(result, font.charset);
  for (const char16_t unit : font.face)
    Append(result, unit);
  Append(result, u'\0');
  if (const size_t items = AlignedForItems(place->end); items < dialog.size()) {
    result.resize(AlignedForItems(result.size()));
    result.insert(result.end(), dialog.begin() + static_cast<std::ptrdiff_t>(items), dialog.end());
  }
  return result;
}

}  // namespace quor
