#ifndef QUOR_WORKBENCH_COMMANDBARS_COMBO_BOX_H
#define QUOR_WORKBENCH_COMMANDBARS_COMBO_BOX_H

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {

// A combo box. An edit box and a drop-down list have the same members.
class CCommandBarComboBox final : public CCommandBarControl {
 public:
  CCommandBarComboBox(CModel& model, std::shared_ptr<CControlRegistry> registry, CCommandBar& bar,
                      long type);

  ControlFace Face() const override;
  // The user's actions: types a text and presses Enter, or picks an entry (from 0). Both raise
  // Change at every sink of all combo boxes with the same id and tag.
  void EnterText(const std::wstring& text);
  void Pick(size_t entry);

 private:
  static const CMemberTable& Members();

  void AddItem(const CArguments& arguments);
  void Clear();
  void RemoveItem(const CArguments& arguments);
  std::wstring List(const CArguments& arguments) const;
  void SetList(const CArguments& arguments);
  long ListCount() const { return static_cast<long>(m_entries.size()); }
  long ListIndex() const { return m_listIndex; }
  void SetListIndex(const CArguments& arguments);
  std::wstring Text() const { return m_text; }
  void SetText(const CArguments& arguments);
  template <auto number>
  long Read() const {
    return this->*number;
  }
  template <auto number, long least, long most>
  void Write(const CArguments& arguments) {
    const long value = arguments.Long(0);
    if (value < least || value > most) throw CModelError(E_INVALIDARG);
    this->*number = value;
    Bar()->Changed();
  }

  size_t EntryFromOne(const CArguments& arguments, UINT index) const;
  void FollowText();
  void RaiseChange();

  std::vector<std::wstring> m_entries;
  std::wstring m_text;
  long m_listIndex = 0;  // from 1; 0: none
  long m_dropDownLines = 0;
  long m_dropDownWidth = 0;
  long m_headerCount = -1;
  long m_style = 0;
};

}  // namespace quor::workbench

#endif
