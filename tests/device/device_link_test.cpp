#include "device/device_link.h"

#include "tests/device/device_fixture.h"

namespace quor {
namespace {

class CConnectionTest : public CDeviceLinkTest {};

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

TEST_F(CConnectionTest, SixteenUnreadableDevicesEndTheSearch) {
  std::string refused;
  for (int i = 1; i <= 16; ++i) {
    m_base.Plug({nullptr, "", "", "", ""});
    refused += "** Error : [" + std::to_string(i) + "] SI_RETURN_SERIAL_NUMBER error. 255\n";
  }
  m_base.Plug();
  Tick();
  EXPECT_EQ(Log(), refused);
  m_base.Unplug(0);
  Tick();
  EXPECT_EQ(Log(), refused.substr(0, refused.find("** Error : [16]")) + kRecovered);
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

// The base refuses a second open.
TEST_F(CConnectionTest, AProbeClosesABaseThatAnEarlierConnectionLeftOpen) {
  Open();
  m_link.Probe();
  EXPECT_EQ(Log().find("** Error"), std::string::npos);
  EXPECT_TRUE(m_link.IsConnected());
  EXPECT_EQ(m_base.OpenHandles(), 0U);
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

TEST_F(CConnectionTest, CountsItsHealthWithTheLogOff) {
  m_log.SetEnabled(false);
  const auto poll = [this](uint32_t began, uint32_t ended) {
    Tick();
    m_link.NotePoll(began, ended);
  };
  m_base.Plug();
  poll(100, 130);
  for (const char* bytes : {"41 42", "26 7F", "26 04 0D 0A"}) {
    m_base.Queue(Bytes(bytes));
    poll(200, 210);
  }
  m_base.Unplug();
  poll(300, 301);
  m_base.Plug();
  poll(0xFFFFFFF0, 0x00000020);
  const LinkHealth& health = m_link.Health();
  EXPECT_EQ(health.badStartBytes, 1u);
  EXPECT_EQ(health.unknownTypes, 1u);
  EXPECT_EQ(health.connections, 2u);
  EXPECT_EQ(health.longestPoll, 48u);
  EXPECT_EQ(health.connectedSince, 0x20u);
  EXPECT_EQ(health.badDelimiters + health.overruns, 0u);
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
