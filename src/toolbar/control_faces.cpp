#include "toolbar/control_faces.h"

#include <algorithm>

#include "outlook/tel_number_type.h"
#include "resources/resource_ids.h"
#include "settings/entry_text.h"
#include "telephone/line_states.h"

namespace quor {

namespace {

constexpr size_t kMenuCaptionLimit = 50;  // UTF-16 units

int CaptionText(const TelephoneState& state, int control, bool withAnswer) noexcept {
  switch (control) {
    case kDialBoxControl:
      return IDS_DIAL_NUMBER;
    case kLine1Control:
      return GetLineCaption(state, kLine1Button, withAnswer);
    case kLine2Control:
      return GetLineCaption(state, kLine2Button, withAnswer);
    case kCallerListControl:
      return IDS_CALLER_LIST;
    case kCallFromCellControl:
      return GetLineCaption(state, kCellButton, withAnswer);
    case kSpeedDialControl:
      return IDS_SPEED_DIAL;
    case kOptionsControl:
      return IDS_OPTIONS;
    default:
      return IDS_NONE;
  }
}

}  // namespace

std::wstring MenuCaption(std::wstring_view name) {
  std::wstring caption;
  for (const wchar_t character : CutText(name, kMenuCaptionLimit)) {
    caption += character;
    if (character == L'&') caption += character;
  }
  return caption;
}

ItemFace CControlFaces::Control(int control, bool withAnswer) const {
  const int text = CaptionText(m_state, control, withAnswer);
  return {text == IDS_NONE ? std::wstring() : m_texts.Text(text),
          IsControlEnabled(m_state, control, withAnswer), true};
}

ItemFace CControlFaces::BarControl(int control) const {
  return Control(control, IsAnswerable(m_state));
}

LineAction CControlFaces::ActionOf(int lineButton, bool withAnswer) const noexcept {
  return GetLineAction(m_state, lineButton, withAnswer);
}

ItemFace CControlFaces::Cell(size_t cell) const {
  if (cell >= kCellCount) return {};
  const int number = static_cast<int>(cell);
  return {m_texts.Text(IDS_MENU_CELL1 + number), IsCellItemEnabled(m_state, number), true};
}

ItemFace CControlFaces::Caller(size_t entry) const {
  const std::vector<CallEntry>& callers = m_configuration.callerLists;
  if (entry >= std::min(callers.size(), kCallerListLimit)) return {};
  return {MenuCaption(callers[entry].name), true, true};
}

bool CControlFaces::IsInUse(size_t speedDialEntry) const noexcept {
  const auto& list = m_configuration.speedDials;
  return speedDialEntry < list.size() && !list[speedDialEntry].number.empty();
}

ItemFace CControlFaces::SpeedDial(size_t entry) const {
  if (entry >= kSpeedDialCount) return {};
  if (!IsInUse(entry)) return {m_texts.Text(IDS_NO_ENTRY), true, true};
  const SpeedDialEntry& used = m_configuration.speedDials[entry];
  return {MenuCaption(used.name.empty() ? used.number : used.name), true, true};
}

ItemFace CControlFaces::SpeedDial(size_t entry, SpeedDialAction action) const {
  if (entry >= kSpeedDialCount) return {};
  constexpr int kActions[] = {IDS_SPEED_DIAL_CALL, IDS_SPEED_DIAL_ADD, IDS_SPEED_DIAL_EDIT,
                              IDS_SPEED_DIAL_ERASE};
  const bool fits = IsInUse(entry) != (action == SpeedDialAction::Add);
  return {m_texts.Text(kActions[static_cast<size_t>(action)]), fits, fits};
}

ItemFace CControlFaces::ContactNumber(int telNumberType, std::wstring_view number) const {
  if (!IsTelNumberType(telNumberType)) return {};
  std::wstring caption = m_texts.Text(IDS_NUMBER_KIND + telNumberType);
  if (number.empty()) return {caption, false, false};
  return {caption + L": " + MenuCaption(number), true, true};
}

std::wstring CControlFaces::DialListItem(size_t entry) const {
  const auto& list = m_configuration.histories;
  if (entry < list.size()) return list[entry].name;
  entry -= list.size();
  return entry < m_candidates.size() ? m_candidates[entry].label : std::wstring();
}

}  // namespace quor
