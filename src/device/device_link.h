#ifndef QUOR_DEVICE_DEVICE_LINK_H
#define QUOR_DEVICE_DEVICE_LINK_H

#include <cstdint>
#include <span>
#include <string>

#include "device/base_connection.h"
#include "device/base_port.h"
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

// The hidden window's timer whose ticks drive the link. Compare as UINT_PTR.
inline constexpr uint32_t kDevicePollTimer = 0x80000002U;

// The link to the telephone base: finds and opens it, notices its removal and return, sends
// requests, receives indications. Runs on the user-interface thread. Results are posted to the
// queue: the link never calls back into its caller.
//
//   absent --(tick finds a device and sets it up)--> open --(gone, or any failure)--> absent
class CDeviceLink {
 public:
  // All collaborators must outlive the link.
  CDeviceLink(IUsbXpress& usb, IMessageQueue& queue, DeviceRecords& records,
              CDiagnosticLog& log) noexcept;

  // Start-up: opens the device once to prove that it answers, raises the connect event and closes
  // it again. Raises the error-connect event when there is no usable device. In either case the
  // caller then starts kDevicePollTimer with PollInterval(); the first tick opens the device for
  // use.
  void Probe();

  // Milliseconds between two ticks.
  uint32_t PollInterval() const noexcept { return m_pollInterval; }

  // Handles one tick: checks that the device is present, reopens it when it is back, reads at most
  // one frame. A frame that arrives in pieces blocks for up to the read timeout of 3 s. True when a
  // frame was read and dispatched.
  bool ReceiveFrame();

  // Call after each tick with the tick counts (milliseconds) at which it began and ended.
  void NotePoll(uint32_t began, uint32_t ended) noexcept;
  const LinkHealth& Health() const noexcept { return m_health; }

  // Sends a request. False when the frame was not sent completely; the device is then closed and
  // the disconnect event raised. The number must hold dial characters only; it is cleared whether
  // sending succeeds or not.
  bool SendStartupRequest();
  bool SendCallRequest(uint8_t lineType, std::string& number);
  bool SendOnHookRequest(uint8_t lineType);

  bool IsOpen() const noexcept { return m_port.IsOpen(); }
  // Whether the last event raised was a connect event; a connected device may be closed (see
  // IsOpen).
  bool IsConnected() const noexcept { return m_connection.IsConnected(); }

  // Closes the base if it is open, without an event. Call before the library is freed.
  void Close() noexcept;

  // Shutdown ends the watch thread, if one is attached. It does not close the device.
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
  bool m_wasOpen = false;  // at the end of the last tick
  CBaseConnection m_connection;
  CBasePort m_port;
  CIndicationDispatcher m_dispatcher;
  CFrameReader m_reader;
  IWatchThread* m_watchThread = nullptr;
  const uint32_t m_pollInterval = 100;
};

}  // namespace quor

#endif
