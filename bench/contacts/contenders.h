#ifndef QUOR_BENCH_CONTACTS_CONTENDERS_H
#define QUOR_BENCH_CONTACTS_CONTENDERS_H

#include <span>
#include <string>
#include <string_view>

#include "bench/contacts/hash_map_index.h"
#include "bench/contacts/sample_book.h"
#include "contacts/phone_number_index.h"

namespace quor {

class CNoWriter final : public ILogWriter {
 public:
  void WriteLine(std::string_view /*text*/) noexcept override {}
};

class CEveryoneOpens final : public IContactDirectory {
 public:
  bool FindContactFileAs(std::string_view /*entryId*/, std::string& fileAs) override {
    fileAs = "Doe, Jane";
    return true;
  }
};

// An index or its rival, with the objects it needs.
template <class Index>
class CContender {
 public:
  void Fill(std::span<const CSampleContact> book) {
    const std::string fileAs = "Doe, Jane";
    for (const CSampleContact& contact : book) {
      for (size_t i = 0; i < contact.Numbers().size(); ++i) {
        m_index.AddContactSearchData(contact.Numbers()[i], contact.EntryId(), contact.TypeOf(i),
                                     fileAs);
      }
    }
  }
  void Change(std::span<CSampleContact> book) {
    for (CSampleContact& contact : book)
      m_index.TelNoCheckAndUpdate(contact);
  }

  // 0 if the number is not found; otherwise a value that depends on the owner.
  size_t Search(const std::string& number) {
    return m_index.SearchPhoneNumber(number, true, m_match) ? Digest() : 0;
  }
  size_t Find(const std::string& number) {
    return m_index.FindPhoneNumber(number, true, m_match) ? Digest() : 0;
  }

 private:
  size_t Digest() const {
    size_t digest = static_cast<size_t>(m_match.telNumberType);
    for (const char c : std::string_view(m_match.entryId).substr(m_match.entryId.size() - 4)) {
      digest = digest * 256 + static_cast<unsigned char>(c);
    }
    return digest;
  }

  CNoWriter m_writer;
  CDiagnosticLog m_log{m_writer};
  CEveryoneOpens m_directory;
  Index m_index{m_directory, m_log};
  ContactMatch m_match;
};

using CIndex = CContender<CPhoneNumberIndex>;
using CHashRival = CContender<CHashMapIndex>;

}  // namespace quor

#endif
