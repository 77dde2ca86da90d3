// SiUSBXp.dll as the add-in loads it: the real library's functions, ordinals and calling
// convention, forwarding to the simulated base in the program. Like the real library, it runs a
// thread for each open device, which only SI_Close ends.
#include <windows.h>

#include <array>

#include "workbench/siusbxp/simulated_base.h"
#include "workbench/siusbxp/usb_host.h"

using quor::workbench::GetUsbHost;
using quor::workbench::IUsbHost;
using quor::workbench::kSiDeviceNotFound;
using quor::workbench::kSiGlobalDataError;
using quor::workbench::kSiSuccess;

namespace {

struct OpenDevice {
  HANDLE handle;
  HANDLE thread;  // null: the place is free
  HANDLE stop;
};

std::array<OpenDevice, 16> g_open;

static_assert(sizeof(DWORD) == sizeof(uint32_t));

uint32_t* Out(LPDWORD value) {
  return reinterpret_cast<uint32_t*>(value);
}

IUsbHost* Host() {
  const auto getHost = reinterpret_cast<GetUsbHost>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(nullptr), quor::workbench::kUsbHostExport)));
  return getHost ? &getHost() : nullptr;
}

template <typename Work>
int WithHost(Work work) {
  IUsbHost* const host = Host();
  return host ? work(*host) : kSiDeviceNotFound;
}

// Wakes periodically, so that it crashes if the module's code is unloaded.
DWORD WINAPI ServeDevice(void* stop) {
  constexpr DWORD kBetweenReads = 10;  // milliseconds
  while (WaitForSingleObject(stop, kBetweenReads) == WAIT_TIMEOUT) {
  }
  return 0;
}

bool StartServing(HANDLE handle) {
  for (OpenDevice& device : g_open) {
    if (device.thread) continue;
    device.handle = handle;
    device.stop = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    device.thread = CreateThread(nullptr, 0, ServeDevice, device.stop, 0, nullptr);
    return device.thread != nullptr;
  }
  return false;
}

void Forget(OpenDevice& device) {
  WaitForSingleObject(device.thread, INFINITE);
  CloseHandle(device.thread);
  CloseHandle(device.stop);
  device = {};
}

void StopServing(HANDLE handle) {
  for (OpenDevice& device : g_open) {
    if (!device.thread || device.handle != handle) continue;
    SetEvent(device.stop);
    Forget(device);
  }
}

// The real library does nothing here, and its threads crash the process. This one records the
// caller's error and ends the threads, so that the workbench can report it.
void NoteFreedWhileOpen() {
  uint32_t devices = 0;
  for (OpenDevice& device : g_open) {
    if (!device.thread) continue;
    ++devices;
    TerminateThread(device.thread, 0);
    Forget(device);
  }
  IUsbHost* const host = Host();
  if (devices != 0 && host) host->OnFreedWhileOpen(devices);
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* processEnds) {
  if (reason == DLL_PROCESS_DETACH && !processEnds) NoteFreedWhileOpen();
  return TRUE;
}

void WB_Simulated() {}

int WINAPI SI_GetNumDevices(LPDWORD count) {
  return WithHost([&](IUsbHost& host) { return host.GetNumDevices(Out(count)); });
}

int WINAPI SI_GetProductString(DWORD device, LPVOID text, DWORD option) {
  return WithHost([&](IUsbHost& host) {
    return host.GetProductString(device, static_cast<char*>(text), option);
  });
}

int WINAPI SI_Open(DWORD device, HANDLE* handle) {
  return WithHost([&](IUsbHost& host) {
    const int status = host.Open(device, handle);
    if (status != kSiSuccess || StartServing(*handle)) return status;
    host.Close(*handle);
    return kSiGlobalDataError;
  });
}

int WINAPI SI_Close(HANDLE handle) {
  return WithHost([&](IUsbHost& host) {
    StopServing(handle);
    return host.Close(handle);
  });
}

int WINAPI SI_Read(HANDLE handle, LPVOID buffer, DWORD wanted, LPDWORD read, OVERLAPPED*) {
  return WithHost([&](IUsbHost& host) {
    return host.Read(handle, static_cast<uint8_t*>(buffer), wanted, Out(read));
  });
}

int WINAPI SI_Write(HANDLE handle, LPVOID bytes, DWORD count, LPDWORD written, OVERLAPPED*) {
  return WithHost([&](IUsbHost& host) {
    return host.Write(handle, static_cast<uint8_t*>(bytes), count, Out(written));
  });
}

int WINAPI SI_FlushBuffers(HANDLE handle, BYTE transmit, BYTE receive) {
  return WithHost([&](IUsbHost& host) { return host.FlushBuffers(handle, transmit, receive); });
}

int WINAPI SI_SetTimeouts(DWORD readTimeout, DWORD writeTimeout) {
  return WithHost([&](IUsbHost& host) { return host.SetTimeouts(readTimeout, writeTimeout); });
}

int WINAPI SI_CheckRXQueue(HANDLE handle, LPDWORD queued, LPDWORD status) {
  return WithHost(
      [&](IUsbHost& host) { return host.CheckRxQueue(handle, Out(queued), Out(status)); });
}

int WINAPI SI_SetBaudRate(HANDLE handle, DWORD baudRate) {
  return WithHost([&](IUsbHost& host) { return host.SetBaudRate(handle, baudRate); });
}

int WINAPI SI_SetLineControl(HANDLE handle, WORD lineControl) {
  return WithHost([&](IUsbHost& host) { return host.SetLineControl(handle, lineControl); });
}

int WINAPI SI_SetFlowControl(HANDLE handle, BYTE cts, BYTE rts, BYTE dtr, BYTE dsr, BYTE dcd,
                             BOOL xonXoff) {
  return WithHost([&](IUsbHost& host) {
    return host.SetFlowControl(handle, std::array<int, 6>{cts, rts, dtr, dsr, dcd, xonXoff});
  });
}

}  // extern "C"
