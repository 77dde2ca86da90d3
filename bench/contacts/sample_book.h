#ifndef QUOR_BENCH_CONTACTS_SAMPLE_BOOK_H
#define QUOR_BENCH_CONTACTS_SAMPLE_BOOK_H

#include <string>
#include <vector>

#include "contacts/contact_item.h"

namespace quor {

// A contact as Outlook holds it in an Exchange store: an entry ID of 140 hexadecimal digits, and
// numbers of 12 digits, as filtered, in the first few types from 2 on. Opens in no time.
class CSampleContact final : public IContactItem {
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

// Random, and the same for the same sizes. No number's fifth character from the end is "7". One
// number in twenty has a pause character before its last four digits.
SampleBook MakeSampleBook(size_t contacts, size_t numbersEach, Pauses pauses = Pauses::OneInTwenty);
// Everybody has one number and that number only.
SampleBook MakeSharedNumberBook(size_t contacts);

// Numbers as a caller's network delivers them: as stored, in national form, with the international
// prefix. Picked at random among those without pause characters.
std::vector<std::string> KnownNumbers(const SampleBook& book, size_t count);
// As stored.
std::vector<std::string> StoredNumbers(const SampleBook& book, size_t count);
// In the same forms as the known ones; not even their last five characters are in the book.
std::vector<std::string> UnknownNumbers(size_t count);

}  // namespace quor

#endif
