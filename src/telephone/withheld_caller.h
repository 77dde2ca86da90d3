#ifndef QUOR_TELEPHONE_WITHHELD_CALLER_H
#define QUOR_TELEPHONE_WITHHELD_CALLER_H

#include <cstdint>

namespace quor {

// Why a caller's number or name is missing, as the number of a string for the caller window.
//
// The base gives one 4-bit code each for number and name. No manual of the base says what they
// mean; they are read as counting along the texts 1400 to 1409:
//
//   code      number missing               name missing
//   0         1406 "Unavailable No."       1405 "Unavailable Name"
//   1         1401 "Private caller"        the same
//   2         1402 "Out of area"           the same
//   3         1403 "Pay Phone"             the same
//   4         1404 "International"         the same
//   5, 6      as 0                         as 0
//   7         1407 "Unavailable Name && No."
//   8         1408 "Coin Phone"
//   9 to 15   1409 "Unknown"
//
// Where the code gives no reason (0) but the call is flagged as long distance, that is all there is
// to tell: 1400 "Long distance".
int WithheldNumberText(uint8_t noNum, bool longDistance) noexcept;
int WithheldNameText(uint8_t noName, bool longDistance) noexcept;

}  // namespace quor

#endif
