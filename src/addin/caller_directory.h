#ifndef QUOR_ADDIN_CALLER_DIRECTORY_H
#define QUOR_ADDIN_CALLER_DIRECTORY_H

#include "contacts/contact_folders.h"
#include "contacts/outlook_contact_directory.h"
#include "contacts/phone_number_index.h"
#include "telephone/collaborators.h"

namespace quor {

// Looks callers up in the index and in Outlook. A look-up during the start-up scan first finishes
// the scan, so that every caller is found.
class CCallerDirectory final : public ICallerDirectory {
 public:
  // All must outlive the directory.
  CCallerDirectory(CPhoneNumberIndex& index, COutlookContactDirectory& contacts,
                   CContactFolders& folders) noexcept
      : m_index(index), m_contacts(contacts), m_folders(folders) {}

  std::optional<CallerMatch> FindPhoneNumber(std::string_view number, bool check) override;
  std::optional<CallerMatch> SearchPhoneNumber(std::string_view number, bool check) override;
  std::optional<std::wstring> FindContactFileAs(const CallerMatch& match) override;
  std::optional<std::wstring> FindContactPhoneNumber(const CallerMatch& match) override;
  FormResult DisplayContact(std::string_view entryId) override;
  FormResult DisplayNewContact(std::wstring_view number) override;

 private:
  std::optional<CallerMatch> Answer(bool found, std::string_view number, const ContactMatch& match);

  CPhoneNumberIndex& m_index;
  COutlookContactDirectory& m_contacts;
  CContactFolders& m_folders;
};

}  // namespace quor

#endif
