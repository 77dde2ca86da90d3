#include "workbench/scenario/indications.h"

#include <gmock/gmock.h>

#include "workbench/base/base_frames.h"
#include "workbench/scenario/bytes.h"
#include "workbench/scenario/scenario_error.h"
#include "workbench/scenario/script.h"

namespace quor::workbench {
namespace {

std::string Frame(const std::string& words) {
  return FormatHex(IndicationFromWords(SplitWords(words)));
}

TEST(Indications, AreTheBytesOfTheWire) {
  EXPECT_EQ(Frame("status"), "26 01 00 01 01 01 00 00 0D 0A");
  EXPECT_EQ(Frame("status result=1 line1=2 line2=3 cell=4 log=5 cellsub=0x0F"),
            "26 01 01 02 03 04 05 0F 0D 0A");
  EXPECT_EQ(Frame("receive-call line=cell4 line1=2 line2=2 cell=2 log=7"),
            "26 02 14 02 02 02 07 0D 0A");
  EXPECT_EQ(
      Frame("caller-id line=line2 number=\"0(5*#-1)\" name=\"AB  CD\" no-number=1 no-name=2 "
            "long-distance=1 unit=9"),
      "26 03 21 04 41 42 20 20 43 44 20 20 20 20 20 20 20 20 20 20 08 AE 5B CD 1F 00 00 00 00 "
      "00 00 00 00 02 00 00 09 0D 0A");
  EXPECT_EQ(Frame("close-popup line=cell1 end=0000"), "26 04 11 00 00");
  const std::string cells =
      Frame("cell-registration info=0x0B cell1=Anna cell4=\"14 characters!\"");
  EXPECT_EQ(cells.substr(0, 21), "26 05 0B 41 6E 6E 61 ");
  EXPECT_EQ(cells.size(), 61u * 3 - 1);
  EXPECT_TRUE(cells.ends_with("31 34 20 63 68 61 72 61 63 74 65 72 73 21 0D 0A"));
}

TEST(Indications, CanLieAboutTheLength) {
  EXPECT_EQ(Frame("caller-id number=12 length=25").substr(60, 8), "19 12 00");
}

TEST(Indications, RefuseWhatNoBaseCouldSend) {
  for (const char* words :
       {"ringing", "status line3=1", "status line1", "status line1=256", "status line1=0x",
        "status line1=1 line1=2", "caller-id number=12a", "caller-id name=seventeen-letters",
        "caller-id number=1234567890123456789012345", "caller-id no-name=16",
        "close-popup line=line3", "close-popup end=0D", "close-popup end=0g0A"}) {
    EXPECT_THROW(IndicationFromWords(SplitWords(words)), CScenarioError) << words;
  }
}

TEST(BaseFrames, ReadWhatTheAddInWrites) {
  const struct {
    Bytes bytes;
    BaseRequest::Kind kind;
    uint8_t lineType;
    const char* number;
  } rows[] = {
      {{'+', '1', 13}, BaseRequest::Kind::Startup, 0, ""},
      {{'+', '2', 2, '0', '3', '1', '#', 'p', 13}, BaseRequest::Kind::Call, 2, "1#p"},
      {{'+', '2', 17, '0', '0', 13}, BaseRequest::Kind::Call, 17, ""},
      {{'+', '3', 1, 13}, BaseRequest::Kind::OnHook, 1, ""},
      {{'+', '4', 1, 13}, BaseRequest::Kind::Unknown, 0, ""},
      {{'&', '1', 13}, BaseRequest::Kind::Unknown, 0, ""},
      {{'+', '1', 10}, BaseRequest::Kind::Unknown, 0, ""},
      {{'+', '2', 1, '0', 13}, BaseRequest::Kind::Unknown, 0, ""},
      {{}, BaseRequest::Kind::Unknown, 0, ""},
  };
  for (const auto& row : rows) {
    const BaseRequest request = ReadRequest(row.bytes);
    EXPECT_EQ(request.kind, row.kind) << FormatHex(row.bytes);
    EXPECT_EQ(request.lineType, row.lineType) << FormatHex(row.bytes);
    EXPECT_EQ(request.number, row.number) << FormatHex(row.bytes);
  }
}

}  // namespace
}  // namespace quor::workbench
