#ifndef QUOR_DEVICE_DEVICE_LINK_H
#define QUOR_DEVICE_DEVICE_LINK_H

#include <cstdint>
#include <span>
#include <string>

#include "device/base_port.h"
#include "device/connection_events.h"
#include "device/frame_format.h"
#include "device/frame_reader.h"
#include "device/indication_dispatcher.h"
#include "device/link_health.h"
#include "device/message_queue.h"
#include "device/records.h"
#include "device/usbxpress.h"
#include "device/watch_thread.h"
#include "module/diagnostic_log.h"

namespace quor {

// Timer of the hidden window whose ticks drive the link; compare as UINT_PTR.
inline constexpr uint32_t kDevicePollTimer = 0x80000002U;

// The link to the telephone base: finds and opens it, follows its removal and return, sends
// requests, receives indications. All of it runs on the user-interface thread, and everything it
// has to say is posted to the queue: no call comes back into the caller.
//
//   absent --(tick finds a device and sets it up)--> open --(gone, or any failure)--> absent
class CDeviceLink {
 public:
  // All collaborators must outlive the link.
  CDeviceLink(IUsbXpress& usb, IMessageQueue& queue, DeviceRecords& records,
              CDiagnosticLog& log) noexcept;

  // Start of the link: opens the device once to prove that it answers, announces it, and closes it
  // again; without a usable device it raises the error-connect event. The caller then starts
  // kDevicePollTimer with PollInterval(), in every case: the first tick opens the device for use.
  void Probe();

  // Milliseconds between two ticks.
  uint32_t PollInterval() const noexcept { return m_pollInterval; }

  // One tick: checks the device's presence, reopens it when it is back, reads at most one frame. A
  // frame that arrives in pieces stalls the caller for up to the read timeout of 3 s. True when a
  // frame was read and dispatched.
  bool ReceiveFrame();

  // To be called after each tick with the ticks (milliseconds) at which it began and ended.
  void NotePoll(uint32_t began, uint32_t ended) noexcept;
  const LinkHealth& Health() const noexcept { return m_health; }

  // Requests. False when the frame could not be sent whole; the device is then closed and the
  // disconnect event raised. The number must hold dial characters only; it is emptied after the
  // attempt, successful or not.
  bool SendStartupRequest();
  bool SendCallRequest(uint8_t lineType, std::string& number);
  bool SendOnHookRequest(uint8_t lineType);

  bool IsOpen() const noexcept { return m_port.IsOpen(); }
  // What the last connection event said; an open device is another matter (IsOpen).
  bool IsConnected() const noexcept { return m_events.IsConnected(); }

  // The end of the link, before the library is freed: closes the base if it is open, without an
  // event.
  void Close() noexcept;

  // Shutdown ends the watch thread if there is one. The device handle is not closed.
  void AttachWatchThread(IWatchThread& thread) noexcept { m_watchThread = &thread; }
  void StopWatchThread() noexcept;

 private:
  bool SetUp(uint32_t index);
  bool CheckPresence();
  bool Recover(uint32_t index);
  void TakeDown() noexcept;
  bool Send(RequestCode code, std::span<const uint8_t> payload);

  DeviceRecords& m_records;
  CDiagnosticLog& m_log;
  LinkHealth m_health;
  bool m_wasOpen = false;  // after the last tick
  CConnectionEvents m_events;
  CBasePort m_port;
  CIndicationDispatcher m_dispatcher;
  CFrameReader m_reader;
  IWatchThread* m_watchThread = nullptr;
  const uint32_t m_pollInterval = 100;
};

}  // namespace quor

#endif
