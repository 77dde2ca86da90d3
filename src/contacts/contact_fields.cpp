#include "contacts/contact_fields.h"

#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr size_t kLongestReadNumber = 32;

}  // namespace

void GetContactTelNumber(IContactFields& contact, int telNumberType, std::string& number) {
  if (!contact.ReadTelNumber(telNumberType, number)) number.clear();
  if (number.size() > kLongestReadNumber) number.resize(kLongestReadNumber);
  number = FilterDialChars(number);
}

bool BeginTelNoCheckAndUpdate(IContactFields& contact, std::string& entryId, CDiagnosticLog& log) {
  log.Write("CAddin::TelNoCheckAndUpdate\n");
  if (!contact.ReadEntryId(entryId)) return false;
  if (entryId.empty() && (!contact.Save() || !contact.ReadEntryId(entryId) || entryId.empty())) {
    return false;
  }
  std::string fileAs;
  if (contact.ReadFileAs(fileAs)) return true;
  log.Write("get_FileAs is failed\n");
  return false;
}

}  // namespace quor
