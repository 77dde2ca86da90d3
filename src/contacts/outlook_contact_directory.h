#ifndef QUOR_CONTACTS_OUTLOOK_CONTACT_DIRECTORY_H
#define QUOR_CONTACTS_OUTLOOK_CONTACT_DIRECTORY_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "contacts/contact_directory.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// Whether a folder belongs to those the index follows.
class ITrackedFolders {
 public:
  virtual bool IsTracked(IDispatch* folder) = 0;

 protected:
  ~ITrackedFolders() = default;
};

// A contact that a checked look-up has opened.
struct OpenContact {
  CContactItem item;
  std::wstring fileAs;
};

// Contacts by entry ID, in the store of the default contacts folder. Entry IDs are in the ANSI code
// page. Nothing here throws: what Outlook refuses is an empty answer.
class COutlookContactDirectory final : public IContactDirectory {
 public:
  // All must outlive the directory; the application may still be empty at construction.
  COutlookContactDirectory(const COutlookApplication& application, ITrackedFolders& folders,
                           CDiagnosticLog& log) noexcept
      : m_application(application), m_folders(folders), m_log(log) {}

  bool FindContactFileAs(std::string_view entryId, std::string& fileAs) override;
  // What the last FindContactFileAs that succeeded opened; once.
  std::shared_ptr<const OpenContact> TakeOpened() noexcept { return std::exchange(m_opened, {}); }

  // The following open the contact if it is not `opened` already.

  // The File As name as Outlook has it, with the same log lines.
  std::optional<std::wstring> FileAs(std::string_view entryId, const OpenContact* opened);
  // The contact's own number of that type, as the user wrote it.
  std::optional<std::wstring> PhoneNumber(std::string_view entryId, int telNumberType,
                                          const OpenContact* opened);

  // Empty when there is no such contact.
  CContactItem Open(std::string_view entryId);
  // A new contact, not yet saved, with the number in its business field: the first one that
  // Outlook's contact form shows. Empty when Outlook refuses.
  CContactItem Create(std::wstring_view number);

 private:
  std::shared_ptr<const OpenContact> OpenTracked(std::string_view entryId);
  std::shared_ptr<const OpenContact> ReadTracked(std::string_view entryId);
  CContactItem OpenInStore(const CNameSpace& nameSpace, std::string_view entryId,
                           std::wstring_view store);

  const COutlookApplication& m_application;
  ITrackedFolders& m_folders;
  CDiagnosticLog& m_log;
  std::shared_ptr<const OpenContact> m_opened;
};

}  // namespace quor

#endif
