#include "contacts/contact_item.h"

#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr size_t kLongestReadNumber = 32;

}  // namespace

void GetContactTelNumber(IContactItem& contact, int telNumberType, std::string& number) {
  if (!contact.ReadTelNumber(telNumberType, number)) number.clear();
  if (number.size() > kLongestReadNumber) number.resize(kLongestReadNumber);
  number = FilterDialChars(number);
}

}  // namespace quor
