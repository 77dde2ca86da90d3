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
class CScreenStage final : public IScreenStage {
 public:
  CScreenStage(COutlook& outlook, COfficeFace& face, CAddInHost& host, COptionsWindow& options,
               std::string pictureFolder);

  std::vector<ControlView> Controls(const std::string& inspector) override;
  void Click(const std::string& inspector, const std::vector<std::string>& path) override;
  void DeleteControl(const std::vector<std::string>& path) override;
  void Type(const std::string& control, const std::string& text) override;
  void Pick(const std::string& control, const std::string& item) override;
  void ShowCalendarAsTable(bool table) override { m_face.ShowCalendarAsTable(table); }
  void OpenOptions() override;
  std::vector<WindowView> Windows() override;
  std::string AccessibleName(const std::string& title) override {
    return AccessibleNameOf(FindByTitle(AllWindows(), title));
  }
  void PointAt(const std::string& title, const std::string& text) override;
  ExplainedText Explanation(const std::string& title, const std::string& text) override;
  void Press(const std::string& title, const std::string& button) override {
    PressButton(AllWindows(), title, button);
  }
  void Enter(const std::string& title, int field, const std::string& text) override {
    EnterText(AllWindows(), title, field, text);
  }
  void PressKey(const std::string& title, const std::string& key) override;
  void CloseWindow(const std::string& title) override { CloseByUser(AllWindows(), title); }
  std::string Screenshot(const std::string& name, const std::string& title) override;
  std::string Picture(const PictureOrder& order) override;

 private:
  static constexpr int kUsualScale = 100;  // per cent

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
