#include "dialogs/window_watch.h"

#include <memory>
#include <new>
#include <vector>

#include "module/module.h"

namespace quor {
namespace {

constexpr wchar_t kWatched[] = L"QuorTelephoneToolbarWatched";

struct WatchedWindow {
  WNDPROC procedure;
  std::vector<IWindowWatch*> watches;
};

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
  // The call may destroy the add-in and the watches; this code must stay loaded.
  const CModuleLock loaded;
  auto* watched = static_cast<WatchedWindow*>(GetPropW(window, kWatched));
  const WNDPROC procedure = watched->procedure;
  if (message == WM_NCDESTROY) {
    RemovePropW(window, kWatched);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    delete watched;
  } else {
    for (IWindowWatch* const watch : watched->watches) {
      if (const auto result = watch->OnMessage(window, message, wparam, lparam)) return *result;
    }
  }
  return CallWindowProcW(procedure, window, message, wparam, lparam);
}

void Watch(HWND window, IWindowWatch& watch) {
  if (auto* watched = static_cast<WatchedWindow*>(GetPropW(window, kWatched))) {
    watched->watches.push_back(&watch);
    return;
  }
  const LONG_PTR procedure = GetWindowLongPtrW(window, GWLP_WNDPROC);
  auto watched = std::make_unique<WatchedWindow>(
      WatchedWindow{reinterpret_cast<WNDPROC>(procedure), {&watch}});
  if (!SetPropW(window, kWatched, watched.get())) return;
  static_cast<void>(watched.release());  // kept by the window
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

}  // namespace

void WatchWindow(HWND window, IWindowWatch& watch) noexcept {
  try {
    Watch(window, watch);
  } catch (const std::bad_alloc&) {
    // As documented: the watch is not added.
  }
}

}  // namespace quor
