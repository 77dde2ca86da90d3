#include "doctor/usb_bases.h"

#include <windows.h>

#include <algorithm>

#include "device/usbxpress.h"

namespace quor::doctor {
namespace {

constexpr DWORD kMostDevices = 16;

using GetNumDevices = int(WINAPI*)(DWORD* count);
using GetProductString = int(WINAPI*)(DWORD device, void* text, DWORD option);
using Open = int(WINAPI*)(DWORD device, HANDLE* handle);
using Close = int(WINAPI*)(HANDLE handle);

class CLibrary {
 public:
  explicit CLibrary(const std::wstring& path)
      : m_module(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {}
  // Never freed: if SI_Close failed, a thread of the library may still run in it.
  CLibrary(const CLibrary&) = delete;
  CLibrary& operator=(const CLibrary&) = delete;

  template <typename Function>
  Function At(WORD ordinal) const noexcept {
    if (m_module == nullptr) return nullptr;
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(m_module, MAKEINTRESOURCEA(ordinal))));
  }

 private:
  HMODULE m_module;
};

}  // namespace

std::optional<std::vector<UsbBase>> LookAtBases(const std::wstring& libraryPath) {
  const CLibrary library(libraryPath);
  const auto getNumDevices = library.At<GetNumDevices>(kUsbXpressOrdinals[0]);
  const auto getProductString = library.At<GetProductString>(kUsbXpressOrdinals[1]);
  const auto open = library.At<Open>(kUsbXpressOrdinals[2]);
  const auto close = library.At<Close>(kUsbXpressOrdinals[3]);
  if (!getNumDevices || !getProductString || !open || !close) return std::nullopt;
  std::vector<UsbBase> bases;
  DWORD count = 0;
  const int status = getNumDevices(&count);
  if (status == kUsbDeviceNotFound) return bases;
  if (status != kUsbSuccess) return std::nullopt;
  for (DWORD device = 0; device < std::min(count, kMostDevices); ++device) {
    UsbBase base;
    char text[kProductStringSize] = "";
    if (getProductString(device, text, static_cast<DWORD>(ProductString::Description)) ==
        kUsbSuccess) {
      text[kProductStringSize - 1] = '\0';
      base.description = text;
    }
    HANDLE handle = nullptr;
    base.isFree = open(device, &handle) == kUsbSuccess;
    if (base.isFree) close(handle);
    bases.push_back(std::move(base));
  }
  return bases;
}

}  // namespace quor::doctor
