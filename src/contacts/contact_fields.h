#ifndef QUOR_CONTACTS_CONTACT_FIELDS_H
#define QUOR_CONTACTS_CONTACT_FIELDS_H

#include <string>

#include "module/diagnostic_log.h"
#include "outlook/tel_number_type.h"

namespace quor {

// The fields of an open contact that the index reads. Texts are in the ANSI code page. Each
// operation returns whether it succeeded, leaves its result unchanged if not, and may pump
// messages. None throws.
class IContactFields {
 public:
  virtual bool ReadEntryId(std::string& entryId) = 0;  // empty for a contact never saved
  virtual bool Save() = 0;
  virtual bool ReadFileAs(std::string& fileAs) = 0;
  // Reads the number as the user typed it. Fails for a type that is not in tel_number_type.h.
  virtual bool ReadTelNumber(int telNumberType, std::string& number) = 0;

 protected:
  ~IContactFields() = default;
};

// Gives the dial characters among the first 32 characters of the number: "+49 (171) 555-0123" gives
// "491715550123". Empty if the number cannot be read.
void GetContactTelNumber(IContactFields& contact, int telNumberType, std::string& number);

// Begins to index an added or changed contact: saves it if it was never saved, and reads its entry
// ID and its File As name. Returns whether the contact can be indexed; its numbers are read next.
bool BeginTelNoCheckAndUpdate(IContactFields& contact, std::string& entryId, CDiagnosticLog& log);

}  // namespace quor

#endif
