#ifndef QUOR_JOURNAL_CALL_RECORD_H
#define QUOR_JOURNAL_CALL_RECORD_H

#include <cstdint>
#include <string>

namespace quor {

enum class CallDirection { Incoming, Outgoing };

// One call, from its first event to its end.
struct CallRecord {
  int slot = 0;  // 0 Line1, 1 Line2, 2 to 5 Cell1 to Cell4; kNoSlot for an unknown cell
  CallDirection direction = CallDirection::Incoming;
  bool answered = false;  // always true for an outgoing call
  double start = 0;       // local time of the first ring or of dialling, as an automation DATE
  uint32_t seconds = 0;   // of conversation
  std::wstring name;      // empty if unknown
  std::wstring number;    // from the contact or the base; empty if withheld
  std::string entryId;    // of the contact, ANSI; empty if none matched

  bool operator==(const CallRecord&) const = default;
};

}  // namespace quor

#endif
