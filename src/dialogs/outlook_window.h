#ifndef QUOR_DIALOGS_OUTLOOK_WINDOW_H
#define QUOR_DIALOGS_OUTLOOK_WINDOW_H

#include <windows.h>

namespace quor {

// A window of Outlook on the calling thread, of class "rctrl_renwnd32": a main window or an item's
// window, visible ones first. Null if there is none. Call it whenever a window is needed, because
// windows come and go.
HWND FindOutlookWindow() noexcept;

}  // namespace quor

#endif
