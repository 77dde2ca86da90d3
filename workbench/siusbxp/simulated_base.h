#ifndef QUOR_WORKBENCH_SIUSBXP_SIMULATED_BASE_H
#define QUOR_WORKBENCH_SIUSBXP_SIMULATED_BASE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quor::workbench {

// The simulated base is part of the workbench program, which controls it through CBaseSimulator.
// The SiUSBXp.dll that the add-in loads only forwards to it (see usb_host.h), so the workbench
// holds no reference to the DLL, and the add-in alone decides how long it stays loaded. Initially
// nothing is plugged in. Single-threaded: use it on the thread that calls the library.

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

// Statuses with the real library's numbers.
inline constexpr int kSiSuccess = 0x00;
inline constexpr int kSiInvalidHandle = 0x01;
inline constexpr int kSiInvalidParameter = 0x06;
inline constexpr int kSiInvalidRequestLength = 0x07;
inline constexpr int kSiDeviceIoFailed = 0x08;
inline constexpr int kSiGlobalDataError = 0x0B;
inline constexpr int kSiReadTimedOut = 0x0D;
inline constexpr int kSiDeviceNotFound = 0xFF;

// Queue statuses.
inline constexpr uint32_t kSiRxEmpty = 0;
inline constexpr uint32_t kSiRxReady = 2;

// The five product strings in the order of the library's options: serial number, description, link
// name, vendor id, product id. A null string cannot be read (kSiDeviceNotFound).
using ProductStrings = std::array<const char*, 5>;
inline constexpr ProductStrings kDefaultProductStrings = {
    "0001", "Telephone base", R"(\\?\usb#vid_10c4&pid_ea61#0001)", "10C4", "EA61"};

// Calls are counted from 1, the next one; both ends included.
struct CallRange {
  uint32_t first = 1;
  uint32_t last = 1;
};
inline constexpr uint32_t kForEver = UINT32_MAX;

struct UsbCall {
  uint64_t sequence;  // number among all calls, from 1
  UsbFunction function;
  int status;
  // "SI_Write(#1, 2B 31 0D) = 0, 3": handles as numbers, bytes in hexadecimal, then the status and
  // the results. Valid during the call.
  std::string_view text;
};

class ICallObserver {
 public:
  // Called after the call has done its work. Must not throw, because the library's caller is C.
  virtual void OnCall(const UsbCall& call) noexcept = 0;

 protected:
  ~ICallObserver() = default;
};

struct WrittenFrame {
  uint64_t sequence;               // as in UsbCall
  std::span<const uint8_t> bytes;  // valid until the next SI_Write or Reset
};

// Differences between versions of the library and between machines.
struct DriverManners {
  int withoutDevice = kSiDeviceNotFound;  // SI_GetNumDevices; with kSiSuccess the count is 0
  int secondOpen = kSiDeviceIoFailed;     // SI_Open of an open device
  uint32_t stringTime = 0;                // real milliseconds that SI_GetProductString takes
  uint32_t openTime = 0;                  // the same for SI_Open
};

}  // namespace quor::workbench

#endif
