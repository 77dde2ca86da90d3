#ifndef QUOR_JOURNAL_JOURNAL_TEXT_H
#define QUOR_JOURNAL_JOURNAL_TEXT_H

#include <cstdint>
#include <string>

#include "journal/call_record.h"
#include "resources/string_table.h"

namespace quor {

// "Missed call: Anna Lee", "Call from Anna Lee" or "Call to Anna Lee". Without a name the number is
// used, without both "Unknown".
std::wstring JournalSubject(const CallRecord& call, const IStringTable& texts);

// Line or cell, direction, name, number and duration of the call, one per line; unknown values are
// left out.
std::wstring JournalBody(const CallRecord& call, const IStringTable& texts);

// Duration in whole minutes: at least 1 for a call with a conversation, 0 for a missed call.
int32_t JournalMinutes(const CallRecord& call) noexcept;

}  // namespace quor

#endif
