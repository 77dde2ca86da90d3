#ifndef QUOR_TEXT_DIAL_CHARS_H
#define QUOR_TEXT_DIAL_CHARS_H

#include <string>
#include <string_view>

namespace quor {

// The alphabet of dial strings in the order of its bytes: digits, "#", "*", and "F", "f" (flash),
// "P", "p" (pause).
constexpr std::string_view kDialChars = "#*0123456789FPfp";

// The character's place in the alphabet, 0 to 15; -1 if it is not a dial character.
int DialCharPlace(char character) noexcept;

bool IsDialChar(char character) noexcept;
bool IsPauseChar(char character) noexcept;  // F, f, P, p

// Keeps the dial characters in their order and drops everything else. The source is emptied: a dial
// string is consumed by the filter, as it is by the call request.
std::string FilterDialChars(std::string& source);

// Drops what numbers are written with besides their digits: blanks of any width, "+", hyphens,
// brackets, dots, slashes, and the invisible marks that come along when a number is copied.
// "+49 (30) 555-0199" gives "49305550199"; what is no part of a number stays.
std::wstring WithoutNumberPunctuation(std::wstring_view written);

// Drops the pause and flash characters.
std::string RemovePauseChars(std::string_view number);

// Turns "f" into "F" and "p" into "P".
std::string UpperPauseChars(std::string_view number);

}  // namespace quor

#endif
