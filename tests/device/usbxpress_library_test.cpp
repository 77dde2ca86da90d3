// Loads and binds SiUSBXp.dll for real, with the simulated libraries in its place, and runs one
// session of the link through it.
#include "device/usbxpress_library.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "device/device_link.h"
#include "device/event_objects.h"
#include "text/ansi.h"
#include "workbench/siusbxp/program_base.h"

namespace quor {
namespace {

struct CLines final : ILogWriter {
  void WriteLine(std::string_view line) noexcept override { text += line; }
  std::string text;
};

struct CNoQueue final : IMessageQueue {
  bool PostDeviceEvent(DeviceEvent, uint8_t) noexcept override { return true; }
  bool PostRequest(WindowRequest, uint32_t) noexcept override { return true; }
};

TEST(UsbXpressLibraryTest, WhatIsMissingIsAMissingDeviceAndSaidOnceTheLogIsOn) {
  const std::pair<const char*, const char*> kFolders[] = {
      {"C:\\nowhere", "** Error : SiUSBXp.dll not loaded. (126)\n"},
      {QUOR_OLD_LIBRARY_FOLDER, "** Error : SiUSBXp.dll has no ordinal 16.\n"},
  };
  for (const auto& [folder, line] : kFolders) {
    CLines lines;
    CDiagnosticLog log(lines);
    CUsbXpressLibrary library(WideFromAnsi(folder), log);
    uint32_t count = 7;
    EXPECT_EQ(library.GetNumDevices(count), kUsbDeviceNotFound);
    log.SetEnabled(true);
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(library.GetNumDevices(count), kUsbDeviceNotFound);
      EXPECT_EQ(library.SetBaudRate(nullptr, 19200), kUsbDeviceNotFound);
    }
    EXPECT_EQ(lines.text, line);
  }
}

struct CCalls final : workbench::ICallObserver {
  void OnCall(const workbench::UsbCall& call) noexcept override { (text += call.text) += '\n'; }
  std::string text;
};

TEST(UsbXpressLibraryTest, PassesEveryArgumentAndGivesTheLibraryBack) {
  const std::wstring folder = WideFromAnsi(QUOR_LIBRARY_FOLDER);
  workbench::ISimulatedBase& base = workbench::ProgramBase();
  CCalls calls;
  CLines lines;
  CNoQueue queue;
  DeviceRecords records;
  base.Plug({"0001", "Base", "link", "10C4", "EA61"});
  base.Observe(&calls);
  {
    CDiagnosticLog log(lines);
    CUsbXpressLibrary library(folder, log);
    CDeviceLink link(library, queue, records, log);
    link.Probe();
    link.ReceiveFrame();
    const uint8_t frame[] = {0x26, 0x01, 0, 1, 2, 3, 4, 5, 0x0D, 0x0A};
    base.Queue(frame);
    link.ReceiveFrame();
    link.Close();
  }
  const std::string found =
      "SI_GetNumDevices() = 0, 1\n"
      "SI_GetProductString(0, 0) = 0, 0001\n"
      "SI_GetProductString(0, 1) = 0, Base\n"
      "SI_GetProductString(0, 2) = 0, link\n"
      "SI_GetProductString(0, 3) = 0, 10C4\n"
      "SI_GetProductString(0, 4) = 0, EA61\n";
  const auto opened = [](const std::string& handle) {
    return "SI_Open(0) = 0, " + handle + "\nSI_FlushBuffers(" + handle +
           ", 1, 1) = 0\nSI_SetBaudRate(" + handle +
           ", 19200) = 0\nSI_SetTimeouts(3000, 3000) = 0\nSI_SetLineControl(" + handle +
           ", 2048) = 0\nSI_SetFlowControl(" + handle + ", 0, 1, 0, 0, 0, 0) = 0\nSI_Write(" +
           handle + ", 2B 31 0D) = 0, 3\n";
  };
  EXPECT_EQ(calls.text, found + opened("#1") + "SI_Close(#1) = 0\n" +    //
                            found + opened("#2") +                       //
                            "SI_CheckRXQueue(#2) = 0, 0, 0\n" + found +  //
                            "SI_CheckRXQueue(#2) = 0, 10, 2\n"
                            "SI_Read(#2, 2) = 0, 26 01\n"
                            "SI_Read(#2, 8) = 0, 00 01 02 03 04 05 0D 0A\n"
                            "SI_Close(#2) = 0\n");
  EXPECT_EQ(records.status, (StatusRecord{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(base.FreedWhileOpen(), 0U);
  EXPECT_EQ(GetModuleHandleW(L"SiUSBXp.dll"), nullptr);
}

TEST(EventObjectsTest, ManualResetAndNonSignalled) {
  CEventObjects events;
  void* event = events.CreateManualResetEvent();
  EXPECT_EQ(WaitForSingleObject(event, 0), static_cast<DWORD>(WAIT_TIMEOUT));
  SetEvent(event);
  EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
  EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
  events.CloseEvent(event);
  EXPECT_EQ(SetEvent(event), FALSE);
}

}  // namespace
}  // namespace quor
