#ifndef QUOR_ADDIN_CALLER_DIRECTORY_H
#define QUOR_ADDIN_CALLER_DIRECTORY_H

#include "contacts/outlook_contact_directory.h"
#include "contacts/phone_number_index.h"
#include "telephone/collaborators.h"

namespace quor {

// Answers the telephone's questions about callers from the index and from Outlook.
class CCallerDirectory final : public ICallerDirectory {
 public:
  // Both must outlive the directory.
  CCallerDirectory(CPhoneNumberIndex& index, COutlookContactDirectory& contacts) noexcept
      : m_index(index), m_contacts(contacts) {}

  std::optional<CallerMatch> FindPhoneNumber(std::string_view number, bool check) override;
  std::optional<CallerMatch> SearchPhoneNumber(std::string_view number, bool check) override;
  std::optional<std::wstring> FindContactFileAs(std::string_view entryId) override;
  std::optional<std::wstring> FindContactPhoneNumber(std::string_view entryId,
                                                     int telNumberType) override;
  FormResult DisplayContact(std::string_view entryId) override;
  FormResult DisplayNewContact(std::wstring_view number) override;

 private:
  CPhoneNumberIndex& m_index;
  COutlookContactDirectory& m_contacts;
};

}  // namespace quor

#endif
