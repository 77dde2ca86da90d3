// Any bytes as an address book: the result must satisfy the reader's contract.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>

#include "workbench/vcard/card_lines.h"
#include "workbench/vcard/vcard.h"

namespace {

void Check(bool held) {
  if (!held) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace quor::workbench;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const CardFile file = ReadCards(text);
  Check(file.errors.size() <= 100);
  for (const CardError& error : file.errors)
    Check(error.line > 0);
  int line = 0;
  for (const Card& card : file.cards) {
    Check(card.line > line);
    line = card.line;
    Check(IsUtf8(card.fullName) && IsUtf8(card.fileAs) && IsUtf8(card.note));
    std::set<NumberKind> kinds;
    for (const CardNumber& number : card.numbers) {
      Check(kinds.insert(number.kind).second);
      Check(!number.number.empty() && IsUtf8(number.number));
    }
  }
  return 0;
}
