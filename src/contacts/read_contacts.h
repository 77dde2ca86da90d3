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

// A contact as read by the scan.
struct ReadContact {
  std::string entryId;
  std::vector<std::pair<int, std::string>> numbers;  // type and filtered number, in type order
  uint32_t reported = 0;  // serial number of the last change that Outlook reported; 0: none
  uint32_t pass = 0;      // the last pass that reached it
};

// The contacts read by a scan so far, by entry ID, in reading order. Their addresses do not change.
class CReadContacts {
 public:
  // Null if there is none. A contact without an entry ID is never found.
  ReadContact* Find(std::string_view entryId);
  // The contact must not have been added yet.
  ReadContact& Add(ReadContact contact);

  const std::deque<ReadContact>& InOrder() const noexcept { return m_contacts; }

 private:
  std::deque<ReadContact> m_contacts;
  std::unordered_map<std::string_view, ReadContact*> m_byEntryId;
};

}  // namespace quor

#endif
