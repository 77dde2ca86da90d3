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
  Theme theme = Theme::Light;
};

// The real window of an explorer or inspector. Shows the object model, the command bars and the
// ribbon, and passes the user's clicks to them. Destroy it when the object is closed.
class COutlookWindow final : IWindowContent {
 public:
  COutlookWindow(CSession& session, CWindowObject& object, CCommandBars& bars,
                 const OutlookWindowOptions& options);
  ~COutlookWindow();
  COutlookWindow(const COutlookWindow&) = delete;
  COutlookWindow& operator=(const COutlookWindow&) = delete;

  // Sets the ribbon; null: none.
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

 private:
  WindowFace Face() override;
  std::vector<ControlFace> MenuItems(int handle) override;
  void ClickControl(int handle) override;
  void EnterText(int handle, const std::wstring& text) override;
  void PickEntry(int handle, size_t entry) override;
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
  std::vector<ControlFace> Controls() const;

  CSession& m_session;
  CWindowObject& m_object;
  CExplorer* const m_explorer;  // one of the two
  CInspector* const m_inspector;
  CCommandBars& m_bars;
  std::shared_ptr<CRibbonView> m_ribbon;  // held while it is called: a callback may remove it
  IBasePanel* m_panel = nullptr;
  const OutlookWindowOptions m_options;
  Theme m_theme;
  std::vector<FolderNode*> m_folders;  // as shown
  std::vector<StoredItemPtr> m_items;
  CMainWindow m_window;
};

}  // namespace quor::workbench

#endif
