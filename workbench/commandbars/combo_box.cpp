#include "workbench/commandbars/combo_box.h"

#include <algorithm>
#include <climits>

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {
namespace {

constexpr long kStyleLabel = 1;

}  // namespace

CCommandBarComboBox::CCommandBarComboBox(CModel& model, std::shared_ptr<CControlRegistry> registry,
                                         CCommandBar& bar, long type)
    : CCommandBarControl(model, Members(), std::move(registry), bar, type) {}

ControlFace CCommandBarComboBox::Face() const {
  ControlFace face = CCommandBarControl::Face();
  face.kind = TypeNumber() == mso::kEdit       ? ControlKind::Edit
              : TypeNumber() == mso::kDropdown ? ControlKind::DropDown
                                               : ControlKind::ComboBox;
  face.text = m_text;
  face.entries = m_entries;
  face.showsCaption = m_style == kStyleLabel;
  face.listWidth = static_cast<int>(m_dropDownWidth);
  return face;
}

void CCommandBarComboBox::EnterText(const std::wstring& text) {
  m_text = text;
  FollowText();
  RaiseChange();
}

void CCommandBarComboBox::Pick(size_t entry) {
  m_text = m_entries.at(entry);
  m_listIndex = static_cast<long>(entry) + 1;
  RaiseChange();
}

void CCommandBarComboBox::FollowText() {
  const auto found = std::find(m_entries.begin(), m_entries.end(), m_text);
  m_listIndex = found == m_entries.end() ? 0 : static_cast<long>(found - m_entries.begin()) + 1;
}

void CCommandBarComboBox::RaiseChange() {
  Bar()->Changed();
  const CModelPtr<CCommandBarControl> self(this);
  for (const auto& twin : Twins()) {
    if (!twin->IsDeleted()) twin->Fire(L"Change", {static_cast<IDispatch*>(this)});
  }
}

size_t CCommandBarComboBox::EntryFromOne(const CArguments& arguments, UINT index) const {
  const long entry = arguments.Long(index);
  if (entry < 1 || static_cast<size_t>(entry) > m_entries.size()) throw CModelError(E_INVALIDARG);
  return static_cast<size_t>(entry) - 1;
}

void CCommandBarComboBox::AddItem(const CArguments& arguments) {
  const std::wstring text = arguments.Text(0);
  const size_t count = m_entries.size();
  const long before = arguments.LongOr(1, static_cast<long>(count) + 1);
  if (before < 1 || static_cast<size_t>(before) > count + 1) throw CModelError(E_INVALIDARG);
  m_entries.insert(m_entries.begin() + (before - 1), text);
  if (m_listIndex >= before) ++m_listIndex;
  Bar()->Changed();
}

void CCommandBarComboBox::Clear() {
  m_entries.clear();
  m_listIndex = 0;
  Bar()->Changed();
}

void CCommandBarComboBox::RemoveItem(const CArguments& arguments) {
  const auto entry = static_cast<long>(EntryFromOne(arguments, 0));
  m_entries.erase(m_entries.begin() + entry);
  FollowText();
  Bar()->Changed();
}

std::wstring CCommandBarComboBox::List(const CArguments& arguments) const {
  return m_entries[EntryFromOne(arguments, 0)];
}

void CCommandBarComboBox::SetList(const CArguments& arguments) {
  m_entries[EntryFromOne(arguments, 0)] = arguments.Text(1);
  Bar()->Changed();
}

// Raises Change, because it counts as the user's choice.
void CCommandBarComboBox::SetListIndex(const CArguments& arguments) {
  if (arguments.Long(0) == 0) {
    m_listIndex = 0;
    return;
  }
  Pick(EntryFromOne(arguments, 0));
}

void CCommandBarComboBox::SetText(const CArguments& arguments) {
  m_text = arguments.Text(0);
  FollowText();
  Bar()->Changed();
}

const CMemberTable& CCommandBarComboBox::Members() {
  using Self = CCommandBarComboBox;
  constexpr long kMost = LONG_MAX;
  static const CMemberTable table(
      "CommandBarComboBox", L"_CommandBarComboBox", &ControlMembers(),
      {Method<&Self::AddItem>(L"AddItem", 1), Method<&Self::Clear>(L"Clear"),
       Get<&Self::Read<&Self::m_dropDownLines>>(L"DropDownLines"),
       Put<&Self::Write<&Self::m_dropDownLines, -1, kMost>>(L"DropDownLines"),
       Get<&Self::Read<&Self::m_dropDownWidth>>(L"DropDownWidth"),
       Put<&Self::Write<&Self::m_dropDownWidth, -1, kMost>>(L"DropDownWidth"),
       Get<&Self::List>(L"List"), Put<&Self::SetList>(L"List"), Get<&Self::ListCount>(L"ListCount"),
       Get<&Self::Read<&Self::m_headerCount>>(L"ListHeaderCount"),
       Put<&Self::Write<&Self::m_headerCount, -1, kMost>>(L"ListHeaderCount"),
       Get<&Self::ListIndex>(L"ListIndex"), Put<&Self::SetListIndex>(L"ListIndex"),
       Method<&Self::RemoveItem>(L"RemoveItem"), Get<&Self::Read<&Self::m_style>>(L"Style"),
       Put<&Self::Write<&Self::m_style, 0, kStyleLabel>>(L"Style"), Get<&Self::Text>(L"Text"),
       Put<&Self::SetText>(L"Text")},
      {L"_CommandBarComboBoxEvents"});
  return table;
}

}  // namespace quor::workbench
