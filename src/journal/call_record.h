#ifndef QUOR_JOURNAL_CALL_RECORD_H
#define QUOR_JOURNAL_CALL_RECORD_H

#include <cstdint>
#include <string>

namespace quor {

enum class CallDirection { Incoming, Outgoing };

// One call, from its first sign to its end.
struct CallRecord {
  int slot = 0;  // 0 Line1, 1 Line2, 2 to 5 Cell1 to Cell4; kNoSlot for a cell the base never named
  CallDirection direction = CallDirection::Incoming;
  bool answered = false;  // somebody talked; an outgoing call always counts as answered
  double start = 0;       // local time of the first ring or of the dialling, as an automation DATE
  uint32_t seconds = 0;   // of conversation
  std::wstring name;      // empty when unknown
  std::wstring number;    // as the contact or the base has it; empty when withheld
  std::string entryId;    // of the contact, ANSI; empty when none matched

  bool operator==(const CallRecord&) const = default;
};

}  // namespace quor

#endif
