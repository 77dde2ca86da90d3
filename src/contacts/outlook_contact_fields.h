#ifndef QUOR_CONTACTS_OUTLOOK_CONTACT_FIELDS_H
#define QUOR_CONTACTS_OUTLOOK_CONTACT_FIELDS_H

#include <utility>

#include "contacts/contact_fields.h"
#include "outlook/object_model.h"

namespace quor {

// The fields of a contact that is open in Outlook.
class COutlookContactFields final : public IContactFields {
 public:
  explicit COutlookContactFields(CContactItem item) noexcept : m_item(std::move(item)) {}

  bool ReadEntryId(std::string& entryId) override;
  bool Save() override;
  bool ReadFileAs(std::string& fileAs) override;
  bool ReadTelNumber(int telNumberType, std::string& number) override;

 private:
  CContactItem m_item;
};

}  // namespace quor

#endif
