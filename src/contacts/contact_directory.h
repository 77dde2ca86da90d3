#ifndef QUOR_CONTACTS_CONTACT_DIRECTORY_H
#define QUOR_CONTACTS_CONTACT_DIRECTORY_H

#include <string>
#include <string_view>

namespace quor {

// The contacts as the index asks for them: by entry ID.
class IContactDirectory {
 public:
  // True if the entry ID (ANSI) opens a contact that lies in a tracked folder; fileAs (ANSI) then
  // holds its File As name, and is left alone otherwise.
  //
  // The implementation logs "CAddin::FindContactFileAs\n" and the reason of a failure. It may pump
  // messages, so the index can change underneath; entryId need not outlive the first such call. It
  // does not throw.
  virtual bool FindContactFileAs(std::string_view entryId, std::string& fileAs) = 0;

 protected:
  ~IContactDirectory() = default;
};

}  // namespace quor

#endif
