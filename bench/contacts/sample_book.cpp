#include "bench/contacts/sample_book.h"

#include <array>
#include <random>

namespace quor {
namespace {

constexpr size_t kNumberLength = 12;
constexpr size_t kReservedPlace = kNumberLength - 5;

std::string RandomNumber(std::mt19937& random, bool isInBook) {
  std::string number = "49";
  number.push_back(static_cast<char>('1' + random() % 9));
  while (number.size() < kNumberLength) {
    number.push_back(static_cast<char>('0' + random() % 10));
  }
  char& reserved = number[kReservedPlace];
  if (!isInBook) {
    reserved = '7';
  } else if (reserved == '7') {
    reserved = '8';
  }
  return number;
}

// The entry IDs of one store share a long prefix.
std::string RandomEntryId(std::mt19937& random) {
  std::string entryId =
      "000000001A447390AA6611CD9BC800AA002FC45A0700"
      "5F4D0C2B9E7A3841A6D2C81E4FB3970500000000010E0000";
  while (entryId.size() < 140) {
    entryId.push_back("0123456789ABCDEF"[random() % 16]);
  }
  return entryId;
}

std::string AsDelivered(const std::string& stored, size_t form) {
  switch (form % 3) {
    case 0:
      return stored;
    case 1:
      return "0" + stored.substr(2);
    default:
      return "00" + stored;
  }
}

}  // namespace

bool CSampleContact::ReadEntryId(std::string& entryId) {
  entryId = m_entryId;
  return true;
}

bool CSampleContact::ReadFileAs(std::string& fileAs) {
  fileAs = "Doe, Jane";
  return true;
}

bool CSampleContact::ReadTelNumber(int telNumberType, std::string& number) {
  number.clear();
  for (size_t i = 0; i < m_numbers.size(); ++i) {
    if (TypeOf(i) == telNumberType) number = m_numbers[i];
  }
  return true;
}

// Business, home and mobile first; a contact with twelve numbers has one of each type.
int CSampleContact::TypeOf(size_t number) const {
  constexpr std::array<int, 12> kTypes = {2, 7, 10, 1, 3, 4, 5, 6, 8, 9, 11, 12};
  return kTypes.at(number);
}

SampleBook MakeSampleBook(size_t contacts, size_t numbersEach, Pauses pauses) {
  std::mt19937 random(static_cast<unsigned>(contacts * 16 + numbersEach));
  SampleBook book;
  book.reserve(contacts);
  while (book.size() < contacts) {
    std::vector<std::string> numbers(numbersEach);
    for (std::string& number : numbers) {
      number = RandomNumber(random, true);
      if (pauses == Pauses::OneInTwenty && random() % 20 == 0) {
        number.insert(kNumberLength - 4, 1, 'P');
      }
    }
    book.emplace_back(RandomEntryId(random), std::move(numbers));
  }
  return book;
}

SampleBook MakeSharedNumberBook(size_t contacts) {
  std::mt19937 random(static_cast<unsigned>(contacts));
  SampleBook book;
  while (book.size() < contacts) {
    book.emplace_back(RandomEntryId(random), std::vector<std::string>{"493012345678"});
  }
  return book;
}

std::vector<std::string> StoredNumbers(const SampleBook& book, size_t count) {
  std::mt19937 random(1);
  std::vector<std::string> numbers;
  while (numbers.size() < count) {
    const auto& contact = book[random() % book.size()];
    const std::string& number = contact.Numbers()[random() % contact.Numbers().size()];
    if (number.find('P') == std::string::npos) numbers.push_back(number);
  }
  return numbers;
}

std::vector<std::string> KnownNumbers(const SampleBook& book, size_t count) {
  std::vector<std::string> numbers = StoredNumbers(book, count);
  for (size_t i = 0; i < count; ++i)
    numbers[i] = AsDelivered(numbers[i], i);
  return numbers;
}

std::vector<std::string> UnknownNumbers(size_t count) {
  std::mt19937 random(2);
  std::vector<std::string> numbers;
  while (numbers.size() < count) {
    numbers.push_back(AsDelivered(RandomNumber(random, false), numbers.size()));
  }
  return numbers;
}

}  // namespace quor
