#include "telephone/number_check.h"

#include <algorithm>

#include "telephone/string_ids.h"
#include "text/dial_chars.h"

namespace quor {

int NumberRefusal(std::string_view number) noexcept {
  if (number.size() > kDialNumberLimit) return kTextInvalidNumber;
  return std::ranges::all_of(number, IsDialChar) ? kNoText : kTextInvalidCharacters;
}

}  // namespace quor
