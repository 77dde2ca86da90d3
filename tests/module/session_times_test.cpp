#include "module/session_times.h"

#include <gmock/gmock.h>

namespace quor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const SessionTimes kWhole = {"2009-03-07 08:05:09", 212, 15, 40};
const SessionTimes kCutShort = {"2009-03-08 17:00:00", std::nullopt, std::nullopt, 3};
constexpr char kText[] =
    "2009-03-07 08:05:09 start=212 folder-switch=15 shutdown=40\r\n"
    "2009-03-08 17:00:00 start=- folder-switch=- shutdown=3\r\n";

TEST(SessionTimes, StandOnALineEach) {
  EXPECT_EQ(FormatSessionTimes({kWhole, kCutShort}), kText);
  EXPECT_THAT(ParseSessionTimes(kText), ElementsAre(kWhole, kCutShort));
  EXPECT_THAT(ParseSessionTimes("2009-03-07 08:05:09 start=212 folder-switch=15 shutdown=40"),
              ElementsAre(kWhole));
}

TEST(SessionTimes, OtherLinesAreSkipped) {
  for (const char* line : {"", "2009-03-07 08:05:09 start=212 folder-switch=15",
                           "2009-03-07 08:05:09 start=212 folder-switch=15 shutdown=40 more",
                           "2009-03-07 08:05:09 start= folder-switch=15 shutdown=40",
                           "2009-03-07 08:05:09 start=99999999999 folder-switch=15 shutdown=40",
                           "x009-03-07 08:05:09 start=212 folder-switch=15 shutdown=40"}) {
    EXPECT_THAT(ParseSessionTimes(line), IsEmpty()) << line;
    EXPECT_THAT(ParseSessionTimes(std::string(line) + "\n" + kText), SizeIs(2)) << line;
  }
}

TEST(SessionTimes, TheLastTwentySessionsStay) {
  std::vector<SessionTimes> sessions;
  for (uint32_t i = 0; i < 25; ++i)
    AddSession(sessions, {"2009-03-07 08:05:" + std::to_string(10 + i), i, {}, {}});
  ASSERT_THAT(sessions, SizeIs(kMostSessions));
  EXPECT_EQ(sessions.front().start, 5u);
  // Outlook closes in two steps, each of which writes.
  sessions.back().shutdown = 3;
  const SessionTimes last = sessions.back();
  AddSession(sessions, last);
  EXPECT_THAT(sessions, SizeIs(kMostSessions));
  EXPECT_EQ(sessions.back(), last);
  EXPECT_EQ(sessions.front().start, 5u);
}

}  // namespace
}  // namespace quor
