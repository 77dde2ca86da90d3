#include "workbench/base/believable_base.h"

#include <gmock/gmock.h>

namespace quor::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr uint8_t kLine1 = 1;
constexpr uint8_t kLine2 = 2;
constexpr uint8_t kCell2 = 0x12;

CallerIdReport Caller(uint8_t lineType, const std::string& number = {}) {
  CallerIdReport caller;
  caller.lineType = lineType;
  caller.number = number;
  return caller;
}

// Records each indication by its type; a status with its result and the three states: "status 0 1 1
// 1".
class BelievableBase : public testing::Test, IIndicationLine {
 protected:
  void Send(const Bytes& frame) override {
    const char* names[] = {"", "status", "receive call", "caller id", "close pop-up", "cells"};
    std::string note = names[frame[1]];
    const size_t texts = frame[1] == 1 ? 4 : frame[1] == 2 ? 4 : 0;
    for (size_t i = 0; i < texts; ++i)
      note += " " + std::to_string(frame[2 + i]);
    sent.push_back(note);
  }

  std::vector<std::string> Request(const std::string& text) {
    sent.clear();
    base.OnRequest(Bytes(text.begin(), text.end()));
    return sent;
  }

  std::vector<std::string> sent;
  CBelievableBase base{*this};
};

TEST_F(BelievableBase, LetsCallsOutUnlessItRefusesOneAndEndsThem) {
  EXPECT_THAT(Request(std::string("+2\x02") + "03112\r"), ElementsAre("status 0 1 3 1"));
  EXPECT_EQ(base.NumberInCall(kLine2), "112");
  EXPECT_THAT(Request(std::string("+2\x02") + "015\r"), ElementsAre("status 1 1 3 1"));
  EXPECT_THAT(Request("+3\x02\r"), ElementsAre("status 0 1 1 1"));
  EXPECT_THAT(Request("+3\x02\r"), ElementsAre("status 1 1 1 1"));
  base.RefuseNextCall();
  EXPECT_THAT(Request(std::string("+2\x01") + "015\r"), ElementsAre("status 1 1 1 1"));
  EXPECT_THAT(Request(std::string("+2\x01") + "015\r"), ElementsAre("status 0 3 1 1"));
}

TEST_F(BelievableBase, RingsUntilAnsweredOnTheRightLine) {
  EXPECT_TRUE(base.Ring(Caller(kCell2, "055")));
  EXPECT_THAT(sent, ElementsAre("receive call 18 2 2 2", "caller id"));
  EXPECT_FALSE(base.Ring(Caller(kLine1)));
  EXPECT_THAT(Request(std::string("+2\x01") + "00\r"), ElementsAre("status 1 2 2 2"));
  EXPECT_THAT(Request(std::string("+2\x12") + "00\r"), ElementsAre("status 0 1 1 3"));
  EXPECT_EQ(base.NumberInCall(kCell2), "055");
  EXPECT_TRUE(base.HangUp(kCell2));
  EXPECT_EQ(sent.back(), "status 0 1 1 1");
  EXPECT_FALSE(base.HangUp(kCell2));
}

TEST_F(BelievableBase, RingsUntilTheCallerGivesUp) {
  EXPECT_FALSE(base.GiveUpRinging());
  base.Ring(Caller(kLine1));
  EXPECT_EQ(base.RingingLine(), kLine1);
  EXPECT_TRUE(base.GiveUpRinging());
  EXPECT_EQ(sent.back(), "status 0 1 1 1");
  EXPECT_FALSE(base.Ring(Caller(9)));
}

TEST_F(BelievableBase, ForgetsCallsWhenPluggedInAgain) {
  Request(std::string("+2\x01") + "015\r");
  base.Reset();
  EXPECT_THAT(Request("+1\r"), ElementsAre("cells", "status 0 1 1 1"));
  EXPECT_TRUE(base.UseElsewhere(kLine1, true));
  EXPECT_EQ(sent.back(), "status 0 2 1 1");
  EXPECT_FALSE(base.Ring(Caller(kLine1)));
  EXPECT_TRUE(base.UseElsewhere(kLine1, false));
}

}  // namespace
}  // namespace quor::workbench
