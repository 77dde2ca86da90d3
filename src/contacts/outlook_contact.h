#ifndef QUOR_CONTACTS_OUTLOOK_CONTACT_H
#define QUOR_CONTACTS_OUTLOOK_CONTACT_H

#include <utility>

#include "contacts/contact_item.h"
#include "outlook/object_model.h"

namespace quor {

// A contact open in Outlook.
class COutlookContact final : public IContactItem {
 public:
  explicit COutlookContact(CContactItem item) noexcept : m_item(std::move(item)) {}

  bool ReadEntryId(std::string& entryId) override;
  bool Save() override;
  bool ReadFileAs(std::string& fileAs) override;
  bool ReadTelNumber(int telNumberType, std::string& number) override;

 private:
  CContactItem m_item;
};

}  // namespace quor

#endif
