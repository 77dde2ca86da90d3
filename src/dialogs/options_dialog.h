#ifndef QUOR_DIALOGS_OPTIONS_DIALOG_H
#define QUOR_DIALOGS_OPTIONS_DIALOG_H

#include "dialogs/modeless_dialog.h"
#include "dialogs/options_panel.h"

namespace quor {

// The options in a window of their own with OK, Cancel and Apply, opened by the toolbar's button.
class COptionsDialog final : public CModelessDialog, private IOptionsPanelOwner {
 public:
  // All must outlive the window.
  COptionsDialog(const DialogHost& host, IOptionsStore& store) noexcept;

  // Shows the window with the stored values. If it is already open, brings it to the front with the
  // user's changes so far. The owner is Outlook's main window, or null.
  void Open(HWND outlook) noexcept;

 private:
  void OnCreated() override;
  void OnButton(int id) override;
  void OnOptionsChanged() override;
  void OnAboutPressed() override;

  void Load(const OptionValues& values);
  void Apply();

  IOptionsStore& m_store;
  COptionsPanel m_panel;
};

}  // namespace quor

#endif
