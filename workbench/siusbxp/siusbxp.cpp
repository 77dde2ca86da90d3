// SiUSBXp.dll as the add-in loads it: the real library's functions, ordinals and calling convention
// in front of the simulated base. Nothing thrown crosses into the caller.
#include <windows.h>

#include <array>

#include "workbench/siusbxp/base_simulator.h"

using quor::workbench::CBaseSimulator;
using quor::workbench::ISimulatedBase;

namespace {

CBaseSimulator& Base() {
  static CBaseSimulator base;
  return base;
}

static_assert(sizeof(DWORD) == sizeof(uint32_t));

uint32_t* Out(LPDWORD value) {
  return reinterpret_cast<uint32_t*>(value);
}

template <typename Work>
int Guarded(Work work) {
  try {
    return work(Base());
  } catch (...) {
    return quor::workbench::kSiGlobalDataError;
  }
}

}  // namespace

extern "C" {

ISimulatedBase& WB_GetBase() {
  return Base();
}

int WINAPI SI_GetNumDevices(LPDWORD count) {
  return Guarded([&](CBaseSimulator& base) { return base.GetNumDevices(Out(count)); });
}

int WINAPI SI_GetProductString(DWORD device, LPVOID text, DWORD option) {
  return Guarded([&](CBaseSimulator& base) {
    return base.GetProductString(device, static_cast<char*>(text), option);
  });
}

int WINAPI SI_Open(DWORD device, HANDLE* handle) {
  return Guarded([&](CBaseSimulator& base) { return base.Open(device, handle); });
}

int WINAPI SI_Close(HANDLE handle) {
  return Guarded([&](CBaseSimulator& base) { return base.Close(handle); });
}

int WINAPI SI_Read(HANDLE handle, LPVOID buffer, DWORD wanted, LPDWORD read, OVERLAPPED*) {
  return Guarded([&](CBaseSimulator& base) {
    return base.Read(handle, static_cast<uint8_t*>(buffer), wanted, Out(read));
  });
}

int WINAPI SI_Write(HANDLE handle, LPVOID bytes, DWORD count, LPDWORD written, OVERLAPPED*) {
  return Guarded([&](CBaseSimulator& base) {
    return base.Write(handle, static_cast<const uint8_t*>(bytes), count, Out(written));
  });
}

int WINAPI SI_FlushBuffers(HANDLE handle, BYTE transmit, BYTE receive) {
  return Guarded(
      [&](CBaseSimulator& base) { return base.FlushBuffers(handle, transmit, receive); });
}

int WINAPI SI_SetTimeouts(DWORD readTimeout, DWORD writeTimeout) {
  return Guarded([&](CBaseSimulator& base) { return base.SetTimeouts(readTimeout, writeTimeout); });
}

int WINAPI SI_CheckRXQueue(HANDLE handle, LPDWORD queued, LPDWORD status) {
  return Guarded(
      [&](CBaseSimulator& base) { return base.CheckRxQueue(handle, Out(queued), Out(status)); });
}

int WINAPI SI_SetBaudRate(HANDLE handle, DWORD baudRate) {
  return Guarded([&](CBaseSimulator& base) { return base.SetBaudRate(handle, baudRate); });
}

int WINAPI SI_SetLineControl(HANDLE handle, WORD lineControl) {
  return Guarded([&](CBaseSimulator& base) { return base.SetLineControl(handle, lineControl); });
}

int WINAPI SI_SetFlowControl(HANDLE handle, BYTE cts, BYTE rts, BYTE dtr, BYTE dsr, BYTE dcd,
                             BOOL xonXoff) {
  return Guarded([&](CBaseSimulator& base) {
    return base.SetFlowControl(handle, std::array<int, 6>{cts, rts, dtr, dsr, dcd, xonXoff});
  });
}

}  // extern "C"
