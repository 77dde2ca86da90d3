#ifndef QUOR_WORKBENCH_HOST_OFFICE_FACE_H
#define QUOR_WORKBENCH_HOST_OFFICE_FACE_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/commandbars/command_bars.h"
#include "workbench/office/outlook.h"
#include "workbench/ribbon/ribbon_view.h"
#include "workbench/ui/outlook_window.h"

namespace quor::workbench {

// The faces of Outlook's windows: for each explorer and inspector its command bars or its ribbon,
// as the version has them, and a real window for those who look for one.
class COfficeFace final : public IOutlookFace {
 public:
  // `askRibbon` is called when a window is about to show a ribbon that the add-in was not asked
  // for. Windows that are not `painted` cost nothing to change and stay blank on the screen.
  COfficeFace(int version, bool painted,
              std::function<void(const std::string& ribbonId)> askRibbon);
  ~COfficeFace();
  COfficeFace(const COfficeFace&) = delete;
  COfficeFace& operator=(const COfficeFace&) = delete;

  // Before the first window opens; the session is made with the face in its hand. The panel is
  // shown in explorers; null for none.
  void Attach(CSession& session, IBasePanel* panel) {
    m_session = &session;
    m_panel = panel;
  }

  // The add-in's document for a ribbon; `callbacks` answers for it.
  void LoadRibbon(const std::string& ribbonId, const std::string& document, IUnknown* callbacks);
  // The add-in goes.
  void UnloadRibbons();
  // What real Office would say of the ribbon documents and callbacks when told to show errors.
  std::vector<std::string> RibbonMessages() const;

  // Asks what the add-in has invalidated, and draws the windows in which that was anything.
  void DrawStale();
  // Draws what is stale and says what the ribbons cost since the last time.
  RibbonFigures TakeRibbonFigures();

  // Pictures of the window as it would look, with or without a screen.
  void RenderToPng(CWindowObject* window, const std::wstring& path, const PictureLook& look);
  // Leaves a menu open, so that a picture shows it; an empty path closes all.
  void OpenMenu(CWindowObject* window, const std::vector<std::wstring>& path);

  // The ribbons ask for every image again.
  void ForgetImages();

  // From now on, in every main window.
  void ShowCalendarAsTable(bool table);

  // The controls of an explorer (null: the first) or of an inspector.
  std::vector<ControlFace> Controls(CWindowObject* window);
  void Click(CWindowObject* window, const std::vector<std::wstring>& path);
  void DeleteControl(const std::vector<std::wstring>& path);
  void EnterText(CWindowObject* window, const std::wstring& control, const std::wstring& text);
  void PickEntry(CWindowObject* window, const std::wstring& control, const std::wstring& entry);

  IDispatch* CommandBarsOf(CExplorer& explorer) override;
  IDispatch* CommandBarsOf(CInspector& inspector) override;
  HWND WindowOf(CExplorer& explorer) override;
  HWND WindowOf(CInspector& inspector) override;
  void OnShown(CExplorer& explorer) override;
  void OnShown(CInspector& inspector) override;
  void OnClosed(CExplorer& explorer) override;
  void OnClosed(CInspector& inspector) override;
  void OnChanged() override;

 private:
  struct WindowParts {
    CWindowObject* object = nullptr;
    bool isExplorer = false;
    CModelPtr<CCommandBars> bars;
    std::unique_ptr<CRibbonView> ribbon;
    std::unique_ptr<COutlookWindow> window;
  };
  // Whoever acts on a window holds its parts: a callback of the add-in's may close it.
  using PartsPtr = std::shared_ptr<WindowParts>;

  PartsPtr PartsOf(CExplorer& explorer);
  PartsPtr PartsOf(CInspector& inspector);
  PartsPtr FindKnown(const CWindowObject& window);
  PartsPtr NewParts(CWindowObject& window, bool isExplorer);
  PartsPtr Find(CWindowObject* window);
  void Show(WindowParts& parts);
  void OpenRibbon(WindowParts& parts);
  void Close(CWindowObject& window);

  int m_version;
  bool m_painted;
  CSession* m_session = nullptr;
  IBasePanel* m_panel = nullptr;
  std::function<void(const std::string&)> m_askRibbon;
  std::shared_ptr<CControlRegistry> m_registry = std::make_shared<CControlRegistry>();
  std::unique_ptr<CRibbonHost> m_explorerRibbon;
  std::unique_ptr<CRibbonHost> m_contactRibbon;
  bool m_contactRibbonAsked = false;
  bool m_calendarAsTable = false;
  std::vector<PartsPtr> m_windows;
};

}  // namespace quor::workbench

#endif
