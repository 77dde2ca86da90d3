#ifndef QUOR_ADDIN_MESSAGE_WINDOW_H
#define QUOR_ADDIN_MESSAGE_WINDOW_H

#include <unknwn.h>
#include <windows.h>

#include <cstdint>

#include "device/message_queue.h"
#include "module/diagnostic_log.h"

namespace quor {

// Runs the deferred contact scan: one tick per slice. Unsigned like every timer id, so that a
// 64-bit build does not sign-extend it.
inline constexpr UINT_PTR kDeferredTimer = 0x80000001u;
// One-shot: the selection in the main window has not changed for a while.
inline constexpr UINT_PTR kSelectionTimer = 0x80000003u;
// One-shot: ended calls wait to be written to the journal.
inline constexpr UINT_PTR kJournalTimer = 0x80000005u;

// Handles the hidden window's messages. Called inside a boundary: exceptions are allowed.
class IWindowHandler {
 public:
  virtual void OnDeviceEvent(DeviceEvent event, uint8_t lineType) = 0;
  virtual void OnRequest(WindowRequest request, uint32_t parameter) = 0;
  virtual void OnTimer(UINT_PTR timer) = 0;

 protected:
  ~IWindowHandler() = default;
};

// The hidden window, named "CAddin". Posted device events and requests, and the timers, arrive here
// on Outlook's thread.
class CMessageWindow final : public IMessageQueue {
 public:
  // `owner` is the object that contains this window. It is held while a message is handled, because
  // Outlook may release the add-in inside any call of a handler.
  CMessageWindow(IUnknown& owner, IWindowHandler& handler, CDiagnosticLog& log) noexcept
      : m_owner(owner), m_handler(handler), m_log(log) {}
  ~CMessageWindow() { Destroy(); }
  CMessageWindow(const CMessageWindow&) = delete;
  CMessageWindow& operator=(const CMessageWindow&) = delete;

  // Returns the Win32 error, or E_FAIL if there is none (for example without a desktop).
  HRESULT Create() noexcept;
  // Also ends the timers; drops queued messages.
  void Destroy() noexcept;

  bool PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept override;
  bool PostRequest(WindowRequest request, uint32_t parameter) noexcept override;

  bool StartTimer(UINT_PTR timer, UINT milliseconds) noexcept;
  void StopTimer(UINT_PTR timer) noexcept;

 private:
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  bool Dispatch(UINT message, WPARAM wparam, LPARAM lparam);

  IUnknown& m_owner;
  IWindowHandler& m_handler;
  CDiagnosticLog& m_log;
  HWND m_window = nullptr;
  UINT m_deviceMessage = 0;  // "WM_USBXpress_CP210x2ADDIN"
};

}  // namespace quor

#endif
