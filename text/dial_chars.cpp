#include "text/dial_chars.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quor {

bool IsPauseChar(char character) noexcept {
  return character == 'F' || character == 'f' || character == 'P' || character == 'p';
}

bool IsDialChar(char character) noexcept {
  return (character >= '0' && character <= '9') || character == '#' || character == '*' ||
         IsPauseChar(character);
}

std::string FilterDialChars(std::string& source) {
  std::string result = std::exchange(source, std::string());
  std::erase_if(result, [](char character) { return !IsDialChar(character); });
  return result;
}

std::string RemovePauseChars(std::string_view number) {
  std::string result(number);
  std::erase_if(result, IsPauseChar);
  return result;
}

std::string UpperPauseChars(std::string_view number) {
  std::string result(number);
  std::replace(result.begin(), result.end(), 'f', 'F');
  std::replace(result.begin(), result.end(), 'p', 'P');
  return result;
}

}  // namespace quor
