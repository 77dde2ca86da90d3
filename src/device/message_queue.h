#ifndef QUOR_DEVICE_MESSAGE_QUEUE_H
#define QUOR_DEVICE_MESSAGE_QUEUE_H

#include <cstdint>

namespace quor {

// Events of the base, posted with the registered message "WM_USBXpress_CP210x2ADDIN".
enum class DeviceEvent : uint32_t {
  Connected = 5000,
  Disconnected = 5001,
  ErrorConnect = 5010,
  Status = 5100,
  ReceiveCall = 5101,
  CallerId = 5102,
  ClosePopup = 5103,  // handled, never posted
  CellRegistration = 5104,
};

// Private messages of the hidden window, as offsets from WM_APP (0x8000).
enum class WindowRequest : uint32_t {
  SetBarState = 0,  // parameter: 1 connected, 0 not
  ClearDial = 1,    // no parameter
  Refresh = 2,  // no parameter: redraw what changed inside a callback or during a burst of events
  CloseLoading = 7,     // no parameter
  StartupRequest = 10,  // no parameter
  CallRequest = 11,     // parameter: line type
  OnHookRequest = 12,   // parameter: line type
};

// The hidden window's message queue, for everything asynchronous. Posting never blocks; messages
// are handled in posting order on the same thread.
class IMessageQueue {
 public:
  // False when the system refuses the message (window gone, queue full).
  virtual bool PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept = 0;
  virtual bool PostRequest(WindowRequest request, uint32_t parameter) noexcept = 0;

 protected:
  ~IMessageQueue() = default;
};

}  // namespace quor

#endif
