#ifndef QUOR_WORKBENCH_SIUSBXP_SIMULATED_BASE_H
#define QUOR_WORKBENCH_SIUSBXP_SIMULATED_BASE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quor::workbench {

// The simulated base lives in the workbench's own program, which moves it by ISimulatedBase. The
// SiUSBXp.dll that the add-in loads only forwards to it (see usb_host.h), so the workbench holds no
// reference to the DLL and the add-in alone decides how long it stays loaded. Nothing is plugged in
// at first. Everything is meant for one thread, the one the add-in calls the library on.

enum class UsbFunction : size_t {
  GetNumDevices,
  GetProductString,
  Open,
  Close,
  Read,
  Write,
  FlushBuffers,
  SetTimeouts,
  CheckRxQueue,
  SetBaudRate,
  SetLineControl,
  SetFlowControl,
};

// In the order of UsbFunction.
inline constexpr std::array<std::string_view, 12> kUsbFunctionNames = {
    "SI_GetNumDevices",  "SI_GetProductString",
    "SI_Open",           "SI_Close",
    "SI_Read",           "SI_Write",
    "SI_FlushBuffers",   "SI_SetTimeouts",
    "SI_CheckRXQueue",   "SI_SetBaudRate",
    "SI_SetLineControl", "SI_SetFlowControl"};

constexpr std::optional<UsbFunction> UsbFunctionFromName(std::string_view name) {
  for (size_t i = 0; i < kUsbFunctionNames.size(); ++i) {
    if (kUsbFunctionNames[i] == name) return static_cast<UsbFunction>(i);
  }
  return std::nullopt;
}

// Statuses as the real library numbers them.
inline constexpr int kSiSuccess = 0x00;
inline constexpr int kSiInvalidHandle = 0x01;
inline constexpr int kSiReadError = 0x02;
inline constexpr int kSiWriteError = 0x04;
inline constexpr int kSiInvalidParameter = 0x06;
inline constexpr int kSiInvalidRequestLength = 0x07;
inline constexpr int kSiDeviceIoFailed = 0x08;
inline constexpr int kSiInvalidBaudRate = 0x09;
inline constexpr int kSiGlobalDataError = 0x0B;
inline constexpr int kSiSystemErrorCode = 0x0C;
inline constexpr int kSiReadTimedOut = 0x0D;
inline constexpr int kSiWriteTimedOut = 0x0E;
inline constexpr int kSiDeviceNotFound = 0xFF;

// Queue statuses.
inline constexpr uint32_t kSiRxEmpty = 0;
inline constexpr uint32_t kSiRxOverrun = 1;
inline constexpr uint32_t kSiRxReady = 2;

// The five product strings in the order of the library's options: serial number, description, link
// name, vendor id, product id. A null string cannot be read (kSiDeviceNotFound).
using ProductStrings = std::array<const char*, 5>;
inline constexpr ProductStrings kDefaultProductStrings = {
    "0001", "Telephone base", R"(\\?\usb#vid_10c4&pid_ea61#0001)", "10C4", "EA61"};

// Calls counted from 1, beginning with the next one, both ends included.
struct CallRange {
  uint32_t first = 1;
  uint32_t last = 1;
};
inline constexpr uint32_t kForEver = UINT32_MAX;

struct UsbCall {
  uint64_t sequence;  // of all calls, from 1
  UsbFunction function;
  int status;
  // "SI_Write(#1, 2B 31 0D) = 0, 3": handles by number, bytes in hexadecimal, then the status and
  // what came back. Valid during the call.
  std::string_view text;
};

class ICallObserver {
 public:
  // After the call has done its work. Must not throw, since the library's caller is C.
  virtual void OnCall(const UsbCall& call) noexcept = 0;

 protected:
  ~ICallObserver() = default;
};

struct WrittenFrame {
  uint64_t sequence;               // as in UsbCall
  std::span<const uint8_t> bytes;  // valid until the next SI_Write or Reset
};

// What differs from one version of the library, or one machine, to the next.
struct DriverManners {
  int withoutDevice = kSiDeviceNotFound;  // SI_GetNumDevices; kSiSuccess comes with a count of 0
  int secondOpen = kSiDeviceIoFailed;     // SI_Open of a device that is open
  uint32_t stringTime = 0;                // milliseconds that SI_GetProductString takes, for real
  uint32_t openTime = 0;                  // the same for SI_Open
};

class ISimulatedBase {
 public:
  // Back to nothing plugged in, nothing queued, nothing counted; open handles become unknown ones.
  virtual void Reset() = 0;

  // Devices are listed in the order they were plugged in. A handle to an unplugged device stays
  // allocated and answers kSiDeviceIoFailed until it is closed.
  virtual void Plug(const ProductStrings& strings = kDefaultProductStrings) = 0;
  virtual void Unplug(uint32_t device = 0) = 0;
  virtual uint32_t DeviceCount() const = 0;

  // Bytes from the base, `delay` milliseconds after those queued before them. Time is simulated: it
  // passes while SI_Read waits for bytes, and by Advance. SI_Read waits until it has what it was
  // asked for or its timeout is over; then it delivers what there is, or answers kSiReadTimedOut
  // when there is nothing. An endless timeout ends when nothing more is on its way. Unplugging the
  // last device loses what was queued.
  virtual void Queue(std::span<const uint8_t> bytes, uint32_t delay = 0) = 0;
  virtual void Advance(uint32_t milliseconds) = 0;
  virtual uint64_t Now() const = 0;
  // Waiting takes as long as it says, for a person to feel it. Off at first.
  virtual void SetRealWaiting(bool on) = 0;

  // What SI_CheckRXQueue says of the next `calls` calls; no count means the true one.
  virtual void ReportQueue(uint32_t status, std::optional<uint32_t> count, uint32_t calls) = 0;

  // Makes calls answer a status and do nothing; a failing SI_Close gives the handle up all the
  // same, as for a device already gone. A call number n from the start of the run is n - CallCount
  // here.
  virtual void Fail(UsbFunction function, int status, CallRange calls = {}) = 0;
  // Makes SI_Read or SI_Write succeed with at most so many bytes; the rest stays queued or unsent.
  virtual void Shorten(UsbFunction function, uint32_t bytes, CallRange calls = {}) = 0;
  // Forgets every Fail, Shorten and ReportQueue.
  virtual void Heal() = 0;

  // What was written and is not forgotten, one entry for each SI_Write that reached the wire.
  virtual size_t WrittenCount() const = 0;
  virtual WrittenFrame Written(size_t index) const = 0;
  virtual void ForgetWritten() = 0;

  virtual uint32_t CallCount(UsbFunction function) const = 0;
  virtual uint32_t OpenHandles() const = 0;
  // Devices that were open when the DLL was freed: its threads ran in freed code.
  virtual uint32_t FreedWhileOpen() const = 0;
  // Calls of SI_Close that answered a failure: whether a thread ended then, the caller cannot know.
  virtual uint32_t FailedCloses() const = 0;

  virtual void SetManners(const DriverManners& manners) = 0;

  // Tells one observer of every call; null for none. Texts are made only for an observer.
  virtual void Observe(ICallObserver* observer) = 0;

 protected:
  ~ISimulatedBase() = default;
};

}  // namespace quor::workbench

#endif
