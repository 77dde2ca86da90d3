#ifndef QUOR_ADDIN_MESSAGE_WINDOW_H
#define QUOR_ADDIN_MESSAGE_WINDOW_H

#include <unknwn.h>
#include <windows.h>

#include <cstdint>

#include "device/message_queue.h"
#include "module/diagnostic_log.h"

namespace quor {

// The deferred contacts build: its first slice, then one tick for each further slice. Unsigned,
// like every timer id, so that a 64-bit build does not sign-extend it.
inline constexpr UINT_PTR kDeferredTimer = 0x80000001u;
// One-shot: the selection in the main window has come to rest.
inline constexpr UINT_PTR kSelectionTimer = 0x80000003u;
// One-shot: calls that have ended wait to be written into the journal.
inline constexpr UINT_PTR kJournalTimer = 0x80000005u;

// What arrives at the hidden window. Called inside a boundary: throwing is allowed.
class IWindowHandler {
 public:
  virtual void OnDeviceEvent(DeviceEvent event, uint8_t lineType) = 0;
  virtual void OnRequest(WindowRequest request, uint32_t parameter) = 0;
  virtual void OnTimer(UINT_PTR timer) = 0;

 protected:
  ~IWindowHandler() = default;
};

// The hidden window, named "CAddin", through which everything asynchronous comes back to Outlook's
// own thread: posted device events and requests, and the timers.
class CMessageWindow final : public IMessageQueue {
 public:
  // `owner` is the object that holds this window: it is kept alive while a message is handled,
  // since Outlook may let go of the add-in inside any call that a handler makes.
  CMessageWindow(IUnknown& owner, IWindowHandler& handler, CDiagnosticLog& log) noexcept
      : m_owner(owner), m_handler(handler), m_log(log) {}
  ~CMessageWindow() { Destroy(); }
  CMessageWindow(const CMessageWindow&) = delete;
  CMessageWindow& operator=(const CMessageWindow&) = delete;

  // A failure carries the last Win32 error; without one (no desktop, say) it is E_FAIL.
  HRESULT Create() noexcept;
  // Ends the timers with the window; messages still queued are dropped.
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
