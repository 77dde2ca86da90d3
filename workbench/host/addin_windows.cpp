#include "workbench/host/addin_windows.h"

// clang-format off
#include <commctrl.h>
// clang-format on

#include <algorithm>

#include "workbench/host/window_lists.h"
#include "workbench/office/value.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

// The titles of a row of tabs, separated by bars.
std::string TabTitles(HWND tabs) {
  std::string titles;
  const LRESULT count = SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
  for (LRESULT tab = 0; tab < count; ++tab) {
    wchar_t title[256] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = title;
    item.cchTextMax = 256;
    SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    titles += (tab == 0 ? "" : "|") + Utf8FromWide(title);
  }
  return titles;
}

std::string TextOf(HWND window) {
  wchar_t text[1024] = {};
  GetWindowTextW(window, text, 1024);
  return Utf8FromWide(text);
}

std::string ClassOf(HWND window) {
  wchar_t name[256] = {};
  GetClassNameW(window, name, 256);
  return Utf8FromWide(name);
}

// The text without access-key marks.
std::string WithoutMarks(const std::string& text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '&' && i + 1 < text.size()) ++i;
    plain += text[i];
  }
  return plain;
}

void CheckUsable(HWND control, const std::string& name) {
  if (!IsWindowEnabled(control)) throw CScenarioError("\"" + name + "\" is disabled");
  if (!IsWindowVisible(control)) throw CScenarioError("\"" + name + "\" is not visible");
}

bool IsInputField(HWND control) {
  const std::string name = ClassOf(control);
  return name == "Edit" || name == "ComboBox";
}

// Whether the control is a list without an edit field.
bool IsChoice(HWND control) {
  return ClassOf(control) == "ComboBox" &&
         (GetWindowLongW(control, GWL_STYLE) & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST;
}

void Choose(HWND list, const std::wstring& entry) {
  const LRESULT row = SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                   reinterpret_cast<LPARAM>(entry.c_str()));
  if (row < 0) throw CScenarioError("the list has no \"" + Utf8FromWide(entry) + "\"");
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  SendMessageW(GetParent(list), WM_COMMAND,
               MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(list)), CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(list));
}

}  // namespace

HWND FindByTitle(const std::vector<HWND>& windows, const std::string& title) {
  HWND hidden = nullptr;
  for (const HWND window : windows) {
    if (!IsCalled(DescribeWindow(window), title)) continue;
    if (IsWindowVisible(window)) return window;
    hidden = window;
  }
  if (hidden) throw CScenarioError("the window \"" + title + "\" is hidden");
  throw CScenarioError("there is no window \"" + title + "\"");
}

HWND FindControl(const std::vector<HWND>& windows, const std::string& title,
                 const std::string& text) {
  for (const HWND child : DescendantsOf(FindByTitle(windows, title))) {
    if (WithoutMarks(TextOf(child)) == text) return child;
  }
  throw CScenarioError("\"" + title + "\" shows no \"" + text + "\"");
}

WindowView DescribeWindow(HWND window) {
  WindowView view;
  view.title = TextOf(window);
  view.className = ClassOf(window);
  view.visible = IsWindowVisible(window) != FALSE;
  for (const HWND child : DescendantsOf(window)) {
    const std::string written =
        ClassOf(child) == "SysTabControl32" ? TabTitles(child) : TextOf(child);
    const std::string text = IsInputField(child) ? written : WithoutMarks(written);
    view.texts.push_back(IsWindowEnabled(child) ? text : "[" + text + "]");
  }
  return view;
}

void PressButton(const std::vector<HWND>& windows, const std::string& title,
                 const std::string& button) {
  const HWND window = FindByTitle(windows, title);
  for (const HWND child : DescendantsOf(window)) {
    if (ClassOf(child) != "Button" || WithoutMarks(TextOf(child)) != button) continue;
    CheckUsable(child, button);
    // Posted like a real click: the handler may open a window and run its message loop.
    PostMessageW(child, BM_CLICK, 0, 0);
    return;
  }
  throw CScenarioError("\"" + title + "\" has no button \"" + button + "\"");
}

void EnterText(const std::vector<HWND>& windows, const std::string& title, int field,
               const std::string& text) {
  const HWND window = FindByTitle(windows, title);
  int number = 0;
  for (const HWND child : DescendantsOf(window)) {
    if (!IsInputField(child) || ++number != field) continue;
    CheckUsable(child, "field " + std::to_string(field));
    const std::wstring wide = WideFromUtf8(text);
    if (IsChoice(child)) return Choose(child, wide);
    SendMessageW(child, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    return;
  }
  throw CScenarioError("\"" + title + "\" has only " + std::to_string(number) + " input fields");
}

void ActivateByUser(const std::vector<HWND>& windows, const std::string& title) {
  const HWND window = FindByTitle(windows, title);
  if (GetActiveWindow() != window) SetForegroundWindow(window);
}

void CloseByUser(const std::vector<HWND>& windows, const std::string& title) {
  PostMessageW(FindByTitle(windows, title), WM_CLOSE, 0, 0);
}

}  // namespace quor::workbench
