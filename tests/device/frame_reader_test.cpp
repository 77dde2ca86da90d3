#include "device/frame_reader.h"

#include "tests/device/allocation_count.h"
#include "tests/device/device_fixture.h"

namespace quor {
namespace {

const std::string kNoStart = "** Error : Delimit error STX.(41)... ---> Exec SI_FlushBuffers()\n";

class CFrameReaderTest : public CDeviceLinkTest {
 protected:
  CFrameReaderTest() { Open(); }
};

TEST_F(CFrameReaderTest, DrainsNoMoreThanItsBuffer) {
  Feed("41 42");
  m_base.Queue(std::vector<uint8_t>(5000, 0x55));
  m_base.Shorten(UsbFunction::Read, 1, {2, 2});
  struct CReads final : workbench::ICallObserver {
    void OnCall(const workbench::UsbCall& call) noexcept override {
      if (call.function == UsbFunction::Read) text += call.text;
    }
    std::string text;
  } reads;
  m_base.Observe(&reads);
  EXPECT_FALSE(Tick());
  EXPECT_EQ(reads.text, "SI_Read(#1, 2) = 0, 41 42SI_Read(#1, 1024) = 0, 55");
  EXPECT_EQ(Log(), kNoStart + "[R] (2) 55 00\n");
}

// The device is lost once, whichever step of the resynchronisation notices it.
TEST_F(CFrameReaderTest, LostWhileResynchronising) {
  const std::vector<std::tuple<UsbFunction, uint32_t, std::string>> kFailures = {
      {UsbFunction::CheckRxQueue, 2, kLost + "** Error : SI_CheckRXQueue error.\n"},
      {UsbFunction::Read, 2, kLost + "Surprise Removal on Device Read.(8)\n"},
      {UsbFunction::FlushBuffers, 1,
       "[R] (2) 43 00\n" + kLost + "** Error : Failed to purge device.(8)\n"},
  };
  for (const auto& [function, call, lines] : kFailures) {
    Feed("41 42 43");
    m_base.Fail(function, 8, {call, call});
    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), kNoStart + lines);
    EXPECT_EQ(Events(), "5001");
    m_base.Heal();
    Open();
  }
}

TEST_F(CFrameReaderTest, AllocatesNothingWhileTheLogIsOff) {
  m_log.SetEnabled(false);
  m_queue.accepts = false;  // recording would allocate
  for (uint8_t type = 1; type <= 5; ++type) {
    std::vector<uint8_t> frame(kHeaderSize + IndicationBodySize(type), kLine2);
    frame[0] = kIndicationStart;
    frame[1] = type;
    m_base.Queue(frame);
  }
  Feed("41 41 41");
  const size_t before = AllocationCount();
  for (int tick = 0; tick < 7; ++tick)
    Tick();
  EXPECT_EQ(AllocationCount(), before);
  EXPECT_EQ(m_records.incomingCall[1].lineType, kLine2);
  EXPECT_EQ(m_records.cells.regInfo, 2);
  EXPECT_EQ(m_lines.text, "");
}

}  // namespace
}  // namespace quor
