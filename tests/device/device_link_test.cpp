#include "device/device_link.h"

#include "tests/device/device_fixture.h"

namespace quor {
namespace {

class CConnectionTest : public CDeviceLinkTest {};

TEST_F(CConnectionTest, StartWithBaseProbesThenOpensOnTheFirstTick) {
  m_base.Plug();
  m_link.Probe();
  EXPECT_EQ(Log(), kStartupSent + kConnected + "Device setup complete.\nSI_Close() complete.\n");
  EXPECT_EQ(Events(), "5000");
  EXPECT_FALSE(m_link.IsOpen());
  EXPECT_TRUE(m_link.IsConnected());

  EXPECT_FALSE(Tick());
  EXPECT_EQ(Log(), kRecovered);
  EXPECT_EQ(Events(), "5000 5000");
  EXPECT_EQ(Wire(), "2B 31 0D | 2B 31 0D");
  EXPECT_TRUE(m_link.IsOpen());
  EXPECT_EQ(m_base.OpenHandles(), 1U);
}

TEST_F(CConnectionTest, StartWithoutBase) {
  m_link.Probe();
  EXPECT_EQ(Log(), kErrorConnected + "** Error : Device undefined.\n");
  EXPECT_EQ(Events(), "5010");
  Tick();
  EXPECT_EQ(Log(), "");
  m_base.Plug();
  Tick();
  EXPECT_EQ(Log(), kRecovered);
}

TEST_F(CConnectionTest, SetsTheLineUpInOrder) {
  struct CCalls final : workbench::ICallObserver {
    void OnCall(const workbench::UsbCall& call) noexcept override { (text += call.text) += '\n'; }
    std::string text;
  } calls;
  m_base.Plug({"0001", "Base", "link", "10C4", "EA61"});
  m_base.Observe(&calls);
  Tick();
  EXPECT_EQ(calls.text,
            "SI_GetNumDevices() = 0, 1\n"
            "SI_GetProductString(0, 0) = 0, 0001\n"
            "SI_GetProductString(0, 1) = 0, Base\n"
            "SI_GetProductString(0, 2) = 0, link\n"
            "SI_GetProductString(0, 3) = 0, 10C4\n"
            "SI_GetProductString(0, 4) = 0, EA61\n"
            "SI_Open(0) = 0, #1\n"
            "SI_FlushBuffers(#1, 1, 1) = 0\n"
            "SI_SetBaudRate(#1, 19200) = 0\n"
            "SI_SetTimeouts(3000, 3000) = 0\n"
            "SI_SetLineControl(#1, 2048) = 0\n"
            "SI_SetFlowControl(#1, 0, 1, 0, 0, 0, 0) = 0\n"
            "SI_Write(#1, 2B 31 0D) = 0, 3\n"
            "SI_CheckRXQueue(#1) = 0, 0, 0\n");
}

TEST_F(CConnectionTest, UnplugAndReplug) {
  Open();
  m_records.lastStatus = {1, 1, 1, 1, 1, 1};
  m_base.Unplug();
  EXPECT_FALSE(Tick());
  EXPECT_EQ(Log(), "SI_Close() complete.\n** Down : USB device down...\n" + kDisconnected);
  EXPECT_EQ(Events(), "5001");
  EXPECT_EQ(m_records.lastStatus, kNothingReported);
  EXPECT_FALSE(m_link.IsOpen());
  EXPECT_FALSE(m_link.IsConnected());
  EXPECT_EQ(m_base.OpenHandles(), 0U);

  Tick();
  EXPECT_EQ(Log() + Events(), "");

  m_records.lastStatus = {1, 1, 1, 1, 1, 1};
  m_base.Plug();
  Tick();
  EXPECT_EQ(Log(), kRecovered);
  EXPECT_EQ(Events(), "5000 5000");
  EXPECT_EQ(m_records.lastStatus, kNothingReported);
}

TEST_F(CConnectionTest, CloseThatFailsStillGivesTheHandleUp) {
  Open();
  m_base.Unplug();
  m_base.Fail(UsbFunction::Close, 12);
  Tick();
  EXPECT_EQ(Log(),
            "** Error : Error closing device. (12)\n** Error : USB device close error.\n"
            "** Down : USB device down...\n" +
                kDisconnected);
  EXPECT_FALSE(m_link.IsOpen());
}

TEST_F(CConnectionTest, BaudRateIsTheOnlyRefusalTolerated) {
  m_base.Plug();
  m_base.Fail(UsbFunction::SetBaudRate, 9);
  Tick();
  EXPECT_EQ(Log(), "** Error : Failed to set baud rate 19200 for device. (9)\n" + kRecovered);
  EXPECT_TRUE(m_link.IsOpen());
}

// What each failing step of the set-up logs, in the probe and in a tick.
struct SetUpFailure {
  UsbFunction function;
  std::string lines;
  std::string events;
};

TEST_F(CConnectionTest, EachOtherSetUpFailure) {
  const std::string kWriteFailed =
      "< Start up request >\n[S] (3) 2B 31 0D\n** Error : SI_Write error. (5)\n" + kLost +
      "** Error : Failed to send start up request.\n"
      "** Error : Error closing device. (1)\n" +
      kDisconnected + "** Error : Failed to send start up request.\n";
  const std::vector<SetUpFailure> kFailures = {
      {UsbFunction::Open, "** Error : Failed open device. (5)\n", ""},
      {UsbFunction::FlushBuffers, kLost + "** Error : Failed to purge device. (5)\n", "5001"},
      {UsbFunction::SetTimeouts, kLost + "** Error : Failed to set timeouts. (5)\n", "5001"},
      {UsbFunction::SetLineControl, kLost + "** Error : Failed to set line control. (5)\n", "5001"},
      {UsbFunction::SetFlowControl, kLost + "** Error : Failed to set flow control. (5)\n", "5001"},
      {UsbFunction::Write, kWriteFailed, "5001 5001"},
  };
  m_base.Plug();
  for (const SetUpFailure& failure : kFailures) {
    SCOPED_TRACE(workbench::kUsbFunctionNames[static_cast<size_t>(failure.function)]);
    m_base.Fail(failure.function, 5, {1, 2});

    m_link.Probe();
    EXPECT_EQ(Log(), failure.lines + kErrorConnected + "** Error : Failed setup device.\n");
    EXPECT_EQ(Events(), failure.events + (failure.events.empty() ? "5010" : " 5010"));

    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), failure.lines + "** Error : Device set up error.\n");
    EXPECT_EQ(Events(), failure.events);
    EXPECT_EQ(m_base.OpenHandles(), 0U);
  }
  Tick();
  EXPECT_EQ(Log(), kRecovered);
}

