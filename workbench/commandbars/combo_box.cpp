#include "workbench/commandbars/combo_box.h"

#include <algorithm>
#include <climits>

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {
namespace {

constexpr long kStyleLabel = 1;

}  // namespace

CCommandBarComboBox::CCommandBarComboBox(CModel& model, std::shared_ptr<CControlRegistry> registry,
                                         CCommandBar& bar)
    : CCommandBarControl(model, Members(), std::move(registry), bar, mso::kComboBox) {}

ControlFace CCommandBarComboBox::Face() const {
  ControlFace face = CCommandBarControl::Face();
  face.kind = ControlKind::ComboBox;
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

// Raises Change, because it counts as the user's choice.
void CCommandBarComboBox::SetListIndex(const CArguments& arguments) {
  const long index = arguments.Long(0);
  if (index < 0 || static_cast<size_t>(index) > m_entries.size()) throw CModelError(E_INVALIDARG);
  if (index != 0) return Pick(static_cast<size_t>(index) - 1);
  m_listIndex = 0;
}

void CCommandBarComboBox::SetText(const CArguments& arguments) {
  m_text = arguments.Text(0);
  FollowText();
  Bar()->Changed();
}

template <auto number, long least, long most>
Member CCommandBarComboBox::Number(const wchar_t* name) {
  using Self = CCommandBarComboBox;
  return Property(
      name, [](Self& self) { return self.*number; },
      [](Self& self, const CArguments& arguments) {
        const long value = arguments.Long(0);
        if (value < least || value > most) throw CModelError(E_INVALIDARG);
        self.*number = value;
        self.Bar()->Changed();
      });
}

const CMemberTable& CCommandBarComboBox::Members() {
  using Self = CCommandBarComboBox;
  static const CMemberTable table(
      "CommandBarComboBox", L"_CommandBarComboBox", &ControlMembers(),
      {Method<&Self::AddItem>(L"AddItem", 1), Method<&Self::Clear>(L"Clear"),
       Number<&Self::m_dropDownWidth, -1, LONG_MAX>(L"DropDownWidth"),
       Property(
           L"ListIndex", [](Self& self) { return self.m_listIndex; },
           [](Self& self, const CArguments& arguments) { self.SetListIndex(arguments); }),
       Number<&Self::m_style, 0, kStyleLabel>(L"Style"),
       Property(
           L"Text", [](Self& self) { return self.m_text; },
           [](Self& self, const CArguments& arguments) { self.SetText(arguments); })},
      {L"_CommandBarComboBoxEvents"});
  return table;
}

}  // namespace quor::workbench
