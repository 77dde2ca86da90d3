#ifndef QUOR_JOURNAL_JOURNAL_TEXT_H
#define QUOR_JOURNAL_JOURNAL_TEXT_H

#include <cstdint>
#include <string>

#include "journal/call_record.h"
#include "resources/string_table.h"

namespace quor {

// "Missed call: Anna Lee", "Call from Anna Lee", "Call to Anna Lee"; the number stands for a name
// that is not known, and "Unknown" for neither.
std::wstring JournalSubject(const CallRecord& call, const IStringTable& texts);

// Line or cell, direction, name, number and length of the call, a line each; what is not known is
// left out.
std::wstring JournalBody(const CallRecord& call, const IStringTable& texts);

// The journal counts in whole minutes: a call of seconds still lasts one, a missed call none.
int32_t JournalMinutes(const CallRecord& call) noexcept;

}  // namespace quor

#endif