TEST_F(CConnectionTest, TakesTheFirstDeviceWhoseStringsAllRead) {
  const char* const kLines[] = {
      "** Error : [1] SI_RETURN_SERIAL_NUMBER error. 255\n",
      "** Error : [2] SI_RETURN_DESCRIPTION error. 255\n",
      "** Error : [3] SI_RETURN_LINK_NAME error. 255\n",
      "** Error : [4] SI_RETURN_VID error. 255\n",
      "** Error : [5] SI_RETURN_PID error. 255\n",
  };
  std::string refused;
  for (size_t i = 0; i < 5; ++i) {
    workbench::ProductStrings strings = workbench::kDefaultProductStrings;
    strings[i] = nullptr;
    m_base.Plug(strings);
    refused += kLines[i];
  }
  Tick();
  EXPECT_EQ(Log(), refused);
  m_base.Plug({"", "", "", "", std::string(255, 'x').c_str()});
  Tick();
  EXPECT_EQ(Log(), refused + kRecovered);
}

TEST_F(CConnectionTest, EnumerationThatFailsTakesTheDeviceDown) {
  Open();
  m_base.Fail(UsbFunction::GetNumDevices, 11);
  Tick();
  EXPECT_EQ(Log(),
            "** Error : SI_GetNumDevices error. 11\n"
            "SI_Close() complete.\n** Down : USB device down...\n" +
                kDisconnected);
}

TEST_F(CConnectionTest, PostThatFailsLeavesTheConnectedFlagChanged) {
  m_queue.accepts = false;
  m_base.Plug();
  m_link.Probe();
  EXPECT_EQ(Log(), kStartupSent +
                       "< USB device connect >\n** USB device connect post failed.\n"
                       "Device setup complete.\nSI_Close() complete.\n");
  EXPECT_TRUE(m_link.IsConnected());

  m_base.Unplug();
  m_link.Probe();
  EXPECT_EQ(Log(),
            "< USB device error connect >\n** USB device error connect post failed.\n"
            "** Error : Device undefined.\n");
  EXPECT_FALSE(m_link.IsConnected());

  m_base.Plug();
  Tick();
  EXPECT_TRUE(m_link.IsConnected());
  Log();
  m_base.Unplug();
  Tick();
  EXPECT_EQ(Log(),
            "SI_Close() complete.\n** Down : USB device down...\n"
            "< USB device disconnect >\n** USB device disconnect post failed.\n");
  EXPECT_FALSE(m_link.IsConnected());
}

TEST_F(CConnectionTest, ShutdownEndsAWatchThreadOnce) {
  struct CThread final : IWatchThread {
    void StopAndWait() noexcept override { ++stops; }
    int stops = 0;
  } thread;
  m_link.StopWatchThread();
  EXPECT_EQ(Log(), "");
  m_link.AttachWatchThread(thread);
  m_link.StopWatchThread();
  m_link.StopWatchThread();
  EXPECT_EQ(Log(), "USB device watch thread exit.\n");
  EXPECT_EQ(thread.stops, 1);
}

}  // namespace
}  // namespace quor
