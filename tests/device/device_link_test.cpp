#include "device/device_link.h"

#include "tests/device/device_fixture.h"

namespace quor {
namespace {

class CConnectionTest : public CDeviceLinkTest {};

TEST_F(CConnectionTest, SixteenUnreadableDevicesEndTheSearch) {
  std::string refused;
  for (int i = 1; i <= 16; ++i) {
    m_base.Plug({nullptr, "", "", "", ""});
    refused += "** Error : [" + std::to_string(i) + "] SI_RETURN_SERIAL_NUMBER error. 255\n";
  }
  const std::string longest(255, 'x');
  m_base.Plug({"", "", "", "", longest.c_str()});
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
  EXPECT_FALSE(m_link.IsConnected());
}

// The base refuses a second open.
TEST_F(CConnectionTest, AProbeClosesABaseThatAnEarlierConnectionLeftOpen) {
  Open();
  m_link.Probe();
  EXPECT_EQ(Log().find("** Error"), std::string::npos);
  EXPECT_TRUE(m_link.IsConnected());
  EXPECT_EQ(m_base.OpenHandles(), 0U);
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
