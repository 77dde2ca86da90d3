// Loads and binds SiUSBXp.dll for real, with the simulated old library in its place.
#include "device/usbxpress_library.h"

#include <gtest/gtest.h>

#include <string>

#include "text/ansi.h"

namespace quor {
namespace {

struct CLines final : ILogWriter {
  void WriteLine(std::string_view line) noexcept override { text += line; }
  std::string text;
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

}  // namespace
}  // namespace quor
