#include "contacts/dial_tail.h"

#include "text/dial_chars.h"

namespace quor {

std::optional<DialTail> PackDialTail(std::string_view text) noexcept {
  if (text.size() > DialTail::kMaxLength) return std::nullopt;
  DialTail tail{0, static_cast<unsigned>(text.size())};
  for (const char character : text) {
    const int symbol = DialCharPlace(character);
    if (symbol < 0) return std::nullopt;
    tail.symbols = tail.symbols << 4 | static_cast<unsigned>(symbol);
  }
  return tail;
}

std::string UnpackDialTail(const DialTail& tail) {
  std::string text(tail.length, '\0');
  for (unsigned i = 0; i < tail.length; ++i) {
    text[tail.length - 1 - i] = kDialChars[tail.symbols >> (4 * i) & 0xF];
  }
  return text;
}

DialTail FoldPauseChars(const DialTail& tail, bool check) {
  const std::string text = UnpackDialTail(tail);
  return *PackDialTail(check ? RemovePauseChars(text) : UpperPauseChars(text));
}

}  // namespace quor
