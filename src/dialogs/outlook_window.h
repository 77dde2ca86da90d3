#ifndef QUOR_DIALOGS_OUTLOOK_WINDOW_H
#define QUOR_DIALOGS_OUTLOOK_WINDOW_H

#include <windows.h>

namespace quor {

// A window of Outlook on the calling thread, of class "rctrl_renwnd32": main windows and those of
// items are alike. One that is visible comes first. Null when there is none. Look it up when it is
// needed: windows come and go.
HWND FindOutlookWindow() noexcept;

}  // namespace quor

#endif
