#ifndef QUOR_WORKBENCH_HOST_WINDOW_LISTS_H
#define QUOR_WORKBENCH_HOST_WINDOW_LISTS_H

#include <windows.h>

#include <vector>

namespace quor::workbench {

// The top-level windows of this thread, from the front to the back.
std::vector<HWND> ThreadWindows();

// All descendants of a window in tab order.
std::vector<HWND> DescendantsOf(HWND window);

// The module that created the window.
HMODULE CreatorOf(HWND window);

}  // namespace quor::workbench

#endif
