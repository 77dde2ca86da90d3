#include "workbench/scenario/indications.h"

#include <gmock/gmock.h>

#include "workbench/base/base_frames.h"
#include "workbench/scenario/bytes.h"
#include "workbench/scenario/scenario_error.h"
#include "workbench/scenario/script.h"

namespace quor::workbench {
namespace {

TEST(Indications, NamesOfCellsFillTheirFields) {
  const std::string frame = FormatHex(IndicationFromWords(
      SplitWords("cell-registration info=0x0B cell1=Anna cell4=\"14 characters!\"")));
  EXPECT_EQ(frame.substr(0, 21), "26 05 0B 41 6E 6E 61 ");
  EXPECT_EQ(frame.size(), 61u * 3 - 1);
  EXPECT_TRUE(frame.ends_with("31 34 20 63 68 61 72 61 63 74 65 72 73 21 0D 0A"));
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
