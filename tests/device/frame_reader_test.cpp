#include "device/frame_reader.h"

#include "tests/device/allocation_count.h"
#include "tests/device/device_fixture.h"

namespace quor {
namespace {

const std::string kStatusFrame = "26 01 01 02 03 04 05 06 0D 0A";
const std::string kStatusLines =
    "< Inform set status >\n"
    "Result: 0x01, L1: 0x02, L2: 0x03, CELL: 0x04, LOG: 0x05, CELLSUB: 0x06\n";
const std::string kStatusRead = "[R] (10) " + kStatusFrame + "\n" + kStatusLines;
const std::string kNoStart = "** Error : Delimit error STX.(41)... ---> Exec SI_FlushBuffers()\n";

class CFrameReaderTest : public CDeviceLinkTest {
 protected:
  CFrameReaderTest() { Open(); }
  // Removes what a short read has left in the queue.
  void Drain() { m_usb.FlushBuffers(reinterpret_cast<UsbHandle>(1), true, true); }
};

TEST_F(CFrameReaderTest, ReadsOneFrameATick) {
  Feed(kStatusFrame + " 26 04 02 0D 0A");
  EXPECT_TRUE(Tick());
  EXPECT_EQ(Log(), kStatusRead);
  EXPECT_TRUE(Tick());
  EXPECT_FALSE(Tick());
}

TEST_F(CFrameReaderTest, WaitsForAFrameInPieces) {
  Feed("26");
  Feed("01 01 02", 100);
  Feed("03 04 05 06 0D 0A", 2000);
  EXPECT_TRUE(Tick());
  EXPECT_EQ(Log(), kStatusRead);
}

// What the link logs about a queue that cannot be read; nothing is purged or read.
TEST_F(CFrameReaderTest, QueueNotReady) {
  const std::vector<std::tuple<uint32_t, uint32_t, std::string>> kReports = {
      {0, 10, ""},
      {1, 10, "status not ready. SI_RX_OVERRUN\n"},
      {2, 0, "** Error : Queue data nothing.\n"},
      {3, 10, "status not ready. Unknown status.\n"},
  };
  Feed(kStatusFrame);
  for (const auto& [status, count, lines] : kReports) {
    m_base.ReportQueue(status, count, 1);
    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), lines);
  }
  EXPECT_TRUE(Tick());
  EXPECT_EQ(m_base.CallCount(UsbFunction::FlushBuffers), 1U);  // the set-up's call
}

TEST_F(CFrameReaderTest, QueueCheckThatFailsLosesTheDevice) {
  m_base.Fail(UsbFunction::CheckRxQueue, 8);
  EXPECT_FALSE(Tick());
  EXPECT_EQ(Log(), kLost + "** Error : SI_CheckRXQueue error.\n");
  EXPECT_EQ(Events(), "5001");
}

// Reads that end early: in the header (first read) and in the body (second read).
TEST_F(CFrameReaderTest, SurpriseRemoval) {
  for (const uint32_t read : {1U, 2U}) {
    Feed(kStatusFrame);
    m_base.Fail(UsbFunction::Read, 13, {read, read});
    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), kLost + "Surprise Removal on Device Read.(13)\n");
    EXPECT_EQ(Events(), "5001");
    Open();
    m_base.Heal();
  }
}

TEST_F(CFrameReaderTest, ShortReads) {
  const std::vector<std::tuple<uint32_t, uint32_t, std::string>> kReads = {
      {1, 0, "Read size is 0.\n"},
      {1, 1, "Read size unmatch. req=2, exec=1\n"},
      {2, 0, "Read size is 0.\n"},
      {2, 7, "Read size unmatch. req=8, exec=7\n"},
  };
  for (const auto& [read, size, lines] : kReads) {
    const uint32_t flushes = m_base.CallCount(UsbFunction::FlushBuffers);
    Feed(kStatusFrame);
    m_base.Shorten(UsbFunction::Read, size, {read, read});
    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), lines);
    EXPECT_TRUE(m_link.IsOpen());
    EXPECT_EQ(m_base.CallCount(UsbFunction::FlushBuffers), flushes);
    Drain();
  }
}

TEST_F(CFrameReaderTest, WrongStartByteDrainsAndPurges) {
  Feed("41 42 43 44 45");
  EXPECT_FALSE(Tick());
  EXPECT_EQ(Log(), kNoStart + "[R] (2) 43 44\n");
  EXPECT_EQ(m_base.CallCount(UsbFunction::FlushBuffers), 2U);
  EXPECT_TRUE(Receive(kStatusFrame));
}

TEST_F(CFrameReaderTest, WrongStartByteWithNothingBehindItPurgesAllTheSame) {
  Feed("41 26");
  EXPECT_FALSE(Tick());
  EXPECT_EQ(Log(), kNoStart);
  EXPECT_EQ(m_base.CallCount(UsbFunction::FlushBuffers), 2U);
}

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

TEST_F(CFrameReaderTest, UnknownTypePurges) {
  for (const std::string type : {"00", "06", "FF"}) {
    Feed("26 " + type + " 01 02 03");
    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), "** Error : Read Message type error 0x" + type + " ---> SI_FlushBuffers()\n");
    EXPECT_FALSE(Tick());
    EXPECT_EQ(Log(), "");
  }
  Feed("26 06");
  m_base.Fail(UsbFunction::FlushBuffers, 3);
  EXPECT_FALSE(Tick());
  EXPECT_EQ(Log(), "** Error : Read Message type error 0x06 ---> SI_FlushBuffers()\n" + kLost +
                       "** Error : Failed to purge device.(3)\n");
}

TEST_F(CFrameReaderTest, OneRightDelimiterIsEnough) {
  const std::string kBody = "26 04 02 ";
  const std::vector<std::pair<std::string, std::string>> kDelimiters = {
      {"0D 0A", ""},
      {"0D 00", ""},
      {"00 0A", ""},
      {"00 00", "** Error : Delimit error.(0x00-0x00)\n"},
      {"0A 0D", "** Error : Delimit error.(0x0A-0x0D)\n"},
  };
  for (const auto& [delimiters, line] : kDelimiters) {
    EXPECT_TRUE(Receive(kBody + delimiters));
    EXPECT_EQ(Log(), "[R] (5) " + kBody + delimiters + "\n" + line +
                         "< Inform pop-up close >\nLineType: 0x02\n"
                         "** CLOSE_POP_UP_INDICATION ignored.\n");
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
