#include "contacts/read_contacts.h"

namespace quor {

ReadContact* CReadContacts::Find(std::string_view entryId) {
  const auto found = m_byEntryId.find(entryId);
  return found != m_byEntryId.end() ? found->second : nullptr;
}

ReadContact& CReadContacts::Add(ReadContact contact) {
  ReadContact& added = m_contacts.emplace_back(std::move(contact));
  if (!added.entryId.empty()) m_byEntryId.emplace(added.entryId, &added);
  return added;
}

}  // namespace quor
