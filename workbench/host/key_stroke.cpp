#include "workbench/host/key_stroke.h"

#include "workbench/office/value.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr BYTE kDown = 0x80;
constexpr LPARAM kContextCode = 1 << 29;  // Alt is held down
constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001u);

WPARAM VirtualKey(const std::string& name) {
  const struct {
    const char* name;
    WPARAM key;
  } keys[] = {{"Tab", VK_TAB},       {"Enter", VK_RETURN}, {"Esc", VK_ESCAPE},
              {"Space", VK_SPACE},   {"Up", VK_UP},        {"Down", VK_DOWN},
              {"Left", VK_LEFT},     {"Right", VK_RIGHT},  {"Home", VK_HOME},
              {"End", VK_END},       {"F4", VK_F4},        {"Delete", VK_DELETE},
              {"Backspace", VK_BACK}};
  for (const auto& [known, key] : keys) {
    if (name == known) return key;
  }
  return 0;
}

}  // namespace

CKeyStroke::CKeyStroke(const std::string& key) {
  GetKeyboardState(m_before.data());
  std::string rest = key;
  for (size_t plus = rest.find('+');
       plus != std::string::npos && plus > 0 && plus + 1 < rest.size(); plus = rest.find('+')) {
    HoldDown(rest.substr(0, plus));
    rest.erase(0, plus + 1);
  }
  m_virtualKey = VirtualKey(rest);
  if (m_virtualKey == 0) m_text = WideFromUtf8(rest);
}

CKeyStroke::~CKeyStroke() {
  SetKeyboardState(m_before.data());
}

void CKeyStroke::HoldDown(const std::string& modifier) {
  std::array<BYTE, 256> state = {};
  GetKeyboardState(state.data());
  if (modifier == "Alt") {
    m_alt = true;
    state[VK_MENU] = kDown;
  } else if (modifier == "Shift") {
    state[VK_SHIFT] = kDown;
  } else if (modifier == "Ctrl") {
    state[VK_CONTROL] = kDown;
  } else {
    throw CScenarioError("\"" + modifier + "\" is not Alt, Shift or Ctrl");
  }
  SetKeyboardState(state.data());
}

void CKeyStroke::Post() const {
  const HWND focus = GetFocus();
  if (m_virtualKey != 0) {
    const LPARAM context = m_alt ? kContextCode : 0;
    PostMessageW(focus, m_alt ? WM_SYSKEYDOWN : WM_KEYDOWN, m_virtualKey, 1 | context);
    PostMessageW(focus, m_alt ? WM_SYSKEYUP : WM_KEYUP, m_virtualKey, kReleased | context);
    return;
  }
  for (const wchar_t character : m_text) {
    PostMessageW(focus, m_alt ? WM_SYSCHAR : WM_CHAR, character, m_alt ? kContextCode : 1);
  }
}

}  // namespace quor::workbench
