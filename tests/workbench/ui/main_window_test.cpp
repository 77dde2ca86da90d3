#include "workbench/ui/main_window.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

namespace quor::workbench {
namespace {

// A toolbar with a button (1), a menu (2) that contains a button (3), and a combo box (4).
class CContent final : public IWindowContent {
 public:
  CContent() {
    ControlFace button;
    button.handle = 1;
    button.caption = L"Button";
    ControlFace menu = button;
    menu.kind = ControlKind::Menu;
    menu.handle = 2;
    ControlFace combo = button;
    combo.kind = ControlKind::ComboBox;
    combo.handle = 4;
    combo.entries = {L"111"};
    combo.showsCaption = false;
    BarFace bar;
    bar.visible = true;
    bar.controls = {button, menu, combo};
    face.title = L"A window";
    face.skin = Skin::Toolbars;
    face.bars = {bar};
  }

  WindowFace face;
  std::vector<std::string> done;
  std::function<void()> onClick;

  WindowFace Face() override { return face; }
  std::vector<ControlFace> MenuItems(int) override {
    ControlFace item;
    item.handle = 3;
    item.caption = L"Item";
    return {item};
  }
  void ClickControl(int handle) override {
    done.push_back("click " + std::to_string(handle));
    if (onClick) onClick();
  }
  void EnterText(int handle, const std::wstring& text) override {
    done.push_back("enter " + std::to_string(handle) + ' ' + std::to_string(text.size()));
  }
  void PickEntry(int handle, size_t entry) override {
    done.push_back("pick " + std::to_string(handle) + ' ' + std::to_string(entry));
  }
  void SelectFolder(size_t) override {}
  void SelectRow(size_t) override {}
  void OpenRow(size_t) override {}
  void PressPanelButton(int) override {}
  void Close() override { done.emplace_back("close"); }
};

class MainWindow : public testing::Test {
 protected:
  MainWindow() : m_window(std::make_unique<CMainWindow>(m_content, WindowOptions{})) {
    m_window->Show();
  }

  // Clicks where the painter drew the control.
  void Click(HitArea::Kind kind, int handle, std::vector<OpenPart> open = {}) {
    UpdateWindow(m_window->Handle());
    RECT client = {};
    GetClientRect(m_window->Handle(), &client);
    SceneOptions scene;
    scene.width = static_cast<int>(client.right);
    scene.height = static_cast<int>(client.bottom);
    scene.open = std::move(open);
    CCanvas canvas(scene.width, scene.height, 100);
    for (const HitArea& hit : PaintWindow(canvas, m_content.face, scene)) {
      if (hit.kind != kind || hit.handle != handle) continue;
      SendMessageW(m_window->Handle(), WM_LBUTTONDOWN, 0,
                   MAKELPARAM(hit.rect.x + hit.rect.width / 2, hit.rect.y + hit.rect.height / 2));
      return;
    }
    ADD_FAILURE() << "nothing to click";
  }
  static void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  CContent m_content;
  std::unique_ptr<CMainWindow> m_window;
};

TEST_F(MainWindow, HasOutlooksClassAndTitle) {
  wchar_t text[64] = {};
  GetClassNameW(m_window->Handle(), text, 64);
  EXPECT_STREQ(text, L"rctrl_renwnd32");
  GetWindowTextW(m_window->Handle(), text, 64);
  EXPECT_STREQ(text, L"A window");
  SendMessageW(m_window->Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(m_content.done, std::vector<std::string>{"close"});
  EXPECT_TRUE(IsWindow(m_window->Handle()));  // the content decides whether the window closes
}

TEST_F(MainWindow, ClicksReachButtonsMenuItemsAndLists) {
  Click(HitArea::Kind::Button, 1);
  Click(HitArea::Kind::Menu, 2);
  Click(HitArea::Kind::Button, 3, {{2, m_content.MenuItems(2)}});
  Click(HitArea::Kind::ComboArrow, 4);
  Click(HitArea::Kind::ComboEntry, 4, {{4, {}}});
  Click(HitArea::Kind::ComboText, 4);
  HWND field = FindWindowExW(m_window->Handle(), nullptr, L"EDIT", nullptr);
  SetWindowTextW(field, L"55512");
  SendMessageW(field, WM_KEYDOWN, VK_RETURN, 0);
  Pump();
  EXPECT_FALSE(IsWindow(field));
  EXPECT_EQ(m_content.done,
            (std::vector<std::string>{"click 1", "click 3", "pick 4 0", "enter 4 5"}));
}

TEST_F(MainWindow, KeysReachButtonsMenusAndLists) {
  const auto press = [this](HWND window, WPARAM key) {
    Pump();  // paints, too
    SendMessageW(window, WM_KEYDOWN, key, 0);
    Pump();
  };
  HWND window = m_window->Handle();
  press(window, VK_RETURN);  // nothing has the focus yet
  SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 0);
  press(window, VK_RETURN);
  press(window, VK_RIGHT);
  press(window, VK_DOWN);
  press(window, VK_ESCAPE);  // closes the menu only
  press(window, VK_DOWN);
  press(window, VK_RETURN);
  SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 0);
  press(window, VK_TAB);
  press(window, VK_TAB);
  HWND field = FindWindowExW(window, nullptr, L"EDIT", nullptr);
  press(field, VK_DOWN);
  press(window, VK_RETURN);
  EXPECT_EQ(m_content.done, (std::vector<std::string>{"click 1", "click 3", "pick 4 0"}));
}

TEST_F(MainWindow, AnActionMayFailOrDestroyTheWindow) {
  m_content.onClick = [] { throw CUserActionError("not now"); };
  Click(HitArea::Kind::Button, 1);
  m_content.onClick = [this] { m_window.reset(); };
  Click(HitArea::Kind::Button, 1);
  EXPECT_EQ(m_content.done.size(), 2u);
}

}  // namespace
}  // namespace quor::workbench
