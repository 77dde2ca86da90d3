#ifndef QUOR_WORKBENCH_UI_MAIN_WINDOW_H
#define QUOR_WORKBENCH_UI_MAIN_WINDOW_H

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "workbench/ui/painter.h"
#include "workbench/ui/window_face.h"

namespace quor::workbench {

struct WindowOptions {
  int scale = 100;   // per cent: 100, 150, 200
  int width = 1180;  // of the client area, pixels at 100 %
  int height = 700;
  int left = CW_USEDEFAULT;  // on the screen
  int top = CW_USEDEFAULT;
  bool painted = true;  // false: nothing is drawn on the screen, but pictures are
};

// A window of the stand-in Outlook, of class rctrl_renwnd32, explorer or inspector. Draws its
// content and turns mouse and keyboard input into the content's actions.
class CMainWindow {
 public:
  // `content` must outlive the window. Throws std::runtime_error if the window cannot be created.
  CMainWindow(IWindowContent& content, const WindowOptions& options);
  ~CMainWindow();
  CMainWindow(const CMainWindow&) = delete;
  CMainWindow& operator=(const CMainWindow&) = delete;

  HWND Handle() const noexcept { return m_window; }
  void Show();
  void Redraw();  // redraws when messages are handled; may be called often

  // Opens menus, or a combo box's list, as the user does: each handle inside the previous one. They
  // stay open until the next click.
  void OpenMenus(std::vector<int> handles);
  void CloseMenus();

  // Draws the window with its title bar into a file, with or without a screen; scale in per cent.
  // Throws std::runtime_error if the file cannot be written.
  void RenderToPng(const std::wstring& path, int scale);

 private:
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void Paint();
  bool Try(const std::function<void()>& action);
  const HitArea* HitAt(int x, int y) const noexcept;
  void Act(const HitArea& hit);
  void ActOnMenu(const HitArea& hit);
  void OnClick(int x, int y);
  void OnDoubleClick(int x, int y);
  void OnPointed(int x, int y);
  // The keyboard's way through the window: Alt or F10 begins it, Tab and the arrows move on, Enter
  // acts, Esc leads back.
  bool OnKey(WPARAM key);  // false: not a key of ours
  void OnArrow(WPARAM key);
  std::vector<HitArea> Stops() const;
  void MoveFocus(int step, bool inside);
  void ActOnFocus();
  void LeaveMenu();
  void PaintFocus(CCanvas& canvas);
  void BeginEdit(const HitArea& hit);
  bool EndEdit(bool commit);  // false: the window was destroyed
  static LRESULT CALLBACK EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR id, DWORD_PTR self);
  SceneOptions Scene(bool withTitleBar) const;

  IWindowContent& m_content;
  const WindowOptions m_options;
  HWND m_window = nullptr;
  struct FontDeleter {
    using pointer = HFONT;
    void operator()(HFONT font) const noexcept { DeleteObject(font); }
  };
  HWND m_edit = nullptr;
  std::unique_ptr<HFONT, FontDeleter> m_editFont;
  int m_editHandle = 0;
  std::vector<int> m_open;
  std::vector<HitArea> m_hits;     // of the last painting
  std::optional<HitArea> m_focus;  // where the keyboard is
  int m_pointed = -1;              // the panel's button under the mouse, or -1
  std::shared_ptr<int> m_life = std::make_shared<int>(0);
  std::wstring m_notice;  // why the last action failed
};

}  // namespace quor::workbench

#endif
