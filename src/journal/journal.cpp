#include "journal/journal.h"

#include <utility>

#include "com/com_boundary.h"
#include "journal/journal_text.h"

namespace quor {
namespace {

// Outlook's journal type for phone calls.
constexpr wchar_t kPhoneCall[] = L"Phone call";

// More calls than can end between two idle moments.
constexpr size_t kMostWaiting = 200;

}  // namespace

void CJournal::Add(CallRecord call) {
  if (m_configuration.recordCalls == 0) return;
  if (m_calls.size() == kMostWaiting) m_calls.pop_front();
  m_calls.push_back(std::move(call));
}

void CJournal::WriteOne() noexcept {
  if (m_calls.empty()) return;
  GuardCall(m_log, "journal entry", [this] {
    // Remove the call first: the calls below may pump messages and re-enter.
    const CallRecord call = std::move(m_calls.front());
    m_calls.pop_front();
    Write(call);
  });
}

void CJournal::WriteAll() noexcept {
  while (!m_calls.empty())
    WriteOne();
}

void CJournal::Write(const CallRecord& call) {
  // A copy, because a shutdown inside a call releases m_application.
  const COutlookApplication application = m_application;
  if (!application) return;
  const auto entry = QueryObject<CJournalItem>(application.CreateItem(kItemTypeJournal));
  if (!entry) _com_issue_error(E_NOINTERFACE);
  entry.SetSubject(JournalSubject(call, m_texts));
  entry.SetType(kPhoneCall);
  entry.SetStart(call.start);
  entry.SetDuration(JournalMinutes(call));
  entry.SetBody(JournalBody(call, m_texts));
  if (!call.entryId.empty()) {
    // Keep the entry even if the link fails.
    GuardCall(m_log, "link of the journal entry", [&] {
      if (const CContactItem contact = m_contacts.Open(call.entryId)) entry.AddLink(contact);
    });
  }
  entry.Save();
}

}  // namespace quor
