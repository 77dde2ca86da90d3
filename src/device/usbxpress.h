#ifndef QUOR_DEVICE_USBXPRESS_H
#define QUOR_DEVICE_USBXPRESS_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace quor {

// The functions of the USBXpress library (SiUSBXp.dll) that the link uses, one for one. Every call
// returns the library's status: 0 is success; the link logs any other value and does not pass it
// on. Out parameters hold what the library wrote; the caller initialises them.

inline constexpr int kUsbSuccess = 0x00;
inline constexpr int kUsbDeviceNotFound = 0xFF;

using UsbHandle = void*;  // null: no device open

// Options of GetProductString.
enum class ProductString : uint32_t {
  SerialNumber = 0,
  Description = 1,
  LinkName = 2,
  VendorId = 3,
  ProductId = 4,
};
inline constexpr size_t kProductStringSize = 256;  // SI_MAX_DEVICE_STRLEN, terminating NUL included

// Queue status of CheckRxQueue.
inline constexpr uint32_t kRxEmpty = 0;
inline constexpr uint32_t kRxOverrun = 1;
inline constexpr uint32_t kRxReady = 2;

struct FlowControl {
  uint8_t cts;
  uint8_t rts;
  uint8_t dtr;
  uint8_t dsr;
  uint8_t dcd;
  bool xonXoff;
};

// Ordinals of these functions, in the order of IUsbXpress's operations.
inline constexpr std::array<uint16_t, 12> kUsbXpressOrdinals = {1, 2,  3,  4,  6,  7,
                                                                9, 10, 12, 13, 15, 16};

class IUsbXpress {
 public:
  virtual int GetNumDevices(uint32_t& count) noexcept = 0;
  // The buffer holds kProductStringSize bytes.
  virtual int GetProductString(uint32_t device, char* buffer, ProductString option) noexcept = 0;
  virtual int Open(uint32_t device, UsbHandle& handle) noexcept = 0;
  virtual int Close(UsbHandle handle) noexcept = 0;
  // Blocks for at most the read timeout; may read fewer bytes than wanted.
  virtual int Read(UsbHandle handle, uint8_t* buffer, uint32_t wanted, uint32_t& read) noexcept = 0;
  virtual int Write(UsbHandle handle, const uint8_t* bytes, uint32_t count,
                    uint32_t& written) noexcept = 0;
  virtual int FlushBuffers(UsbHandle handle, bool transmit, bool receive) noexcept = 0;
  // Milliseconds. Applies to the whole library, not to one handle.
  virtual int SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept = 0;
  virtual int CheckRxQueue(UsbHandle handle, uint32_t& queued, uint32_t& status) noexcept = 0;
  virtual int SetBaudRate(UsbHandle handle, uint32_t baudRate) noexcept = 0;
  virtual int SetLineControl(UsbHandle handle, uint16_t lineControl) noexcept = 0;
  virtual int SetFlowControl(UsbHandle handle, const FlowControl& control) noexcept = 0;

 protected:
  ~IUsbXpress() = default;
};

}  // namespace quor

#endif
