#ifndef QUOR_TELEPHONE_WITHHELD_CALLER_H
#define QUOR_TELEPHONE_WITHHELD_CALLER_H

#include <cstdint>

namespace quor {

// The reason for a caller's missing number or name, as a string number for the caller window.
//
// The base sends a 4-bit code each for number and name. No manual of the base defines the codes;
// they are assumed to count along the texts 1400 to 1409:
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
// Code 0 gives no reason. If the call is flagged as long distance, 1400 "Long distance" is used
// instead.
int WithheldNumberText(uint8_t noNum, bool longDistance) noexcept;
int WithheldNameText(uint8_t noName, bool longDistance) noexcept;

}  // namespace quor

#endif
