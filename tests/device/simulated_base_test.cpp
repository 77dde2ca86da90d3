// What scenarios require from the simulated base and the link's own tests do not show.
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

  CBaseSimulator m_base;
  void* m_handle = nullptr;
};

TEST_F(CSimulatedBaseTest, RefusesRequestsTheLibraryRefuses) {
  uint8_t buffer[1] = {};
  uint32_t count = 0;
  void* second = nullptr;
  const std::vector<std::tuple<int, int, const char*>> kRefused = {
      {m_base.Read(m_handle, buffer, 0, &count), kSiInvalidRequestLength, "read nothing"},
      {m_base.Read(m_handle, buffer, 65537, &count), kSiInvalidRequestLength, "read too much"},
      {m_base.Write(m_handle, buffer, 4097, &count), kSiInvalidRequestLength, "write too much"},
      {m_base.Write(m_handle, buffer, 1, nullptr), kSiInvalidParameter, "no count"},
      {m_base.Open(1, &second), kSiDeviceNotFound, "no such device"},
      {m_base.Open(0, &second), kSiDeviceIoFailed, "open already"},
      {m_base.GetProductString(0, nullptr, 0), kSiInvalidParameter, "no buffer"},
  };
  for (const auto& [status, expected, what] : kRefused)
    EXPECT_EQ(status, expected) << what;
  m_base.Unplug();
  EXPECT_EQ(m_base.GetNumDevices(&count), kSiDeviceNotFound);
}

}  // namespace
}  // namespace quor
