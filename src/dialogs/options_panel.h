#ifndef QUOR_DIALOGS_OPTIONS_PANEL_H
#define QUOR_DIALOGS_OPTIONS_PANEL_H

#include "dialogs/dialog_window.h"
#include "dialogs/options_store.h"
#include "resources/resource_ids.h"

namespace quor {

// Receives the user's actions on the panel. Called inside a boundary: exceptions are allowed.
class IOptionsPanelOwner {
 public:
  // The user changed a value; see IsDirty.
  virtual void OnOptionsChanged() = 0;
  virtual void OnAboutPressed() = 0;
  // One of the panel's controls received the focus.
  virtual void OnPanelFocus() {}

 protected:
  ~IOptionsPanelOwner() = default;
};

// The options as a child window: interface language, pop-up mode per line and cell, whether calls
// are recorded in the journal, "About...". Used in Outlook's options dialog and in our own. If the
// window is destroyed and created again, the user's choices are kept.
class COptionsPanel final : public CDialogWindow {
 public:
  // All must outlive the panel. A parent whose size does not depend on the user's font limits the
  // font to `mostPoints`.
  COptionsPanel(const DialogHost& host, IOptionsPanelOwner& owner,
                uint16_t mostPoints = UINT16_MAX) noexcept
      : CDialogWindow(host, IDD_OPTIONS_PANEL, mostPoints), m_owner(owner) {}
  ~COptionsPanel() { Destroy(); }

  // Creates the window hidden, in the parent's upper left corner and in front of its other
  // children. Throws _com_error.
  void Create(HWND parent);
  void FocusFirst() noexcept;

  // Shows these values; the panel is not dirty then. A value outside the choices is shown as the
  // choice that it is treated as, and is kept unless the user chooses another.
  void Load(const OptionValues& values);
  OptionValues Values() const noexcept;
  // `current` with the changes that the user has made since Load; other changes to the settings are
  // kept.
  OptionValues ValuesOver(OptionValues current) const noexcept;
  // Whether the values differ from those loaded last.
  bool IsDirty() const noexcept { return Values() != m_loaded; }

  // For containers that do not call IsDialogMessage. True if the panel used the keyboard message.
  // Enter, Esc and a Tab out of the panel are left to the container unless one of our controls
  // wants them.
  bool TranslateKey(MSG& message) noexcept;

 private:
  INT_PTR Handle(UINT message, WPARAM wparam) override;
  bool OnNotice(int control, int notice);

  void FillList(int id, int firstText, int rows);
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
