#ifndef QUOR_DIALOGS_OPTIONS_PANEL_H
#define QUOR_DIALOGS_OPTIONS_PANEL_H

#include "dialogs/dialog_window.h"
#include "dialogs/options_store.h"
#include "resources/resource_ids.h"

namespace quor {

// Told what the user does on the panel. Called inside a boundary: throwing is allowed.
class IOptionsPanelOwner {
 public:
  // The user chose something; ask IsDirty.
  virtual void OnOptionsChanged() = 0;
  virtual void OnAboutPressed() = 0;
  // The keyboard has come to one of the panel's controls.
  virtual void OnPanelFocus() {}

 protected:
  ~IOptionsPanelOwner() = default;
};

// The options as a child window: interface language, pop-up mode per line and cell, whether
// calls are recorded in the journal, "About...". It
// stands in Outlook's options dialog and in our own alike. Where the object outlives its window and
// makes it anew, what the user chose is kept.
class COptionsPanel final : public CDialogWindow {
 public:
  // All must outlive the panel.
  COptionsPanel(const DialogHost& host, IOptionsPanelOwner& owner) noexcept
      : CDialogWindow(host, IDD_OPTIONS_PANEL), m_owner(owner) {}
  ~COptionsPanel() { Destroy(); }

  // Creates the window, hidden, in the parent's upper left corner and in front of its other
  // children. Throws _com_error.
  void Create(HWND parent);
  void FocusFirst() noexcept;

  // From here on the panel holds these values and is not dirty. A value that is none of the choices
  // shows as what it means and comes back as it was unless the user chooses another.
  void Load(const OptionValues& values);
  OptionValues Values() const noexcept;
  // `current` with what the user has chosen here since the values were loaded: what was kept
  // elsewhere meanwhile stays.
  OptionValues ValuesOver(OptionValues current) const noexcept;
  // Whether the values differ from those last loaded.
  bool IsDirty() const noexcept { return Values() != m_loaded; }

  // A keyboard message of a container that knows no dialogs. True when the panel has used it;
  // Enter, Esc and a Tab that leaves the panel are the container's, unless a control of ours wants
  // them.
  bool TranslateKey(MSG& message) noexcept;

 private:
  INT_PTR Handle(UINT message, WPARAM wparam) override;
  bool OnNotice(int control, int notice);

  void FillList(int id, int firstText);
  void ShowValues() noexcept;
  LRESULT SelectedRow(int id) const noexcept;
  bool LeavesPanel(bool backwards) const noexcept;
  bool HasAccessKey(wchar_t letter) const noexcept;

  IOptionsPanelOwner& m_owner;
  OptionValues m_loaded;
  OptionValues m_withoutWindow;  // the values while there is no window
};

}  // namespace quor

#endif
