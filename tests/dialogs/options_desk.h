#ifndef QUOR_TESTS_DIALOGS_OPTIONS_DESK_H
#define QUOR_TESTS_DIALOGS_OPTIONS_DESK_H

#include <windows.h>

#include <vector>

#include "dialogs/options_store.h"

namespace quor {

// A store that keeps applied values and records its calls.
struct COptionsDesk final : IOptionsStore {
  OptionValues Load() override { return stored; }
  OptionValues Reload() override { return Load(); }
  void Apply(const OptionValues& values) override {
    if (refuses) throw 1;
    stored = values;
    applied.push_back(values);
  }
  void ShowAbout(HWND owner) override { abouts.push_back(owner); }

  OptionValues stored = {kEnglish, {1, 1, 1, 1, 1, 1}};
  std::vector<OptionValues> applied;
  std::vector<HWND> abouts;
  bool refuses = false;
};

// Finds a control of the window or of a panel inside it.
inline HWND FindControl(HWND window, int id) {
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(child) == id) return child;
    if (HWND found = FindControl(child, id)) return found;
  }
  return nullptr;
}

// Selects a row of a list, as the user does.
inline void Choose(HWND list, int row) {
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  const WPARAM notification = MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE);
  SendMessageW(GetParent(list), WM_COMMAND, notification, reinterpret_cast<LPARAM>(list));
}

}  // namespace quor

#endif
