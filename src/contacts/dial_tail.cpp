#include "contacts/dial_tail.h"

#include <array>

namespace quor {
namespace {

constexpr std::string_view kAlphabet = "#*0123456789FPfp";
constexpr uint8_t kNoSymbol = 0xFF;

constexpr std::array<uint8_t, 256> MakeSymbolTable() {
  std::array<uint8_t, 256> table{};
  table.fill(kNoSymbol);
  for (size_t symbol = 0; symbol < kAlphabet.size(); ++symbol) {
    table[static_cast<unsigned char>(kAlphabet[symbol])] = static_cast<uint8_t>(symbol);
  }
  return table;
}

constexpr std::array<uint8_t, 256> kSymbolOf = MakeSymbolTable();

}  // namespace

bool PackSymbols(std::string_view text, DialTail& tail) noexcept {
  if (text.size() > DialTail::kMaxLength) return false;
  uint64_t symbols = 0;
  for (const char character : text) {
    const unsigned symbol = kSymbolOf[static_cast<unsigned char>(character)];
    if (symbol == kNoSymbol) return false;
    symbols = (symbols << 4) | symbol;
  }
  tail = {symbols, static_cast<unsigned>(text.size())};
  return true;
}

std::string UnpackDialTail(const DialTail& tail) {
  std::string text(tail.length, '\0');
  uint64_t symbols = tail.symbols;
  for (size_t i = text.size(); i > 0; --i, symbols >>= 4) {
    text[i - 1] = kAlphabet[symbols & 0xF];
  }
  return text;
}

DialTail WithoutPauses(const DialTail& tail) noexcept {
  DialTail result;
  for (unsigned i = 0; i < tail.length; ++i) {
    const uint64_t symbol = (tail.symbols >> (4 * i)) & 0xF;
    if (symbol < 12) {
      result.symbols |= symbol << (4 * result.length++);
    }
  }
  return result;
}

// F and P are 12 and 13, f and p two more.
DialTail WithUpperPauses(const DialTail& tail) noexcept {
  return {tail.symbols & ~(PauseMarks(tail) >> 2), tail.length};
}

uint64_t SymbolsBackwards(const DialTail& tail) noexcept {
  uint64_t backwards = 0;
  for (unsigned i = 0; i < DialTail::kMaxLength; ++i) {
    backwards = (backwards << 4) | ((tail.symbols >> (4 * i)) & 0xF);
  }
  return backwards;
}

}  // namespace quor
