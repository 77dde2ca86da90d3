#ifndef QUOR_WORKBENCH_HOST_SCREEN_STAGE_H
#define QUOR_WORKBENCH_HOST_SCREEN_STAGE_H

#include <string>

#include "workbench/host/addin_host.h"
#include "workbench/host/addin_windows.h"
#include "workbench/host/office_face.h"
#include "workbench/host/options_window.h"
#include "workbench/host/screen_reader.h"
#include "workbench/office/outlook.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// A user's actions on toolbar, ribbon and the add-in's windows.
class CScreenStage final {
 public:
  CScreenStage(COutlook& outlook, COfficeFace& face, CAddInHost& host, COptionsWindow& options,
               std::string pictureFolder);

  // The controls of the main window, or of the inspector with the named item.
  std::vector<ControlView> Controls(const std::string& inspector);
  void Click(const std::string& inspector, const std::vector<std::string>& path);
  // The user removes a control from a command bar of the main window.
  void DeleteControl(const std::vector<std::string>& path);
  void Type(const std::string& control, const std::string& text);
  void Pick(const std::string& control, const std::string& item);
  void ShowCalendarAsTable(bool table) { m_face.ShowCalendarAsTable(table); }
  // Opens Outlook's options with the add-ins' pages.
  void OpenOptions();
  // Windows are named as for IsCalled.
  std::vector<WindowView> Windows();
  std::string AccessibleName(const std::string& title) {
    return AccessibleNameOf(FindByTitle(AllWindows(), title));
  }
  void PointAt(const std::string& title, const std::string& text);
  ExplainedText Explanation(const std::string& title, const std::string& text);
  void Press(const std::string& title, const std::string& button) {
    PressButton(AllWindows(), title, button);
  }
  void Enter(const std::string& title, int field, const std::string& text) {
    EnterText(AllWindows(), title, field, text);
  }
  // Sends and handles "Tab", "Shift+Tab", "Alt+l" or a typed text.
  void PressKey(const std::string& title, const std::string& key);
  void CloseWindow(const std::string& title) { CloseByUser(AllWindows(), title); }
  // A picture of the screen, or of one window with its tooltip. Returns the path; empty if there is
  // no screen.
  std::string Screenshot(const std::string& name, const std::string& title);
  // Draws a window of Outlook into a file, with or without a screen; returns the path.
  std::string Picture(const PictureOrder& order);

 private:
  static constexpr int kUsualScale = 100;  // per cent

  // A path whose first name may be a control's role.
  std::vector<std::wstring> Path(const std::string& inspector, std::vector<std::string> path);
  CWindowObject* InspectorOf(const std::string& name);
  // The window of the named item; of the first explorer if the name is empty.
  COfficeFace::WindowPtr WindowOf(const std::string& inspector);
  // The add-in's windows, and Outlook's options dialog with its page.
  std::vector<HWND> AllWindows() const;
  void ShowScale(int scale);
  std::string PicturePath(const std::string& name) const;

  COutlook& m_outlook;
  COfficeFace& m_face;
  CAddInHost& m_host;
  COptionsWindow& m_options;
  std::string m_pictureFolder;
  int m_scale = kUsualScale;
};

}  // namespace quor::workbench

#endif
