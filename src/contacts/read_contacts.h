#ifndef QUOR_CONTACTS_READ_CONTACTS_H
#define QUOR_CONTACTS_READ_CONTACTS_H

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quor {

// A contact as the scan has read it.
struct ReadContact {
  std::string entryId;
  std::vector<std::pair<int, std::string>> numbers;  // type and filtered number, in type order
  uint32_t reported = 0;  // serial number of the change that Outlook reported last; 0: none
  uint32_t pass = 0;      // the last pass that came by
};

// What a scan has read so far, by entry ID, in the order of reading. Contacts stay where they are.
class CReadContacts {
 public:
  // Null when there is none. A contact without an entry ID is never found again.
  ReadContact* Find(std::string_view entryId);
  // Adds a contact that is not there yet.
  ReadContact& Add(ReadContact contact);

  const std::deque<ReadContact>& InOrder() const noexcept { return m_contacts; }

 private:
  std::deque<ReadContact> m_contacts;
  std::unordered_map<std::string_view, ReadContact*> m_byEntryId;
};

}  // namespace quor

#endif
