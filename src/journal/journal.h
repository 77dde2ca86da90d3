#ifndef QUOR_JOURNAL_JOURNAL_H
#define QUOR_JOURNAL_JOURNAL_H

#include <cstddef>
#include <deque>

#include "contacts/outlook_contact_directory.h"
#include "journal/call_record.h"
#include "journal/call_tracker.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "resources/string_table.h"
#include "settings/configuration.h"

namespace quor {

// Writes ended calls into Outlook's journal, one at a time when Outlook is idle: entries of type
// "Phone call" in the default journal folder. Calls are kept only while the user has recording
// switched on. If Outlook refuses an entry, the failure is logged and the entry dropped.
class CJournal final : public IEndedCalls {
 public:
  // All must outlive the journal; the application may still be empty at construction.
  CJournal(const COutlookApplication& application, COutlookContactDirectory& contacts,
           const IStringTable& texts, const Configuration& configuration,
           CDiagnosticLog& log) noexcept
      : m_application(application),
        m_contacts(contacts),
        m_texts(texts),
        m_configuration(configuration),
        m_log(log) {}

  void Add(CallRecord call) override;
  bool HasCalls() const noexcept { return !m_calls.empty(); }

  // Writes the oldest call. Calls into Outlook.
  void WriteOne() noexcept;
  // Writes all waiting calls, before Outlook closes.
  void WriteAll() noexcept;

 private:
  void Write(const CallRecord& call);

  const COutlookApplication& m_application;
  COutlookContactDirectory& m_contacts;
  const IStringTable& m_texts;
  const Configuration& m_configuration;
  CDiagnosticLog& m_log;
  std::deque<CallRecord> m_calls;
};

}  // namespace quor

#endif
