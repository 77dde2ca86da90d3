#include "contacts/contact_item.h"

#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr size_t kLongestReadNumber = 32;

}  // namespace

std::string GetContactTelNumber(IContactItem& contact, int telNumberType) {
  std::string number;
  if (!contact.ReadTelNumber(telNumberType, number)) {
    return {};
  }
  if (number.size() > kLongestReadNumber) {
    number.resize(kLongestReadNumber);
  }
  return FilterDialChars(number);
}

}  // namespace quor
