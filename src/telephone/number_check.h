#ifndef QUOR_TELEPHONE_NUMBER_CHECK_H
#define QUOR_TELEPHONE_NUMBER_CHECK_H

#include <cstddef>
#include <string_view>

namespace quor {

// Longest number that can be dialled. All its characters must be dial characters
// (text/dial_chars.h).
inline constexpr size_t kDialNumberLimit = 24;

// Checks whether a number in the ANSI code page can be dialled: returns IDS_NONE if it can,
// otherwise the string number of the reason (resources/resource_ids.h). An empty number passes.
int NumberRefusal(std::string_view number) noexcept;

}  // namespace quor

#endif
