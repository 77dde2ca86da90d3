#ifndef QUOR_BENCH_CONTACTS_SAMPLE_BOOK_H
#define QUOR_BENCH_CONTACTS_SAMPLE_BOOK_H

#include <string>
#include <vector>

#include "contacts/contact_fields.h"

namespace quor {

// A contact as in an Exchange store: an entry ID of 140 hexadecimal digits, and filtered numbers of
// 12 digits in the first few types from 2 on. Opening it takes no time.
class CSampleContact final : public IContactFields {
 public:
  CSampleContact(std::string entryId, std::vector<std::string> numbers)
      : m_entryId(std::move(entryId)), m_numbers(std::move(numbers)) {}

  bool ReadEntryId(std::string& entryId) override;
  bool Save() override { return true; }
  bool ReadFileAs(std::string& fileAs) override;
  bool ReadTelNumber(int telNumberType, std::string& number) override;

  const std::string& EntryId() const { return m_entryId; }
  const std::vector<std::string>& Numbers() const { return m_numbers; }
  int TypeOf(size_t number) const;

 private:
  std::string m_entryId;
  std::vector<std::string> m_numbers;
};

using SampleBook = std::vector<CSampleContact>;

enum class Pauses { OneInTwenty, None };

// Random, but equal for equal sizes. No number's fifth character from the end is "7". One number in
// twenty has a pause character before its last four digits.
SampleBook MakeSampleBook(size_t contacts, size_t numbersEach, Pauses pauses = Pauses::OneInTwenty);
// Every contact has the same single number.
SampleBook MakeSharedNumberBook(size_t contacts);

// Numbers as networks send them: as stored, in national form, with the international prefix.
// Randomly chosen among those without pause characters.
std::vector<std::string> KnownNumbers(const SampleBook& book, size_t count);
// Numbers as stored.
std::vector<std::string> StoredNumbers(const SampleBook& book, size_t count);
// In the same forms as the known ones; even their last five characters are not in the book.
std::vector<std::string> UnknownNumbers(size_t count);

}  // namespace quor

#endif
