#ifndef QUOR_DEVICE_USBXPRESS_LIBRARY_H
#define QUOR_DEVICE_USBXPRESS_LIBRARY_H

#include <array>
#include <cstddef>
#include <string>

#include "device/usbxpress.h"
#include "module/diagnostic_log.h"

namespace quor {

// Result of loading the library at its first use.
enum class UsbLibraryState { NotUsedYet, Loaded, Missing, OtherBitness, Incomplete };

// SiUSBXp.dll, loaded by full path at the first call, from the add-in's folder or else the system
// folder, and bound by ordinal. If the library or one of the ordinals is missing, every function
// returns kUsbDeviceNotFound, as if no device were connected. The log, once it is on, then gets one
// line:
//   "** Error : SiUSBXp.dll not loaded. (%d)\n"       with the system's error code
//   "** Error : SiUSBXp.dll has no ordinal %d.\n"
class CUsbXpressLibrary final : public IUsbXpress {
 public:
  // folder: full path of the folder of the add-in's DLL. The log must outlive this object.
  CUsbXpressLibrary(std::wstring folder, CDiagnosticLog& log) noexcept;
  ~CUsbXpressLibrary();
  CUsbXpressLibrary(const CUsbXpressLibrary&) = delete;
  CUsbXpressLibrary& operator=(const CUsbXpressLibrary&) = delete;

  UsbLibraryState State() const noexcept;
  // The first missing ordinal of an incomplete library.
  int MissingOrdinal() const noexcept { return m_missingOrdinal; }

  int GetNumDevices(uint32_t& count) noexcept override;
  int GetProductString(uint32_t device, char* buffer, ProductString option) noexcept override;
  int Open(uint32_t device, UsbHandle& handle) noexcept override;
  int Close(UsbHandle handle) noexcept override;
  int Read(UsbHandle handle, uint8_t* buffer, uint32_t wanted, uint32_t& read) noexcept override;
  int Write(UsbHandle handle, const uint8_t* bytes, uint32_t count,
            uint32_t& written) noexcept override;
  int FlushBuffers(UsbHandle handle, bool transmit, bool receive) noexcept override;
  int SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept override;
  int CheckRxQueue(UsbHandle handle, uint32_t& queued, uint32_t& status) noexcept override;
  int SetBaudRate(UsbHandle handle, uint32_t baudRate) noexcept override;
  int SetLineControl(UsbHandle handle, uint16_t lineControl) noexcept override;
  int SetFlowControl(UsbHandle handle, const FlowControl& control) noexcept override;

 private:
  enum class Import : size_t {
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
  static constexpr size_t kImportCount = 12;

  // Null when the library is missing.
  void* Function(Import import) noexcept;
  void Load();
  bool Bind() noexcept;
  void Unload() noexcept;
  void ReportMissing() noexcept;

  std::wstring m_folder;
  CDiagnosticLog& m_log;
  void* m_module = nullptr;
  int m_open = 0;  // devices opened and not closed; the library runs a thread for each
  std::array<void*, kImportCount> m_functions{};
  bool m_tried = false;
  bool m_otherBitness = false;  // found in one of the folders searched
  bool m_reported = false;
  int m_missingOrdinal = 0;  // 0: the library itself is missing
  int m_loadError = 0;       // system error code of the last folder searched
};

}  // namespace quor

#endif
