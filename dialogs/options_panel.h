#ifndef QUOR_DIALOGS_OPTIONS_PANEL_H
#define QUOR_DIALOGS_OPTIONS_PANEL_H

#include <windows.h>

#include <string_view>

#include "dialogs/options_store.h"
#include "dialogs/resource_loader.h"
#include "module/diagnostic_log.h"

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

// The options as a child window: interface language, pop-up mode per line and cell, "About...". It
// stands in Outlook's options dialog and in our own alike. The object may outlive its window and
// make it anew: what the user chose is kept.
class COptionsPanel {
 public:
  // All must outlive the panel.
  COptionsPanel(const CResourceLoader& resources, IOptionsPanelOwner& owner,
                CDiagnosticLog& log) noexcept
      : m_resources(resources), m_owner(owner), m_log(log) {}
  ~COptionsPanel() { Destroy(); }
  COptionsPanel(const COptionsPanel&) = delete;
  COptionsPanel& operator=(const COptionsPanel&) = delete;

  // Creates the window, hidden, in the parent's upper left corner and in front of its other
  // children. Throws _com_error.
  void Create(HWND parent);
  void Destroy() noexcept;
  HWND Window() const noexcept { return m_window; }
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
  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  INT_PTR Handle(UINT message, WPARAM wparam);
  bool OnNotice(int control, int notice);

  void FillList(int id, int firstText);
  void ShowValues() noexcept;
  LRESULT SelectedRow(int id) const noexcept;
  bool LeavesPanel(bool backwards) const noexcept;
  bool HasAccessKey(wchar_t letter) const noexcept;

  const CResourceLoader& m_resources;
  IOptionsPanelOwner& m_owner;
  CDiagnosticLog& m_log;
  HWND m_window = nullptr;
  OptionValues m_loaded;
  OptionValues m_withoutWindow;  // the values while there is no window
};

}  // namespace quor

#endif
