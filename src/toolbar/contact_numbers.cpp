#include "toolbar/contact_numbers.h"

#include <utility>

#include "com/com_boundary.h"

namespace quor {

CContactItem ContactOf(const CInspector& inspector) {
  if (!inspector) return {};
  return QueryObject<CContactItem>(inspector.CurrentItem());
}

std::vector<ContactNumber> NumbersOf(const CContactItem& contact, CDiagnosticLog& log) {
  std::vector<ContactNumber> numbers;
  for (int type = 1; type <= kTelNumberTypeCount; ++type) {
    GuardCall(log, "a number of the contact", [&] {
      std::wstring number = contact.TelephoneNumber(type);
      if (!number.empty()) numbers.push_back({type, std::move(number)});
    });
  }
  return numbers;
}

}  // namespace quor
