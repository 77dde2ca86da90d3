#ifndef QUOR_WORKBENCH_SIUSBXP_USB_HOST_H
#define QUOR_WORKBENCH_SIUSBXP_USB_HOST_H

#include <cstdint>
#include <span>

namespace quor::workbench {

// The functions of the simulated SiUSBXp.dll in portable types. The program with the base exports
// an implementation by the name kUsbHostExport; the DLL looks it up at each call. In any other
// program the DLL finds no device.
class IUsbHost {
 public:
  using Handle = void*;
  virtual int GetNumDevices(uint32_t* count) noexcept = 0;
  virtual int GetProductString(uint32_t device, char* text, uint32_t option) noexcept = 0;
  virtual int Open(uint32_t device, Handle* handle) noexcept = 0;
  virtual int Close(Handle handle) noexcept = 0;
  virtual int Read(Handle handle, uint8_t* buffer, uint32_t wanted, uint32_t* read) noexcept = 0;
  virtual int Write(Handle handle, const uint8_t* bytes, uint32_t count,
                    uint32_t* written) noexcept = 0;
  virtual int FlushBuffers(Handle handle, uint8_t transmit, uint8_t receive) noexcept = 0;
  virtual int SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept = 0;
  virtual int CheckRxQueue(Handle handle, uint32_t* queued, uint32_t* status) noexcept = 0;
  virtual int SetBaudRate(Handle handle, uint32_t baudRate) noexcept = 0;
  virtual int SetLineControl(Handle handle, uint16_t lineControl) noexcept = 0;
  // CTS, RTS, DTR, DSR, DCD, XON/XOFF.
  virtual int SetFlowControl(Handle handle, std::span<const int, 6> controls) noexcept = 0;

  // The DLL is freed with this many devices open.
  virtual void OnFreedWhileOpen(uint32_t devices) noexcept = 0;

 protected:
  ~IUsbHost() = default;
};

inline constexpr char kUsbHostExport[] = "WB_UsbHost";
using GetUsbHost = IUsbHost& (*)();
// An ordinal that the vendor's DLL does not have.
inline constexpr uint16_t kSimulatedLibraryOrdinal = 100;  // "WB_Simulated"

}  // namespace quor::workbench

#endif
