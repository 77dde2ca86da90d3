#ifndef QUOR_DIALOGS_TOOL_TIP_H
#define QUOR_DIALOGS_TOOL_TIP_H

#include <windows.h>

#include <string>

namespace quor {

// The tooltip of one control of a dialog. Its window is created for the first text and destroyed
// with the dialog.
class CToolTip {
 public:
  // Call once for each new dialog.
  void Attach(HWND control) noexcept;
  // Lines end in "\r\n". An empty text is not shown.
  void SetText(const std::wstring& text) noexcept;
  // Call after the control has moved or its size has changed.
  void Place() noexcept;
  // Hides the tooltip if it is shown.
  void Hide() noexcept;

 private:
  HWND m_control = nullptr;
  HWND m_window = nullptr;
};

}  // namespace quor

#endif
