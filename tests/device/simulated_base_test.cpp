// What the scenarios rely on in the simulated base, beyond what the link's own tests show of it.
#include "tests/device/device_fixture.h"

namespace quor {
namespace {

using namespace workbench;

class CSimulatedBaseTest : public ::testing::Test {
 protected:
  CSimulatedBaseTest() {
    m_base.Plug();
    m_base.Open(0, &m_handle);
    m_base.SetTimeouts(3000, 3000);
  }

  // "status: bytes" of one SI_Read.
  std::string Read(uint32_t wanted) {
    std::vector<uint8_t> buffer(wanted);
    uint32_t read = 0;
    const int status = m_base.Read(m_handle, buffer.data(), wanted, &read);
    return std::to_string(status) + ": " + Hex(std::span(buffer).first(read));
  }
  uint32_t Queued() {
    uint32_t queued = 0, status = 0;
    m_base.CheckRxQueue(m_handle, &queued, &status);
    EXPECT_EQ(status, queued == 0 ? kSiRxEmpty : kSiRxReady);
    return queued;
  }

  CBaseSimulator m_base;
  void* m_handle = nullptr;
};

TEST_F(CSimulatedBaseTest, PiecesArriveWhileAReadWaits) {
  m_base.Queue(Bytes("01 02"));
  m_base.Queue(Bytes("03"), 2000);
  m_base.Queue(Bytes("04"), 2000);
  EXPECT_EQ(Queued(), 2U);
  EXPECT_EQ(Read(3), "0: 01 02 03");
  EXPECT_EQ(m_base.Now(), 2000U);
  EXPECT_EQ(Queued(), 0U);
  m_base.Advance(2000);
  EXPECT_EQ(Queued(), 1U);
}

TEST_F(CSimulatedBaseTest, ReadsTimeOut) {
  m_base.Queue(Bytes("01"));
  m_base.Queue(Bytes("02"), 3001);
  EXPECT_EQ(Read(2), "0: 01");
  EXPECT_EQ(m_base.Now(), 3000U);
  EXPECT_EQ(Read(2), "0: 02");
  EXPECT_EQ(Read(2), "13: ");
  m_base.SetTimeouts(UINT32_MAX, 0);
  EXPECT_EQ(Read(1), "13: ");
  EXPECT_EQ(m_base.Now(), 9000U);
}

TEST_F(CSimulatedBaseTest, FlushTakesWhatHasArrived) {
  m_base.Queue(Bytes("01 02"));
  m_base.Queue(Bytes("03"), 10);
  EXPECT_EQ(m_base.FlushBuffers(m_handle, 1, 0), kSiSuccess);
  EXPECT_EQ(Queued(), 2U);
  EXPECT_EQ(m_base.FlushBuffers(m_handle, 0, 1), kSiSuccess);
  EXPECT_EQ(Read(1), "0: 03");
}

TEST_F(CSimulatedBaseTest, HandlesOfAnUnpluggedDeviceFailUntilClosed) {
  m_base.Queue(Bytes("01"));
  m_base.Unplug();
  m_base.Plug();
  EXPECT_EQ(Read(1), "8: ");
  EXPECT_EQ(m_base.OpenHandles(), 1U);
  EXPECT_EQ(m_base.Close(m_handle), kSiSuccess);
  EXPECT_EQ(m_base.Close(m_handle), kSiInvalidHandle);
  EXPECT_EQ(Read(1), "1: ");
  EXPECT_EQ(m_base.OpenHandles(), 0U);
}

TEST_F(CSimulatedBaseTest, FaultsHitTheirCallsAndHeal) {
  m_base.Fail(UsbFunction::SetBaudRate, 9, {2, 3});
  std::string statuses;
  for (int i = 0; i < 4; ++i)
    statuses += std::to_string(m_base.SetBaudRate(m_handle, 19200));
  EXPECT_EQ(statuses, "0990");
  m_base.Fail(UsbFunction::SetBaudRate, 9, {1, kForEver});
  EXPECT_EQ(m_base.SetBaudRate(m_handle, 19200), 9);
  m_base.Heal();
  EXPECT_EQ(m_base.SetBaudRate(m_handle, 19200), 0);
  EXPECT_EQ(m_base.CallCount(UsbFunction::SetBaudRate), 6U);
}

TEST_F(CSimulatedBaseTest, RefusesRequestsTheLibraryRefuses) {
  uint8_t buffer[1] = {};
  uint32_t count = 0;
  const std::vector<std::tuple<int, int, const char*>> kRefused = {
      {m_base.Read(m_handle, buffer, 0, &count), kSiInvalidRequestLength, "read nothing"},
      {m_base.Read(m_handle, buffer, 65537, &count), kSiInvalidRequestLength, "read too much"},
      {m_base.Write(m_handle, buffer, 4097, &count), kSiInvalidRequestLength, "write too much"},
      {m_base.Write(m_handle, buffer, 1, nullptr), kSiInvalidParameter, "no count"},
      {m_base.Open(1, &m_handle), kSiDeviceNotFound, "no such device"},
      {m_base.GetProductString(0, nullptr, 0), kSiInvalidParameter, "no buffer"},
  };
  for (const auto& [status, expected, what] : kRefused)
    EXPECT_EQ(status, expected) << what;
  m_base.Unplug();
  EXPECT_EQ(m_base.GetNumDevices(&count), kSiDeviceNotFound);
}

}  // namespace
}  // namespace quor
