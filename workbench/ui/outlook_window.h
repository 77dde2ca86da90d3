#ifndef QUOR_WORKBENCH_UI_OUTLOOK_WINDOW_H
#define QUOR_WORKBENCH_UI_OUTLOOK_WINDOW_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/commandbars/command_bars.h"
#include "workbench/office/outlook.h"
#include "workbench/ribbon/ribbon_view.h"
#include "workbench/ui/main_window.h"

namespace quor::workbench {

// Where Outlook shows items of this type.
Module ModuleOf(ItemType type);

// The simulated base in the panel at the right edge of an explorer.
class IBasePanel {
 public:
  virtual PanelFace Face() = 0;
  virtual void Press(int button) = 0;

 protected:
  ~IBasePanel() = default;
};

// How to draw a picture of a window, independently of the window itself.
struct PictureLook {
  int scale = 100;  // per cent
  Theme theme = Theme::Light;
};

struct OutlookWindowOptions {
  WindowOptions window;
  Skin skin = Skin::Ribbon;
};

// The real window of an explorer or inspector. Shows the object model, the command bars and the
// ribbon, and passes the user's clicks to them. Destroy it when the object is closed. Code that
// calls it must hold it: a callback of the add-in may close the window.
class COutlookWindow final : IWindowContent {
 public:
  COutlookWindow(CSession& session, CWindowObject& object, CModelPtr<CCommandBars> bars,
                 const OutlookWindowOptions& options);
  ~COutlookWindow();
  COutlookWindow(const COutlookWindow&) = delete;
  COutlookWindow& operator=(const COutlookWindow&) = delete;

  CWindowObject& Object() const noexcept { return m_object; }
  CCommandBars& Bars() const noexcept { return *m_bars; }
  // The ribbon, which a callback may remove while it is used; null: none.
  std::shared_ptr<CRibbonView> Ribbon() const noexcept { return m_ribbon; }
  void SetRibbon(std::shared_ptr<CRibbonView> ribbon);
  void SetPanel(IBasePanel* panel);

  HWND Handle() const noexcept { return m_window.Handle(); }
  void Show() { m_window.Show(); }
  void Redraw() { m_window.Redraw(); }
  // Opens a menu with the menus that lead to it, or a combo box's list; names as in FindFace
  // (face.h). Throws CUserActionError if there is none.
  void OpenMenu(const std::vector<std::wstring>& path);
  void CloseMenus() { m_window.CloseMenus(); }
  void RenderToPng(const std::wstring& path, const PictureLook& look);

  // The add-in's controls.
  std::vector<ControlFace> Controls() const;
  // The user's actions on a control, which is named by a path or its handle; see CCommandBars.
  template <class Control>
  void Click(const Control& control) {
    OnControls([&](auto& controls) { controls.Click(control); });
  }
  template <class Control>
  void Enter(const Control& control, const std::wstring& text) {
    OnControls([&](auto& controls) { controls.EnterText(control, text); });
  }
  template <class Control, class Entry>
  void Pick(const Control& control, const Entry& entry) {
    OnControls([&](auto& controls) { controls.PickEntry(control, entry); });
  }

 private:
  WindowFace Face() override;
  std::vector<ControlFace> MenuItems(int handle) override;
  void ClickControl(int handle) override { Click(handle); }
  void EnterText(int handle, const std::wstring& text) override { Enter(handle, text); }
  void PickEntry(int handle, size_t entry) override { Pick(handle, entry); }
  void SelectFolder(size_t row) override;
  void SelectRow(size_t row) override;
  void OpenRow(size_t row) override;
  void PressPanelButton(int id) override;
  void Close() override;

  void FillFolders(WindowFace& face);
  void AddFolder(WindowFace& face, FolderNode& folder, int depth);
  void FillItems(WindowFace& face);
  // `textOf` returns a property of the item.
  void FillCard(WindowFace& face, const std::wstring& name,
                const std::function<std::wstring(DISPID)>& textOf);
  // Calls the action for the ribbon or the command bars, whichever the window has.
  template <class Action>
  auto OnControls(Action action) const {
    if (const auto ribbon = m_ribbon) return action(*ribbon);
    const CModelPtr<CCommandBars> bars = m_bars;
    return action(*bars);
  }

  CSession& m_session;
  CWindowObject& m_object;
  CExplorer* const m_explorer;  // one of the two
  CInspector* const m_inspector;
  const CModelPtr<CCommandBars> m_bars;
  std::shared_ptr<CRibbonView> m_ribbon;
  IBasePanel* m_panel = nullptr;
  const OutlookWindowOptions m_options;
  Theme m_theme = Theme::Light;
  std::vector<FolderNode*> m_folders;  // as shown
  std::vector<StoredItemPtr> m_items;
  CMainWindow m_window;
};

}  // namespace quor::workbench

#endif
