#include "device/usbxpress_library.h"

#include <windows.h>

#include <new>
#include <type_traits>
#include <utility>

namespace quor {
namespace {

constexpr wchar_t kLibraryName[] = L"\\SiUSBXp.dll";

// Argument types are explicit at each call: they must match the library's prototype exactly,
// because a 32-bit __stdcall function removes its own arguments from the stack.
template <typename... Arguments>
int Call(void* function, std::type_identity_t<Arguments>... arguments) noexcept {
  if (function == nullptr) return kUsbDeviceNotFound;
  return reinterpret_cast<int(WINAPI*)(Arguments...)>(function)(arguments...);
}

std::wstring SystemFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
  return folder;
}

HMODULE LoadFrom(const std::wstring& folder) {
  const std::wstring path = folder + kLibraryName;
  HMODULE module = LoadLibraryExW(
      path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
  if (module == nullptr && GetLastError() == ERROR_INVALID_PARAMETER) {
    // Windows 7 without update KB2533623 does not know these flags.
    module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  }
  return module;
}

}  // namespace

CUsbXpressLibrary::CUsbXpressLibrary(std::wstring folder, CDiagnosticLog& log) noexcept
    : m_folder(std::move(folder)), m_log(log) {}

CUsbXpressLibrary::~CUsbXpressLibrary() {
  Unload();
}

void CUsbXpressLibrary::Load() {
  HMODULE module = nullptr;
  DWORD error = ERROR_SUCCESS;
  for (const std::wstring& folder : {m_folder, SystemFolder()}) {
    module = LoadFrom(folder);
    if (module != nullptr) break;
    error = GetLastError();
    if (error == ERROR_BAD_EXE_FORMAT) m_otherBitness = true;
  }
  m_tried = true;
  m_module = module;
  if (module == nullptr) {
    m_loadError = static_cast<int>(error);
  } else if (!Bind()) {
    Unload();
  }
}

bool CUsbXpressLibrary::Bind() noexcept {
  static_assert(kUsbXpressOrdinals.size() == kImportCount);
  for (size_t i = 0; i < kUsbXpressOrdinals.size(); ++i) {
    m_functions[i] = reinterpret_cast<void*>(
        GetProcAddress(static_cast<HMODULE>(m_module), MAKEINTRESOURCEA(kUsbXpressOrdinals[i])));
    if (m_functions[i] == nullptr) {
      m_missingOrdinal = kUsbXpressOrdinals[i];
      return false;
    }
  }
  return true;
}

void CUsbXpressLibrary::Unload() noexcept {
  m_functions = {};
  const auto module = static_cast<HMODULE>(std::exchange(m_module, nullptr));
  // If the library refused to close a device, its thread may still run in the DLL.
  if (module != nullptr && m_open == 0) FreeLibrary(module);
}

UsbLibraryState CUsbXpressLibrary::State() const noexcept {
  if (!m_tried) return UsbLibraryState::NotUsedYet;
  if (m_module != nullptr) return UsbLibraryState::Loaded;
  if (m_missingOrdinal != 0) return UsbLibraryState::Incomplete;
  return m_otherBitness ? UsbLibraryState::OtherBitness : UsbLibraryState::Missing;
}

void CUsbXpressLibrary::ReportMissing() noexcept {
  if (m_reported || !m_log.IsEnabled()) return;
  m_reported = true;
  if (m_missingOrdinal != 0) {
    m_log.Print("** Error : SiUSBXp.dll has no ordinal %d.\n", m_missingOrdinal);
  } else {
    m_log.Print("** Error : SiUSBXp.dll not loaded. (%d)\n", m_loadError);
  }
}

void* CUsbXpressLibrary::Function(Import import) noexcept {
  if (!m_tried) {
    try {
      Load();
    } catch (const std::bad_alloc&) {
      return nullptr;  // retried by the next call
    }
  }
  if (m_module == nullptr) ReportMissing();
  return m_functions[static_cast<size_t>(import)];
}

int CUsbXpressLibrary::GetNumDevices(uint32_t& count) noexcept {
  DWORD value = count;
  const int status = Call<DWORD*>(Function(Import::GetNumDevices), &value);
  count = value;
  return status;
}

int CUsbXpressLibrary::GetProductString(uint32_t device, char* buffer,
                                        ProductString option) noexcept {
  return Call<DWORD, void*, DWORD>(Function(Import::GetProductString), device, buffer,
                                   static_cast<DWORD>(option));
}

int CUsbXpressLibrary::Open(uint32_t device, UsbHandle& handle) noexcept {
  const int status = Call<DWORD, HANDLE*>(Function(Import::Open), device, &handle);
  if (status == kUsbSuccess) ++m_open;
  return status;
}

int CUsbXpressLibrary::Close(UsbHandle handle) noexcept {
  const int status = Call<HANDLE>(Function(Import::Close), handle);
  if (status == kUsbSuccess && m_open > 0) --m_open;
  return status;
}

int CUsbXpressLibrary::Read(UsbHandle handle, uint8_t* buffer, uint32_t wanted,
                            uint32_t& read) noexcept {
  DWORD value = read;
  const int status = Call<HANDLE, void*, DWORD, DWORD*, OVERLAPPED*>(
      Function(Import::Read), handle, buffer, wanted, &value, nullptr);
  read = value;
  return status;
}

int CUsbXpressLibrary::Write(UsbHandle handle, const uint8_t* bytes, uint32_t count,
                             uint32_t& written) noexcept {
  DWORD value = written;
  // The library's prototype lacks const, but it does not write through the pointer.
  const int status = Call<HANDLE, void*, DWORD, DWORD*, OVERLAPPED*>(
      Function(Import::Write), handle, const_cast<uint8_t*>(bytes), count, &value, nullptr);
  written = value;
  return status;
}

int CUsbXpressLibrary::FlushBuffers(UsbHandle handle, bool transmit, bool receive) noexcept {
  return Call<HANDLE, BYTE, BYTE>(Function(Import::FlushBuffers), handle, transmit ? 1 : 0,
                                  receive ? 1 : 0);
}

int CUsbXpressLibrary::SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept {
  return Call<DWORD, DWORD>(Function(Import::SetTimeouts), readTimeout, writeTimeout);
}

int CUsbXpressLibrary::CheckRxQueue(UsbHandle handle, uint32_t& queued, uint32_t& status) noexcept {
  DWORD queuedValue = queued;
  DWORD statusValue = status;
  const int result = Call<HANDLE, DWORD*, DWORD*>(Function(Import::CheckRxQueue), handle,
                                                  &queuedValue, &statusValue);
  queued = queuedValue;
  status = statusValue;
  return result;
}

int CUsbXpressLibrary::SetBaudRate(UsbHandle handle, uint32_t baudRate) noexcept {
  return Call<HANDLE, DWORD>(Function(Import::SetBaudRate), handle, baudRate);
}

int CUsbXpressLibrary::SetLineControl(UsbHandle handle, uint16_t lineControl) noexcept {
  return Call<HANDLE, WORD>(Function(Import::SetLineControl), handle, lineControl);
}

int CUsbXpressLibrary::SetFlowControl(UsbHandle handle, const FlowControl& control) noexcept {
  return Call<HANDLE, BYTE, BYTE, BYTE, BYTE, BYTE, BOOL>(
      Function(Import::SetFlowControl), handle, control.cts, control.rts, control.dtr, control.dsr,
      control.dcd, control.xonXoff ? TRUE : FALSE);
}

}  // namespace quor
