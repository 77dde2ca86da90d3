#include "telephone/dialler.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "resources/resource_ids.h"
#include "settings/entry_text.h"
#include "text/ansi.h"
#include "text/dial_chars.h"

namespace quor {

namespace {

constexpr size_t kDestinationLimit = 256;

// The number of the list's 1-based entry, or the typed text if there is no such entry.
std::string NumberOf(const std::vector<CallEntry>& list, int listIndex, std::string typed) {
  if (listIndex < 1 || static_cast<size_t>(listIndex) > list.size()) return typed;
  return AnsiFromWide(list[static_cast<size_t>(listIndex) - 1].number);
}

}  // namespace

bool CDialler::DialCall(int listIndex, std::wstring_view destination) {
  m_collaborators.log.Write("CAddin::DialCall\n");
  if (destination.empty()) {
    m_collaborators.log.Write("CAddin::bstrDest is empty\n");
    if (m_state.HasRibbon()) m_collaborators.messages.ShowMessage(IDS_INVALID_NUMBER);
    return false;
  }
  // A copy: `destination` may refer to the box's own text, which may change during the calls below.
  const std::wstring shown(destination);
  std::string typed = AnsiFromWide(destination.substr(0, kDestinationLimit));
  if (typed.empty()) return false;

  std::string number =
      NumberOf(m_collaborators.configuration.histories, listIndex, std::move(typed));
  if (!CheckNumber(number)) return false;
  number = UpperPauseChars(number);

  std::optional<CallerMatch> contact;
  if (!number.empty()) contact = m_collaborators.directory.FindPhoneNumber(number, false);

  const bool posted = DialUSB(number);
  const uint32_t lineType = m_state.pendingClearLine;
  m_state.lastDialTime = m_collaborators.clock.TickMilliseconds();
  if (!posted) return false;

  std::optional<std::wstring> fileAs;
  if (contact) fileAs = m_collaborators.directory.FindContactFileAs(*contact);
  m_collaborators.calls.OnDial(SlotFromLineType(lineType),
                               {fileAs.value_or(std::wstring()), WideFromAnsi(number),
                                contact ? contact->entryId : std::string()});
  Remember({shown, std::move(fileAs).value_or(std::wstring()), WideFromAnsi(number)});
  if (!m_state.HasRibbon()) m_collaborators.controls.PutHistory();
  SetDialText(shown);
  m_collaborators.log.Write("CAddin::Dial Clear Set\n");
  m_collaborators.settings.Save();
  return true;
}

bool CDialler::CheckNumber(std::string_view number) {
  const int refusal = NumberRefusal(number);
  if (refusal != IDS_NONE) m_collaborators.messages.ShowMessage(refusal);
  return refusal == IDS_NONE;
}

void CDialler::Remember(const CallEntry& call) {
  CallEntry entry = StorableEntry(call);
  std::vector<CallEntry>& list = m_collaborators.configuration.histories;
  const auto same = std::ranges::find(list, entry.number, &CallEntry::number);
  if (same != list.end()) list.erase(same);
  if (list.size() >= kHistoryLimit) list.resize(kHistoryLimit - 1);
  list.insert(list.begin(), std::move(entry));
}

uint32_t CDialler::ChooseLine() const noexcept {
  if (m_state.HasRibbon()) return m_state.pendingClearLine;
  const TelephoneRecord& record = m_state.record;
  if (record.line1State == kStateTaken) return kLine1;
  if (record.line2State == kStateTaken) return kLine2;
  if (record.cellState == kStateTaken) return m_state.cellDialLine;
  return kNoLine;
}

bool CDialler::DialUSB(std::string_view number) noexcept {
  m_collaborators.log.Write("CAddin::DialUSB\n");
  const uint32_t lineType = ChooseLine();
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return false;

  number = number.substr(0, kDialNumberLimit);
  DialRecord& request = m_collaborators.records.dial[static_cast<size_t>(slot)];
  request = {};
  request.lineType = static_cast<uint8_t>(lineType);
  request.numberLength = static_cast<uint8_t>(number.size());
  std::ranges::copy(number, request.number);

  m_state.pendingClearLine = lineType;
  if (m_collaborators.queue.PostRequest(WindowRequest::CallRequest, lineType)) return true;
  m_collaborators.log.Write("CAddin::DialUSB post failed\n");
  return false;
}

void CDialler::OnChangeComboBox(std::wstring_view text, int listIndex) {
  m_collaborators.log.Write("CAddin::OnChangeComboBox\n");
  if (text.empty()) {
    m_collaborators.log.Write("CAddin::bstrDest is empty\n");
    return;
  }
  DialCall(listIndex, text);
}

bool CDialler::DialStoredText() {
  const std::vector<CallEntry>& list = m_collaborators.configuration.histories;
  const auto entry = std::ranges::find(list, m_dialText, &CallEntry::name);
  const int listIndex = entry == list.end() ? 0 : static_cast<int>(entry - list.begin()) + 1;
  return DialCall(listIndex, m_dialText);
}

void CDialler::PostClearDialNumber() noexcept {
  m_collaborators.log.Write("CAddin::PostClearDialNumber\n");
  if (!m_collaborators.queue.PostRequest(WindowRequest::ClearDial, 0)) {
    m_collaborators.log.Write("CAddin::PostClearDialNumber post failed\n");
  }
}

void CDialler::OnClearDial() {
  m_collaborators.log.Write("CAddin::OnClearDial\n");
  if (m_collaborators.configuration.dialClear != 0) ClearDialNumber();
}

void CDialler::ClearDialNumber() {
  m_collaborators.log.Write("CAddin::ClearDialNumber\n");
  SetDialText({});
}

void CDialler::SetDialText(std::wstring_view text) {
  m_dialText = text;
  m_collaborators.controls.SetDialText(text);
}

}  // namespace quor
