#include "toolbar/user_actions.h"

#include <algorithm>
#include <utility>

#include "device/line_type.h"
#include "resources/resource_ids.h"
#include "telephone/number_check.h"
#include "text/ansi.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

// The number's dial characters. A number without any is returned unchanged, so that the dialler
// refuses it with its message.
std::wstring DialChars(std::wstring_view number) {
  std::wstring dialled = FilterDialChars(number);
  return dialled.empty() ? std::wstring(number) : dialled;
}

}  // namespace

bool CUserActions::OfferSelection() {
  const SelectedContact selected = m_windows.FindSelectedContact();
  std::vector<DialCandidate> candidates;
  for (const auto& [type, number] : selected.numbers) {
    std::wstring label = m_texts.Text(IDS_NUMBER_KIND + type);
    label.append(L": ").append(number);
    candidates.push_back({std::move(label), number});
  }
  if (candidates == m_candidates) return false;
  m_candidates = std::move(candidates);
  return true;
}

void CUserActions::Clear() {
  m_candidates.clear();
  StoreDialText({});
}

void CUserActions::ClickLine(uint8_t lineType) {
  m_telephone.Lines().Click(lineType);
}

void CUserActions::ClickCell(int cell) {
  if (cell >= 0 && cell < kCellCount)
    m_telephone.Lines().Click(kCell1 + static_cast<uint32_t>(cell));
}

void CUserActions::ClickCaller(size_t entry) {
  const std::vector<CallEntry>& callers = m_configuration.callerLists;
  if (entry < callers.size()) DialNumber(std::wstring(callers[entry].number));
}

void CUserActions::ClickSpeedDial(SpeedDialAction action, size_t entry) {
  if (entry >= kSpeedDialCount) return;
  const std::vector<SpeedDialEntry>& entries = m_configuration.speedDials;
  const SpeedDialEntry chosen = entry < entries.size() ? entries[entry] : SpeedDialEntry();
  switch (action) {
    case SpeedDialAction::Call:
      if (!chosen.number.empty()) DialNumber(chosen.number);
      break;
    case SpeedDialAction::Add:
    case SpeedDialAction::Edit:
      m_windows.EditSpeedDial(entry, chosen, OfferedEntry());
      break;
    case SpeedDialAction::Erase:
      m_windows.EraseSpeedDial(entry, chosen);
      break;
  }
}

void CUserActions::OnChangeComboBox(std::wstring_view text, int listIndex) {
  const std::optional<std::wstring> number = CandidateNumber(text);
  if (number) {
    text = *number;
    listIndex = 0;
  }
  m_telephone.Dialler().OnChangeComboBox(text, listIndex);
}

void CUserActions::StoreDialText(std::wstring_view text) {
  const std::optional<std::wstring> number = CandidateNumber(text);
  m_telephone.Dialler().StoreDialText(number ? *number : text);
}

// Finds the candidate by its label: the ribbon passes only the text of a picked entry.
std::optional<std::wstring> CUserActions::CandidateNumber(std::wstring_view text) const {
  const auto picked = std::ranges::find(m_candidates, text, &DialCandidate::label);
  if (picked == m_candidates.end()) return std::nullopt;
  return DialChars(picked->number);
}

bool CUserActions::PickNumber(std::wstring_view number) {
  const std::wstring dialled = DialChars(number);
  if (m_telephone.Dialler().DialCall(0, dialled) || !m_telephone.State().HasRibbon()) return false;
  return NumberRefusal(AnsiFromWide(dialled)) == IDS_NONE;
}

// In the main window a waiting number is put into the dial box.
void CUserActions::DialNumber(std::wstring_view number) {
  if (!PickNumber(number)) return;
  StoreDialText(DialChars(number));
  m_windows.ShowWaitingNumber();
}

bool CUserActions::DialsAtOnce(uint8_t lineType) const {
  return m_telephone.Lines().DialsAtOnce(lineType);
}

bool CUserActions::DialOnLine(uint8_t lineType, std::wstring_view number) {
  return m_telephone.Lines().DialOnLine(lineType, DialChars(number));
}

// The suggestion for a new speed dial entry: the selected contact, or else the last caller.
SpeedDialEntry CUserActions::OfferedEntry() {
  const SelectedContact selected = m_windows.FindSelectedContact();
  if (!selected.numbers.empty()) return {selected.fileAs, selected.numbers.front().number};
  const std::vector<CallEntry>& callers = m_configuration.callerLists;
  return callers.empty() ? SpeedDialEntry()
                         : SpeedDialEntry{callers.front().fileAs, callers.front().number};
}

}  // namespace quor
