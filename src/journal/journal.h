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

// Calls that have ended, on their way into Outlook's journal: entries of type "Phone call" in the
// default journal folder, written one by one in idle moments. A call is kept only while the user
// wants calls recorded. An entry that Outlook refuses is logged and dropped.
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

  // The oldest call. Calls into Outlook.
  void WriteOne() noexcept;
  // All that wait, before Outlook closes.
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
