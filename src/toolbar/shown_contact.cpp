#include "toolbar/shown_contact.h"

#include <utility>

#include "com/com_boundary.h"

namespace quor {
namespace {

std::wstring NumberOf(const CContactItem& contact, int telNumberType, CDiagnosticLog& log) {
  std::wstring number;
  GuardCall(log, "a number of the contact",
            [&] { number = contact.TelephoneNumber(telNumberType); });
  return number;
}

}  // namespace

CContactItem ContactOf(const CInspector& inspector) {
  if (!inspector) return {};
  return QueryObject<CContactItem>(inspector.CurrentItem());
}

bool IsSameContact(const CContactItem& one, const CContactItem& other) {
  if (!one || !other) return !one && !other;
  if (IDispatchPtr(one.Get()) == other.Get()) return true;
  const std::wstring entryId = one.EntryId();
  return !entryId.empty() && entryId == other.EntryId().View();
}

std::vector<ContactNumber> NumbersOf(const CContactItem& contact, CDiagnosticLog& log) {
  std::vector<ContactNumber> numbers;
  for (int type = kFirstTelNumberType; contact && type <= kLastTelNumberType; ++type) {
    std::wstring number = NumberOf(contact, type, log);
    if (!number.empty()) numbers.push_back({type, std::move(number)});
  }
  return numbers;
}

ContactNumber FirstNumberOf(const CContactItem& contact, CDiagnosticLog& log) {
  for (int type = kFirstTelNumberType; contact && type <= kLastTelNumberType; ++type) {
    std::wstring number = NumberOf(contact, type, log);
    if (!number.empty()) return {type, std::move(number)};
  }
  return {};
}

SelectedContact ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept {
  SelectedContact selected;
  GuardCall(log, "the selected contact", [&] {
    if (!explorer) return;
    const CSelection selection = explorer.Selection();
    if (!selection || selection.Count() < 1) return;
    const auto contact = QueryObject<CContactItem>(selection.Item(1));
    if (!contact) return;
    selected.fileAs = contact.FileAs();
    selected.numbers = NumbersOf(contact, log);
  });
  return selected;
}

}  // namespace quor
