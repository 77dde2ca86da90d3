#ifndef QUOR_WORKBENCH_HOST_OPTIONS_WINDOW_H
#define QUOR_WORKBENCH_HOST_OPTIONS_WINDOW_H

#include <memory>
#include <vector>

#include "workbench/host/message_loop.h"
#include "workbench/host/options_page.h"
#include "workbench/office/outlook.h"

namespace quor::workbench {

// Outlook's options dialog, "Outlook Options", with the add-ins' pages as tabs and OK, Cancel and
// Apply below. Like a modal dialog it disables Outlook's main window, but it has no message loop,
// so that the scenario stays in control of time.
class COptionsWindow final : private IPageFrame {
 public:
  COptionsWindow(COutlook& outlook, CMessageLoop& loop);
  ~COptionsWindow();
  COptionsWindow(const COptionsWindow&) = delete;
  COptionsWindow& operator=(const COptionsWindow&) = delete;

  // Asks the add-ins for their pages and shows the first one. Throws CModelError if a page cannot
  // be shown, CMailboxError if the dialog is already open.
  void Open(HWND owner);
  // Closes like Cancel; does nothing if it is not open.
  void Close() noexcept;
  HWND Window() const noexcept { return m_window; }

 private:
  HWND FrameWindow() override { return m_window; }
  RECT PagePlace() override;
  void OnPageStatus() override;
  void SetActivePage(IOleInPlaceActiveObject* page) override;

  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  bool OnCommand(int id);
  bool TakesKey(MSG& message);
  void AddPages();
  void ShowChosenPage();
  void Apply();

  COutlook& m_outlook;
  CMessageLoop& m_loop;
  HWND m_owner = nullptr;
  HWND m_window = nullptr;
  std::vector<std::unique_ptr<COptionsPage>> m_pages;
  size_t m_shown = 0;
  IOleInPlaceActiveObject* m_activePage = nullptr;
};

}  // namespace quor::workbench

#endif
