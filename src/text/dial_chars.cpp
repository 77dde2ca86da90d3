#include "text/dial_chars.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "text/ansi.h"

namespace quor {
namespace {

constexpr std::array<int8_t, 256> MakePlaces() {
  std::array<int8_t, 256> places{};
  places.fill(-1);
  for (size_t place = 0; place < kDialChars.size(); ++place) {
    places[static_cast<unsigned char>(kDialChars[place])] = static_cast<int8_t>(place);
  }
  return places;
}

constexpr std::array<int8_t, 256> kPlaces = MakePlaces();

bool IsNumberPunctuation(wchar_t character) noexcept {
  constexpr std::wstring_view kPunctuation = L" \t+-()[]/.\u00a0\u00ad\u202f\u2212\u2060\ufeff";
  const bool isSpaceMarkOrHyphen = character >= 0x2000 && character <= 0x2015;
  const bool isDirectionMark = character >= 0x202a && character <= 0x202e;
  const bool isIsolateMark = character >= 0x2066 && character <= 0x2069;
  return isSpaceMarkOrHyphen || isDirectionMark || isIsolateMark ||
         kPunctuation.find(character) != std::wstring_view::npos;
}

}  // namespace

int DialCharPlace(char character) noexcept {
  return kPlaces[static_cast<unsigned char>(character)];
}

bool IsPauseChar(char character) noexcept {
  return character == 'F' || character == 'f' || character == 'P' || character == 'p';
}

bool IsDialChar(char character) noexcept {
  return DialCharPlace(character) >= 0;
}

std::string FilterDialChars(std::string& source) {
  std::string result = std::exchange(source, std::string());
  // Branch-free, because the positions of punctuation in numbers are unpredictable.
  size_t kept = 0;
  for (const char character : result) {
    result[kept] = character;
    kept += IsDialChar(character) ? 1U : 0U;
  }
  result.resize(kept);
  return result;
}

std::wstring FilterDialChars(std::wstring_view written) {
  std::string number = AnsiFromWide(written);
  return WideFromAnsi(FilterDialChars(number));
}

std::wstring WithoutNumberPunctuation(std::wstring_view written) {
  std::wstring result(written);
  std::erase_if(result, IsNumberPunctuation);
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
