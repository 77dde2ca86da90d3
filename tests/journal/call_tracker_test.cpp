#include "journal/call_tracker.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "journal/journal_text.h"
#include "resources/resource_ids.h"
#include "telephone/telephone_state.h"

namespace quor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Feeds the base's reports and collects the recorded calls: "slot in|out answered|missed seconds
// name number", one line per call.
class CCallTrackerTest : public testing::Test,
                         private ITickClock,
                         private ILocalClock,
                         private IEndedCalls {
 protected:
  void Wait(uint32_t seconds) { m_tick += seconds * 1000; }
  void Ring(int slot, const std::wstring& number = L"", const std::wstring& name = L"") {
    m_tracker.OnStates(kStateBusy, kStateBusy, kStateBusy);
    m_tracker.OnRing(slot);
    if (!number.empty() || !name.empty()) m_tracker.OnCaller(slot, {name, number, "id"});
  }
  void States(int line1, int line2 = kStateIdle, int cell = kStateIdle) {
    m_tracker.OnStates(static_cast<uint8_t>(line1), static_cast<uint8_t>(line2),
                       static_cast<uint8_t>(cell));
  }
  std::vector<std::string> Recorded() { return std::exchange(m_recorded, {}); }

  double m_now = 45000.5;
  std::vector<double> m_starts;

 private:
  uint32_t TickMilliseconds() noexcept override { return m_tick; }
  double Now() noexcept override { return m_now; }
  void Add(CallRecord call) override {
    m_starts.push_back(call.start);
    m_recorded.push_back(std::to_string(call.slot) +
                         (call.direction == CallDirection::Incoming ? " in " : " out ") +
                         (call.answered ? "answered " : "missed ") + std::to_string(call.seconds) +
                         " " + std::string(call.name.begin(), call.name.end()) + " " +
                         std::string(call.number.begin(), call.number.end()));
  }

  uint32_t m_tick = 0xFFFFF000;  // wraps around during the tests
  std::vector<std::string> m_recorded;

 protected:
  CCallTracker m_tracker{*this, *this, *this};
};

TEST_F(CCallTrackerTest, AnsweredAndMissed) {
  Ring(0, L"555", L"Anna");
  EXPECT_TRUE(m_tracker.IsRinging());
  Wait(9);
  States(kStateInCall);
  m_now -= 1;  // the clock is set back during the call
  Wait(65);
  States(kStateInCall, kStateBusy);
  EXPECT_THAT(Recorded(), IsEmpty());
  States(kStateIdle);
  EXPECT_THAT(Recorded(), ElementsAre("0 in answered 65 Anna 555"));
  EXPECT_THAT(m_starts, ElementsAre(45000.5));

  Ring(4, L"777");
  States(kStateIdle);
  EXPECT_THAT(Recorded(), ElementsAre("4 in missed 0  777"));
  EXPECT_FALSE(m_tracker.IsRinging());
}

TEST_F(CCallTrackerTest, OneEntryWhateverTheBaseRepeats) {
  for (int ring = 0; ring < 5; ++ring)
    Ring(1, L"555");
  States(kStateIdle, kStateOtherCall);
  m_tracker.OnCaller(1, {L"", L"555", ""});
  States(kStateIdle, kStateOtherCall);
  Wait(3);
  States(kStateIdle, kStateIdle);
  States(kStateIdle, kStateIdle);
  EXPECT_THAT(Recorded(), ElementsAre("1 in answered 3  555"));
}

TEST_F(CCallTrackerTest, AnEndThatIsNeverReported) {
  Ring(0, L"111");
  Ring(0, L"222");
  EXPECT_THAT(Recorded(), ElementsAre("0 in missed 0  111"));
  States(kStateInCall);
  Wait(5);
  Ring(0, L"333");  // waits while the other call goes on
  Ring(0, L"444");
  EXPECT_THAT(Recorded(), ElementsAre("0 in missed 0  333"));
  m_tracker.EndAll();
  EXPECT_THAT(Recorded(), ElementsAre("0 in answered 5  222", "0 in missed 0  444"));
  m_tracker.EndAll();
  EXPECT_THAT(Recorded(), IsEmpty());
}

TEST_F(CCallTrackerTest, DialledCalls) {
  m_tracker.OnDial(0, {L"Anna", L"555", "id"});
  States(kStateIdle);  // the number has not reached the line yet
  States(kStateInCall);
  Wait(30);
  States(kStateIdle);
  EXPECT_THAT(Recorded(), ElementsAre("0 out answered 30 Anna 555"));

  m_tracker.OnDial(1, {L"", L"666", ""});
  m_tracker.OnDialRefused();
  States(kStateIdle, kStateIdle);
  m_tracker.OnDial(1, {L"", L"667", ""});
  Wait(61);
  States(kStateIdle, kStateIdle);
  States(kStateIdle, kStateInCall);  // dialled on a handset, long after
  Wait(2);
  States(kStateIdle, kStateIdle);
  EXPECT_THAT(Recorded(), ElementsAre("1 out answered 2  "));
}

TEST_F(CCallTrackerTest, LinesAreTrackedApart) {
  Ring(0, L"1");
  States(kStateInCall);
  m_tracker.OnDial(3, {L"", L"2", ""});
  States(kStateInCall, kStateIdle, kStateInCall);
  Wait(10);
  States(kStateIdle, kStateIdle, kStateInCall);
  EXPECT_THAT(Recorded(), ElementsAre("0 in answered 10  1"));
  Wait(10);
  States(kStateNoBase, kStateNoBase, kStateNoBase);
  EXPECT_THAT(Recorded(), ElementsAre("3 out answered 20  2"));
}

class CTexts final : public IStringTable {
  std::wstring Text(int id) const override { return L"<" + std::to_wstring(id) + L">"; }
};

TEST(JournalTextTest, NamesTheCallerAndTheLength) {
  const CTexts texts;
  const CallRecord call = {kNoSlot, CallDirection::Outgoing, true, 0, 125, L"Anna", L"55-5", "id"};
  EXPECT_EQ(JournalSubject(call, texts), L"<1562> Anna");
  EXPECT_EQ(JournalBody(call, texts),
            L"<1564> <1566>\r\n<1567> Anna\r\n<1568> 55-5\r\n<1569> 2:05\r\n");
  EXPECT_EQ(JournalMinutes(call), 3);
}

}  // namespace
}  // namespace quor
