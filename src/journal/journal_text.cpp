#include "journal/journal_text.h"

#include "device/line_type.h"
#include "resources/resource_ids.h"
#include "text/format.h"

namespace quor {
namespace {

constexpr uint32_t kMinute = 60;  // seconds

std::wstring TwoDigits(uint32_t value) {
  return (value < 10 ? L"0" : L"") + DecimalText(value);
}

void AddLine(std::wstring& body, const std::wstring& label, const std::wstring& value) {
  if (!value.empty()) body += label + L" " + value + L"\r\n";
}

}  // namespace

std::wstring JournalSubject(const CallRecord& call, const IStringTable& texts) {
  const bool incoming = call.direction == CallDirection::Incoming;
  const int heading = !incoming       ? IDS_JOURNAL_CALL_TO
                      : call.answered ? IDS_JOURNAL_CALL_FROM
                                      : IDS_JOURNAL_MISSED;
  std::wstring who = call.name.empty() ? call.number : call.name;
  if (who.empty()) who = texts.Text(IDS_UNKNOWN);
  return texts.Text(heading) + L" " + who;
}

std::wstring JournalBody(const CallRecord& call, const IStringTable& texts) {
  const bool incoming = call.direction == CallDirection::Incoming;
  std::wstring body;
  if (call.slot != kNoSlot) {
    AddLine(body, texts.Text(IDS_JOURNAL_LINE), texts.Text(IDS_SLOT_NAME + call.slot));
  }
  AddLine(body, texts.Text(IDS_JOURNAL_DIRECTION),
          texts.Text(incoming ? IDS_JOURNAL_INCOMING : IDS_JOURNAL_OUTGOING));
  AddLine(body, texts.Text(IDS_JOURNAL_NAME), call.name);
  AddLine(body, texts.Text(IDS_JOURNAL_NUMBER), call.number);
  if (call.answered) {
    AddLine(body, texts.Text(IDS_JOURNAL_LENGTH),
            DecimalText(call.seconds / kMinute) + L":" + TwoDigits(call.seconds % kMinute));
  }
  return body;
}

int32_t JournalMinutes(const CallRecord& call) noexcept {
  return static_cast<int32_t>((call.seconds + kMinute - 1) / kMinute) +
         (call.answered && call.seconds == 0 ? 1 : 0);
}

}  // namespace quor
