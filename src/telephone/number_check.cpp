#include "telephone/number_check.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "text/dial_chars.h"

namespace quor {

int NumberRefusal(std::string_view number) noexcept {
  if (number.size() > kDialNumberLimit) return IDS_INVALID_NUMBER;
  return std::ranges::all_of(number, IsDialChar) ? IDS_NONE : IDS_INVALID_CHARACTERS;
}

}  // namespace quor
