// Packed tails behave like their texts.
#include <fuzzer/FuzzedDataProvider.h>

#include "contacts/dial_tail.h"
#include "fuzz/require.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

bool IsTail(std::string_view text) {
  return text.size() <= DialTail::kMaxLength &&
         text.find_first_not_of(kDialChars) == std::string_view::npos;
}

size_t SharedEnding(std::string_view left, std::string_view right) {
  size_t shared = 0;
  while (shared < left.size() && shared < right.size() &&
         left[left.size() - 1 - shared] == right[right.size() - 1 - shared]) {
    ++shared;
  }
  return shared;
}

// Most inputs are nearly dial strings, so that long common tails are frequent.
std::string NextText(FuzzedDataProvider& input) {
  std::string text = input.ConsumeRandomLengthString(14);
  if (!input.ConsumeBool()) return text;
  for (char& character : text)
    character = kDialChars[static_cast<unsigned char>(character) % kDialChars.size()];
  return text;
}

void CheckAlone(const std::string& text, const DialTail& tail, unsigned length) {
  Require(UnpackDialTail(tail) == text);
  Require(UnpackDialTail(LastSymbols(tail, length)) == LastCharacters(text, length));
  Require(UnpackDialTail(FoldPauses(tail, true)) == RemovePauseChars(text));
  Require(UnpackDialTail(FoldPauses(tail, false)) == UpperPauseChars(text));
}

}  // namespace
}  // namespace quor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace quor;
  FuzzedDataProvider input(data, size);
  const std::string texts[] = {NextText(input), NextText(input)};
  const std::optional<DialTail> tails[] = {PackDialTail(texts[0]), PackDialTail(texts[1])};
  const unsigned length = input.ConsumeIntegralInRange<unsigned>(0, 13);
  for (int i = 0; i < 2; ++i) {
    Require(tails[i].has_value() == IsTail(texts[i]));
    if (tails[i]) CheckAlone(texts[i], *tails[i], length);
  }
  if (!tails[0] || !tails[1]) return 0;
  Require(CommonEnding(*tails[0], *tails[1]) == SharedEnding(texts[0], texts[1]));
  Require((*tails[0] == *tails[1]) == (texts[0] == texts[1]));
  if (texts[0].size() == texts[1].size()) {
    Require((tails[0]->symbols < tails[1]->symbols) == (texts[0] < texts[1]));
  }
  return 0;
}
