#ifndef QUOR_TELEPHONE_NUMBER_CHECK_H
#define QUOR_TELEPHONE_NUMBER_CHECK_H

#include <cstddef>
#include <string_view>

namespace quor {

// A dialled number is at most this long and made of dial characters only (text/dial_chars.h).
inline constexpr size_t kDialNumberLimit = 24;

// Whether a number, in the ANSI code page, can be dialled as it stands: IDS_NONE when it can,
// otherwise the message that says why not (resources/resource_ids.h). An empty one passes.
int NumberRefusal(std::string_view number) noexcept;

}  // namespace quor

#endif
