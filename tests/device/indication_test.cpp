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

TEST_F(CIndicationTest, CallerIdsAreKeptByLine) {
  Receive(CallerIdFrame({.reasons = "21", .flags = "FF", .numberLength = "07"}));
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
  EXPECT_STREQ(caller.number, "1234567");
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

TEST_F(CIndicationTest, LineWithoutSlotChangesNoRecord) {
  Receive(kStatusFrame);
  Events();
  DeviceRecords before;
  std::memcpy(&before, &m_records, sizeof before);
  for (const std::string& frame :
       {std::string("26 02 03 02 03 04 05 0D 0A"),
        CallerIdFrame({.numberLength = "01", .lineType = "15"}), std::string("26 04 00 0D 0A")}) {
    EXPECT_TRUE(Receive(frame));
    EXPECT_EQ(Events(), "");
    EXPECT_EQ(std::memcmp(&before, &m_records, sizeof before), 0);
  }
}

TEST_F(CIndicationTest, TypeThatNoReaderLetsThrough) {
  m_records.lastStatus = {};
  CIndicationDispatcher(m_records, m_queue, m_log).Dispatch(Bytes("26 06 0D 0A"));
  EXPECT_EQ(Log(), "< Message Type Errror >\n");
  EXPECT_EQ(m_records.lastStatus, kNothingReported);
}

}  // namespace
}  // namespace quor
