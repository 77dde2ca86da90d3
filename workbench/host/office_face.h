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

// The appearance of Outlook's windows: for each explorer and inspector the version's command bars
// or ribbon, and a real window for code that searches for one.
class COfficeFace final : public IOutlookFace {
 public:
  // `askRibbon` is called when a window first shows a ribbon that the add-in was not asked for.
  // Unless `painted`, windows stay blank on the screen and changes to them cost nothing.
  COfficeFace(int version, bool painted,
              std::function<void(const std::string& ribbonId)> askRibbon);
  ~COfficeFace();
  COfficeFace(const COfficeFace&) = delete;
  COfficeFace& operator=(const COfficeFace&) = delete;

  // Call before the first window opens; the session's constructor needs this object. Explorers show
  // the panel; null for none.
  void Attach(CSession& session, IBasePanel* panel) {
    m_session = &session;
    m_panel = panel;
  }

  // The add-in's document for a ribbon; `callbacks` has its callbacks.
  void LoadRibbon(const std::string& ribbonId, const std::string& document, IUnknown* callbacks);
  // The add-in is about to end.
  void UnloadRibbons();

  // Queries invalidated values again and redraws the windows that show them.
  void DrawStale();
  // The same; returns the ribbons' cost since the last call.
  RibbonFigures TakeRibbonFigures();

  // Makes the ribbons query every image again.
  void ForgetImages();

  // Applies to all main windows from now on.
  void ShowCalendarAsTable(bool table);

  using WindowPtr = std::shared_ptr<COutlookWindow>;
  // The window of an explorer (null: the first) or inspector. Throws CScenarioError if it is not
  // open.
  WindowPtr Find(CWindowObject* window) const;

  IDispatch* CommandBarsOf(CWindowObject& window) override { return &Open(window)->Bars(); }
  HWND WindowOf(CWindowObject& window) override { return Open(window)->Handle(); }
  void OnShown(CWindowObject& window) override;
  void OnClosed(CWindowObject& window) override;
  void OnChanged() override;

 private:
  // The object's window, which is created at the first call.
  WindowPtr Open(CWindowObject& window);
  WindowOptions InspectorPlace() const;
  void OpenRibbon(COutlookWindow& window);
  void Update(COutlookWindow& window);

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
  std::vector<WindowPtr> m_windows;
};

}  // namespace quor::workbench

#endif
