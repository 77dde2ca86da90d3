#ifndef QUOR_TESTS_CONTACTS_ADDRESS_BOOK_H
#define QUOR_TESTS_CONTACTS_ADDRESS_BOOK_H

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "contacts/contact_directory.h"
#include "contacts/contact_fields.h"
#include "module/diagnostic_log.h"

namespace quor {

// Collects log lines and calls in order.
class CTranscript final : public ILogWriter {
 public:
  void WriteLine(std::string_view text) noexcept override { m_lines.emplace_back(text); }
  std::vector<std::string> Take() { return std::exchange(m_lines, {}); }

 private:
  std::vector<std::string> m_lines;
};

struct BookContact {
  std::string fileAs = "Somebody";
  bool opens = true;
  std::array<std::string, 13> numbers;  // by type
};

using AddressBook = std::map<std::string, BookContact>;

// Opens the contacts of a book and records each call, even while the log is off.
class CBookDirectory final : public IContactDirectory {
 public:
  CBookDirectory(const AddressBook& book, CTranscript& transcript)
      : m_book(book), m_transcript(transcript) {}

  bool FindContactFileAs(std::string_view entryId, std::string& fileAs) override {
    m_transcript.WriteLine("open " + std::string(entryId) + "\n");
    const auto found = m_book.find(std::string(entryId));
    const bool opens = found != m_book.end() && found->second.opens;
    if (opens) fileAs = found->second.fileAs;
    if (meanwhile) meanwhile();
    return opens;
  }

  std::function<void()> meanwhile;  // runs while messages are pumped

 private:
  const AddressBook& m_book;
  CTranscript& m_transcript;
};

// An open contact of the book.
class CBookItem final : public IContactFields {
 public:
  CBookItem(std::string entryId, const BookContact& contact)
      : m_entryId(std::move(entryId)), m_contact(contact) {}

  bool ReadEntryId(std::string& entryId) override {
    entryId = m_entryId;
    return true;
  }
  bool Save() override { return true; }
  bool ReadFileAs(std::string& fileAs) override {
    fileAs = m_contact.fileAs;
    return true;
  }
  bool ReadTelNumber(int telNumberType, std::string& number) override {
    if (telNumberType == unreadableType) return false;
    number = m_contact.numbers.at(static_cast<size_t>(telNumberType));
    return true;
  }

  int unreadableType = 0;

 private:
  std::string m_entryId;
  const BookContact& m_contact;
};

}  // namespace quor

#endif
