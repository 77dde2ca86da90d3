#include "dialogs/name_reason.h"

#include "resources/resource_ids.h"
#include "text/format.h"

namespace quor {
namespace {

// A number of less than five digits is no guess: it matches whole.
constexpr size_t kShortestTail = 5;
constexpr size_t kLongestShortMatch = 6;

bool IsShort(const MatchReason& reason) noexcept {
  return reason.matchedDigits >= kShortestTail && reason.matchedDigits <= kLongestShortMatch;
}

int TextOfMoreContacts(size_t moreContacts) noexcept {
  if (moreContacts == 0) return IDS_NO_MORE_CONTACTS;
  return moreContacts == 1 ? IDS_ONE_MORE_CONTACT : IDS_MORE_CONTACTS;
}

std::wstring Decimal(size_t number) {
  return DecimalText(static_cast<long long>(number));
}

}  // namespace

std::wstring NameReason(const CallerValue& name, const IStringTable& strings) {
  if (!name.reason || name.text.empty()) return {};
  const MatchReason& reason = *name.reason;
  std::wstring text =
      InsertTexts(strings.Text(IDS_NAME_REASON),
                  {Decimal(reason.matchedDigits), Decimal(reason.numberDigits),
                   strings.Text(IDS_NUMBER_KIND + reason.telNumberType), name.text});
  if (reason.moreContacts == 0 && !IsShort(reason)) return text;
  return text.append(L"\r\n").append(InsertTexts(
      strings.Text(TextOfMoreContacts(reason.moreContacts)), {Decimal(reason.moreContacts)}));
}

}  // namespace quor
