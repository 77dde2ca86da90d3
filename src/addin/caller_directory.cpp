#include "addin/caller_directory.h"

#include "text/dial_chars.h"

namespace quor {
namespace {

const OpenContact* OpenedBy(const CallerMatch& match) {
  return static_cast<const OpenContact*>(match.opened.get());
}

FormResult Display(const CContactItem& contact) {
  if (!contact) return FormResult::NoContact;
  try {
    contact.Display();
    return FormResult::Shown;
  } catch (const _com_error&) {
    return FormResult::NotDisplayed;
  }
}

}  // namespace

std::optional<CallerMatch> CCallerDirectory::Answer(bool found, std::string_view number,
                                                    const ContactMatch& match) {
  if (!found) return std::nullopt;
  const MatchReason reason = {match.telNumberType, match.matchedDigits,
                              RemovePauseChars(number).size(), match.moreContacts};
  return CallerMatch{match.entryId, reason, m_contacts.TakeOpened()};
}

std::optional<CallerMatch> CCallerDirectory::FindPhoneNumber(std::string_view number, bool check) {
  m_folders.FinishScan();
  ContactMatch match;
  return Answer(m_index.FindPhoneNumber(number, check, match), number, match);
}

std::optional<CallerMatch> CCallerDirectory::SearchPhoneNumber(std::string_view number,
                                                               bool check) {
  m_folders.FinishScan();
  ContactMatch match;
  return Answer(m_index.SearchPhoneNumber(number, check, match), number, match);
}

std::optional<std::wstring> CCallerDirectory::FindContactFileAs(const CallerMatch& match) {
  return m_contacts.FileAs(match.entryId, OpenedBy(match));
}

std::optional<std::wstring> CCallerDirectory::FindContactPhoneNumber(const CallerMatch& match) {
  return m_contacts.PhoneNumber(match.entryId, match.reason.telNumberType, OpenedBy(match));
}

FormResult CCallerDirectory::DisplayContact(std::string_view entryId) {
  return Display(m_contacts.Open(entryId));
}

FormResult CCallerDirectory::DisplayNewContact(std::wstring_view number) {
  return Display(m_contacts.Create(number));
}

}  // namespace quor
