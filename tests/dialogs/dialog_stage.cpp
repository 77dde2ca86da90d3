#include "tests/dialogs/dialog_stage.h"

namespace quor {

const std::vector<Language> kLanguages = {{"English", LANG_ENGLISH, SUBLANG_ENGLISH_US},
                                          {"French", LANG_FRENCH, SUBLANG_FRENCH},
                                          {"Spanish", LANG_SPANISH, SUBLANG_SPANISH_MODERN}};

CDialogStage::CDialogStage()
    : resources(GetModuleHandleW(nullptr)),
      log(lines),
      outlook(CreateWindowExW(0, L"STATIC", L"Outlook", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 50,
                              700, 600, nullptr, nullptr, nullptr, nullptr)) {
  log.SetEnabled(true);
}

CDialogStage::~CDialogStage() {
  CloseOutlook();
}

void CDialogStage::CloseOutlook() {
  if (outlook != nullptr) DestroyWindow(outlook);
  outlook = nullptr;
}

std::wstring TextOf(HWND window) {
  wchar_t text[256] = {};
  GetWindowTextW(window, text, 256);
  return text;
}

std::wstring TextOf(HWND dialog, int control) {
  return TextOf(GetDlgItem(dialog, control));
}

namespace {

struct Search {
  std::wstring caption;
  std::vector<HWND> found;
};

BOOL CALLBACK Collect(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t className[32] = {};
  GetClassNameW(window, className, 32);
  const bool isDialog = std::wstring(className) == L"#32770";
  if (isDialog && (search.caption.empty() || TextOf(window) == search.caption)) {
    search.found.push_back(window);
  }
  return TRUE;
}

void PostToFocus(UINT message, WPARAM wparam, LPARAM lparam) {
  PostMessageW(GetFocus(), message, wparam, lparam);
  RunLoop();
}

}  // namespace

std::vector<HWND> DialogsNamed(const std::wstring& caption) {
  Search search = {caption, {}};
  EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND VisibleDialog() {
  for (HWND dialog : DialogsNamed(L"")) {
    if (IsWindowVisible(dialog)) return dialog;
  }
  return nullptr;
}

HWND FindControl(HWND window, int id) {
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(child) == id) return child;
    if (HWND found = FindControl(child, id)) return found;
  }
  return nullptr;
}

void Choose(HWND list, int row) {
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  const WPARAM notification = MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE);
  SendMessageW(GetParent(list), WM_COMMAND, notification, reinterpret_cast<LPARAM>(list));
}

void RunLoop() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void PressKey(WPARAM key) {
  PostToFocus(WM_KEYDOWN, key, 1);
  PostToFocus(WM_KEYUP, key, 0xC0000001);
}

void PressAlt(wchar_t letter) {
  PostToFocus(WM_SYSCHAR, letter, 0x20000001);
}

}  // namespace quor
