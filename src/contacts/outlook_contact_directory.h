#ifndef QUOR_CONTACTS_OUTLOOK_CONTACT_DIRECTORY_H
#define QUOR_CONTACTS_OUTLOOK_CONTACT_DIRECTORY_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "contacts/contact_directory.h"
#include "contacts/tracked_folders.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// A contact opened by a checked look-up.
struct OpenContact {
  CContactItem item;
  std::wstring fileAs;
};

// Opens contacts by entry ID, in the store of the default contacts folder. Entry IDs are in the
// ANSI code page. Nothing here throws; a failure in Outlook gives an empty result.
class COutlookContactDirectory final : public IContactDirectory {
 public:
  // All must outlive this object; the application may still be empty at construction.
  COutlookContactDirectory(const COutlookApplication& application, const CTrackedFolders& tracked,
                           CDiagnosticLog& log) noexcept
      : m_application(application), m_tracked(tracked), m_log(log) {}

  bool FindContactFileAs(std::string_view entryId, std::string& fileAs) override;
  // The contact that the last successful FindContactFileAs opened. A second call returns null.
  std::shared_ptr<const OpenContact> TakeOpened() noexcept { return std::exchange(m_opened, {}); }

  // These use `opened` if it is that contact, and open the contact otherwise.

  // The File As name as Outlook stores it; logs the same lines as FindContactFileAs.
  std::optional<std::wstring> FileAs(std::string_view entryId, const OpenContact* opened);
  // The contact's number of that type, as the user typed it.
  std::optional<std::wstring> PhoneNumber(std::string_view entryId, int telNumberType,
                                          const OpenContact* opened);

  // Empty if the contact does not exist.
  CContactItem Open(std::string_view entryId);
  // A new, unsaved contact with the number in its business field, the first that Outlook's contact
  // form shows. Empty if Outlook fails to create one.
  CContactItem Create(std::wstring_view number);

 private:
  std::shared_ptr<const OpenContact> OpenTracked(std::string_view entryId);
  std::shared_ptr<const OpenContact> ReadTracked(std::string_view entryId);
  CContactItem OpenInStore(const CNameSpace& nameSpace, std::string_view entryId,
                           std::wstring_view store);

  const COutlookApplication& m_application;
  const CTrackedFolders& m_tracked;
  CDiagnosticLog& m_log;
  std::shared_ptr<const OpenContact> m_opened;
};

}  // namespace quor

#endif
