#ifndef QUOR_WORKBENCH_COMMANDBARS_COMBO_BOX_H
#define QUOR_WORKBENCH_COMMANDBARS_COMBO_BOX_H

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {

class CCommandBarComboBox final : public CCommandBarControl {
 public:
  CCommandBarComboBox(CModel& model, std::shared_ptr<CControlRegistry> registry, CCommandBar& bar);

  ControlFace Face() const override;
  // The user's actions: types a text and presses Enter, or picks an entry (from 0). Both raise
  // Change at every sink of all combo boxes with the same id and tag.
  void EnterText(const std::wstring& text);
  void Pick(size_t entry);

 private:
  static const CMemberTable& Members();

  void AddItem(const CArguments& arguments);
  void Clear();
  void SetListIndex(const CArguments& arguments);
  void SetText(const CArguments& arguments);
  template <auto number, long least, long most>
  static Member Number(const wchar_t* name);

  void FollowText();
  void RaiseChange();

  std::vector<std::wstring> m_entries;
  std::wstring m_text;
  long m_listIndex = 0;  // from 1; 0: none
  long m_dropDownWidth = 0;
  long m_style = 0;
};

}  // namespace quor::workbench

#endif
