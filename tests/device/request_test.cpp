#include <cstring>

#include "device/request_handlers.h"
#include "device/tel_ctrl.h"
#include "tests/device/device_fixture.h"

namespace quor {
namespace {

class CRequestTest : public CDeviceLinkTest {
 protected:
  struct CDisplay final : ICallFromCellDisplay {
    void PutCallFromCellButton() override { ++refreshed; }
    int refreshed = 0;
  };

  CRequestTest() { Open(); }

  void SetDial(int slot, std::string_view number) {
    DialRecord& dial = m_records.dial[static_cast<size_t>(slot)];
    dial = {.lineType = LineTypeFromSlot(slot), .numberLength = 0, .number = {}};
    std::memcpy(dial.number, number.data(), number.size());
  }

  CDisplay m_display;
  CRequestHandlers m_handlers{m_link, m_records, m_display, m_log};
};

TEST_F(CRequestTest, Startup) {
  m_handlers.OnStartupRequest();
  EXPECT_EQ(Log(), "CAddin::OnStartupRequest\n" + kStartupSent);
  m_base.Fail(UsbFunction::Write, 14);
  m_handlers.OnStartupRequest();
  EXPECT_TRUE(Log().ends_with("** CAddin::OnStartupRequest error.\n"));
}

TEST_F(CRequestTest, CallWithANumber) {
  SetDial(1, "5551234");
  m_handlers.OnCallRequest(kLine2);
  EXPECT_EQ(Log(),
            "CAddin::OnCallRequest\n"
            "< Call request >\n"
            "[S] (13) 2B 32 02 30 37 35 35 35 31 32 33 34 0D\n"
            "SI_Write complete.\n"
            "Call request Line2 (#5551234) complete. ( request size: 12 )\n");
}

TEST_F(CRequestTest, NumberLengthsOnTheWire) {
  const std::vector<std::pair<size_t, std::string>> kLengths = {
      {0, "30 30"}, {9, "30 39"}, {10, "31 30"}, {99, "39 39"}, {100, "30 30"}, {123, "30 30"}};
  for (const auto& [length, digits] : kLengths) {
    std::string number(length, '8');
    std::string expected = "2B 32 11 " + digits;
    for (size_t i = 0; i < length; ++i)
      expected += " 38";
    EXPECT_TRUE(m_link.SendCallRequest(kCell1, number));
    EXPECT_EQ(Wire(), expected + " 0D");
    EXPECT_EQ(number, "");
  }
}

TEST_F(CRequestTest, NumberThatFillsItsField) {
  SetDial(0, std::string(25, '7'));
  SetDial(1, "8");  // a reader that misses the terminator would read on here
  m_handlers.OnCallRequest(kLine1);
  EXPECT_EQ(m_base.Written(m_base.WrittenCount() - 1).bytes.size(), 31U);
}

TEST_F(CRequestTest, OnHook) {
  m_records.onHookLine[3] = kCell2;
  m_records.lastCaller[3].lineType = kCell2;
  m_handlers.OnOnHookRequest(kCell2);
  EXPECT_EQ(Log(),
            "CAddin::OnOnHookRequest\n"
            "< On hook request >\n"
            "[S] (4) 2B 33 12 0D\n"
            "SI_Write complete.\n"
            "On hook complete. 18 ( request size: 4 )\n");
  EXPECT_EQ(m_records.lastCaller[3].lineType, kNoLine);
  EXPECT_EQ(m_display.refreshed, 1);
}

// For each request: a write that the library refuses, and one that it shortens.
TEST_F(CRequestTest, WritesThatFail) {
  struct Request {
    void (CRequestHandlers::*post)(uint32_t);
    std::string heading, frame, failure;
  };
  const std::vector<Request> kRequests = {
      {&CRequestHandlers::OnCallRequest, "CAddin::OnCallRequest\n< Call request >\n",
       "[S] (7) 2B 32 01 30 31 35 0D\n",
       "** Error : #5 Failed to send start up request. (0x01)\n** CAddin::OnCallRequest error.\n"},
      {&CRequestHandlers::OnOnHookRequest, "CAddin::OnOnHookRequest\n< On hook request >\n",
       "[S] (4) 2B 33 01 0D\n",
       "** Error : Failed to send on hook request. (1)\n** CAddin::OnOnHookRequest error.\n"},
  };
  SetDial(0, "5");
  m_records.onHookLine[0] = kLine1;
  for (const Request& request : kRequests) {
    m_base.Fail(UsbFunction::Write, 4);
    (m_handlers.*request.post)(kLine1);
    EXPECT_EQ(Log(), request.heading + request.frame + "** Error : SI_Write error. (4)\n" + kLost +
                         request.failure);
    EXPECT_EQ(Events(), "5001");
    Tick();
    Log();
    Events();

    m_base.Shorten(UsbFunction::Write, 3);
    (m_handlers.*request.post)(kLine1);
    EXPECT_EQ(Log(), request.heading + request.frame +
                         "** Error : SI_Write size unmatch error. (from:0, to:3)\n" + kLost +
                         request.failure);
    EXPECT_FALSE(m_link.IsOpen());
    Tick();
    Log();
    Events();
  }
}

TEST_F(CRequestTest, LinesWithoutASlotAreRefused) {
  for (const uint32_t lineType : {0U, 3U, 0x10U, 0x15U, 0x101U, 0xFFFFFFFFU}) {
    m_handlers.OnCallRequest(lineType);
    m_handlers.OnOnHookRequest(lineType);
    EXPECT_EQ(Log(),
              "CAddin::OnCallRequest\n** CAddin::OnCallRequest error.\n"
              "CAddin::OnOnHookRequest\n** CAddin::OnOnHookRequest error.\n");
  }
  EXPECT_EQ(Wire(), "");
}

struct CCountedEvents final : IEventObjects {
  void* CreateManualResetEvent() noexcept override { return available-- > 0 ? this : nullptr; }
  void CloseEvent(void* event) noexcept override { closed += event == this ? 1 : 100; }
  int available = 2;
  int closed = 0;
};

TEST(CTelCtrlTest, HoldsTheLogFlagTheEventsAndTheStartTime) {
  CRecordedLog lines;
  CDiagnosticLog log(lines);
  CCountedEvents events;
  {
    CTelCtrl control(events, log, 1234);
    EXPECT_EQ(control.Initialize(), 1);
    EXPECT_EQ(lines.text, "");
    control.SetLogFlag(true);
    EXPECT_TRUE(log.IsEnabled());
    EXPECT_EQ(control.Initialize(), 1);
    EXPECT_EQ(control.StartTime(), 1234U);
    EXPECT_EQ(control.TimingValues(),
              (CTelCtrl::Timings{10000, 60000, 15000, 15000, 5000, 0, 500, 400}));
  }
  EXPECT_EQ(lines.text, "Initialize\nCTelCtrl Destructor\n");
  EXPECT_EQ(events.closed, 2);
  events.available = 1;
  { const CTelCtrl without(events, log, 0); }
  EXPECT_EQ(events.closed, 3);
}

}  // namespace
}  // namespace quor
