#include "device/indication_dispatcher.h"

#include <cstring>

#include "tests/device/device_fixture.h"

namespace quor {
namespace {

constexpr const char* kStatusFrame = "26 01 00 01 02 01 00 0F 0D 0A";

// Fields of a caller-ID frame, in hexadecimal.
struct CallerIdFields {
  std::string reasons = "00";
  std::string flags = "00";
  std::string name = "41 42 20 20 43 44 20 20 20 20 20 20 20 20 20 20";
  std::string numberLength = "00";
  std::string number = "12 34 56 78 9A BC DE F0 12 34 56 78";
  std::string lineType = "02";
};

std::string CallerIdFrame(const CallerIdFields& fields = {}) {
  return "26 03 " + fields.reasons + " " + fields.flags + " " + fields.name + " " +
         fields.numberLength + " " + fields.number + " " + fields.lineType + " EE EE 07 0D 0A";
}

// Each of the four names repeats one byte fourteen times.
std::string CellFrame(const char* first, const char* second, const char* third,
                      const char* fourth) {
  std::string frame = "26 05 0B";
  for (const char* byte : {first, second, third, fourth}) {
    for (int i = 0; i < 14; ++i)
      frame += std::string(" ") + byte;
  }
  return frame + " 0D 0A";
}

class CIndicationTest : public CDeviceLinkTest {
 protected:
  // The log without the frame's dump, which frame_reader_test checks.
  std::string LogAfterDump() {
    const std::string lines = Log();
    return lines.substr(lines.find('\n') + 1);
  }
};

TEST_F(CIndicationTest, ReceiveCall) {
  Receive("26 02 12 02 03 04 05 0D 0A");
  EXPECT_EQ(LogAfterDump(),
            "< Inform receive call >\n"
            "LineType: 0x12, L1: 0x02, L2: 0x03, CELL: 0x04, LOG: 0x05, CELLSUB: 0x0D\n");
  EXPECT_EQ(Events(), "5101:18");
  EXPECT_EQ(std::memcmp(&m_records.incomingCall[3], "\x12\x02\x03\x04\x05\x0D", 6), 0);
}

TEST_F(CIndicationTest, CallerId) {
  Receive(CallerIdFrame({.reasons = "21", .flags = "FF", .numberLength = "07"}));
  EXPECT_EQ(LogAfterDump(),
            "< Inform CID >\n"
            "NoNum: 0x01, NoName: 0x02, LongDistance: 0x01, Name[0]: 0x41, NumberLength: 0x07, "
            "Number: 1234567, LineTtype: 0x02, LineUnitNo: 0x07\n");
  EXPECT_EQ(Events(), "5102:2");
  const CallerIdRecord& caller = m_records.callerId[1];
  EXPECT_EQ(caller.noNum, 1);
  EXPECT_EQ(caller.noName, 2);
  EXPECT_EQ(caller.longDistance, 1);
  EXPECT_STREQ(caller.number, "1234567");
  EXPECT_EQ(caller.lineType, kLine2);
  EXPECT_EQ(caller.lineUnitNo, 7);
  EXPECT_STREQ(m_records.lastCaller[1].number, "1234567");

  Receive(CallerIdFrame({.flags = "FB", .lineType = "11"}));
  EXPECT_EQ(m_records.callerId[2].longDistance, 0);
  EXPECT_STREQ(m_records.callerId[1].number, "1234567");
}

TEST_F(CIndicationTest, NumberLengths) {
  const std::vector<std::pair<std::string, std::string>> kNumbers = {
      {"00", ""}, {"01", "1"}, {"10", "1234567890*#-() "}, {"18", "1234567890*#-() 12345678"},
      {"19", ""}, {"FF", ""},
  };
  for (const auto& [length, number] : kNumbers) {
    Receive(CallerIdFrame({.numberLength = length}));
    const int value = std::stoi(length, nullptr, 16);
    EXPECT_EQ(m_records.callerId[1].number, number);
    EXPECT_EQ(m_records.lastCaller[1].number, number);
    const std::string error =
        "< Inform CID >\n** Error : Dial number error.(" + std::to_string(value) + ")\nNoNum";
    EXPECT_EQ(LogAfterDump().starts_with(error), value >= 25) << length;
  }
}

TEST_F(CIndicationTest, NamesLoseTheirPadding) {
  const std::vector<std::pair<std::string, std::string>> kNames = {
      {"41 42 20 20 43 44 20 20 20 20 20 20 20 20 20 20", "AB  CD"},
      {"20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20", ""},
      {"20 41 20 20 20 20 20 20 20 20 20 20 20 20 20 20", " A"},
      {"41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50", "ABCDEFGHIJKLMNOP"},
      {"41 00 20 20 20 20 20 20 20 20 20 20 20 20 20 FF", "A"},
  };
  for (const auto& [wire, name] : kNames) {
    Receive(CallerIdFrame({.name = wire}));
    EXPECT_EQ(m_records.callerId[1].name, name);
    EXPECT_EQ(m_records.callerId[1].name[16], '\0');
  }
  EXPECT_EQ(m_records.callerId[1].name[15], '\xFF');
  Log();
  Receive(CallerIdFrame({.name = "E9 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20"}));
  EXPECT_NE(Log().find("Name[0]: 0xE9,"), std::string::npos);
}

TEST_F(CIndicationTest, CellRegistrationWithNamesThatFillTheirFields) {
  Receive(CellFrame("41", "42", "43", "00"));
  EXPECT_EQ(LogAfterDump(),
            "< Inform Cell Regist Information >\n"
            "RegInfo: 0x0B, Cell1Name: AAAAAAAAAAAAAA, Cell2Name: BBBBBBBBBBBBBB, "
            "Cell3Name: CCCCCCCCCCCCCC, Cell4Name: \n");
  EXPECT_EQ(Events(), "5104");
  EXPECT_EQ(m_records.cells.regInfo, 0x0B);
  EXPECT_EQ(FieldText(m_records.cells.names[2]), "CCCCCCCCCCCCCC");
  EXPECT_EQ(FieldText(m_records.cells.names[3]), "");
}

TEST_F(CIndicationTest, LineWithoutSlotIsDropped) {
  const std::vector<std::pair<std::string, std::string>> kDropped = {
      {"26 02 03 02 03 04 05 0D 0A",
       "< Inform receive call >\n"
       "LineType: 0x03, L1: 0x02, L2: 0x03, CELL: 0x04, LOG: 0x05, CELLSUB: 0x0D\n"},
      {CallerIdFrame({.numberLength = "01", .lineType = "15"}),
       "< Inform CID >\n"
       "NoNum: 0x00, NoName: 0x00, LongDistance: 0x00, Name[0]: 0x41, NumberLength: 0x01, "
       "Number: 1, LineTtype: 0x15, LineUnitNo: 0x07\n"},
      {"26 04 00 0D 0A", "< Inform pop-up close >\nLineType: 0x00\n"},
  };
  Receive(kStatusFrame);
  Log();
  Events();
  DeviceRecords before;
  std::memcpy(&before, &m_records, sizeof before);
  for (const auto& [frame, lines] : kDropped) {
    EXPECT_TRUE(Receive(frame));
    EXPECT_EQ(LogAfterDump(), lines);
    EXPECT_EQ(Events(), "");
    EXPECT_EQ(std::memcmp(&before, &m_records, sizeof before), 0);
  }
}

TEST_F(CIndicationTest, PostThatFailsKeepsTheRecord) {
  Open();
  m_queue.accepts = false;
  const std::vector<std::pair<std::string, std::string>> kPosts = {
      {kStatusFrame, "** SET_STATUS_INDICATION post failed.\n"},
      {"26 02 01 02 02 02 00 0D 0A", "** RECEIVE_CALL_INDICATION post failed.\n"},
      {CallerIdFrame({.numberLength = "03"}), "** RECEIVE_CID_INDICATION post failed.\n"},
      {CellFrame("41", "41", "41", "41"), "** CELL_REGIST_INFO_INDICATION post failed.\n"},
  };
  for (const auto& [frame, line] : kPosts) {
    Receive(frame);
    EXPECT_TRUE(LogAfterDump().ends_with("\n" + line)) << frame;
  }
  EXPECT_EQ(m_records.status.line2, 2);
  EXPECT_EQ(m_records.incomingCall[0].lineType, kLine1);
  EXPECT_STREQ(m_records.callerId[1].number, "123");
}

TEST_F(CIndicationTest, TypeThatNoReaderLetsThrough) {
  m_records.lastStatus = {};
  CIndicationDispatcher(m_records, m_queue, m_log).Dispatch(Bytes("26 06 0D 0A"));
  EXPECT_EQ(Log(), "< Message Type Errror >\n");
  EXPECT_EQ(m_records.lastStatus, kNothingReported);
}

}  // namespace
}  // namespace quor
