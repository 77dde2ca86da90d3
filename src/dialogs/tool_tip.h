#ifndef QUOR_DIALOGS_TOOL_TIP_H
#define QUOR_DIALOGS_TOOL_TIP_H

#include <windows.h>

#include <string>

namespace quor {

// The tooltip of one control of a dialog. Its window is made for the first text and goes with the
// dialog.
class CToolTip {
 public:
  // A control of a new dialog.
  void Attach(HWND control) noexcept;
  // Lines end in "\r\n". An empty text is not shown.
  void SetText(const std::wstring& text) noexcept;
  // Takes the text off the screen.
  void Hide() noexcept;

 private:
  HWND m_control = nullptr;
  HWND m_window = nullptr;
};

}  // namespace quor

#endif
