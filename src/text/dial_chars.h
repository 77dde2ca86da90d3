#ifndef QUOR_TEXT_DIAL_CHARS_H
#define QUOR_TEXT_DIAL_CHARS_H

#include <string>
#include <string_view>

namespace quor {

// The dial characters in ASCII order: digits, "#", "*", and "F", "f" (flash), "P", "p" (pause).
constexpr std::string_view kDialChars = "#*0123456789FPfp";

// The character's index in kDialChars, 0 to 15; -1 if it is not a dial character.
int DialCharPlace(char character) noexcept;

bool IsDialChar(char character) noexcept;
bool IsPauseChar(char character) noexcept;  // F, f, P, p

// Returns the dial characters in order and drops all others: "+49 30-5" gives "49305". Empties the
// source: a dial string is used once.
std::string FilterDialChars(std::string& source);
// The same for a written number, which stays as it is. Converts through the ANSI code page, which
// turns full-width digits into ordinary ones where it can.
std::wstring FilterDialChars(std::wstring_view written);

// Drops the punctuation of written numbers: blanks of any width, "+", hyphens, brackets, dots,
// slashes, and invisible marks that copying adds. "+49 (30) 555-0199" gives "49305550199". Keeps
// any other character.
std::wstring WithoutNumberPunctuation(std::wstring_view written);

// Drops pause and flash characters: "123P45" gives "12345".
std::string RemovePauseChars(std::string_view number);

// Changes "f" to "F" and "p" to "P".
std::string UpperPauseChars(std::string_view number);

}  // namespace quor

#endif
