#ifndef QUOR_CONTACTS_CONTACT_DIRECTORY_H
#define QUOR_CONTACTS_CONTACT_DIRECTORY_H

#include <string>
#include <string_view>

namespace quor {

// Looks contacts up by entry ID, for the index.
class IContactDirectory {
 public:
  // True if the entry ID (ANSI) opens a contact in a tracked folder; fileAs (ANSI) then holds its
  // File As name. fileAs is unchanged otherwise.
  //
  // The implementation logs "CAddin::FindContactFileAs\n" and the reason of a failure, and does not
  // throw. It may pump messages, so the index may change meanwhile; entryId need not outlive the
  // first call into Outlook.
  virtual bool FindContactFileAs(std::string_view entryId, std::string& fileAs) = 0;

 protected:
  ~IContactDirectory() = default;
};

}  // namespace quor

#endif
