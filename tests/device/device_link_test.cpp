// The link with a simulated base, as far as scenarios do not play it.
#include "device/device_link.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "device/request_handlers.h"
#include "device/tel_ctrl.h"
#include "workbench/siusbxp/base_simulator.h"

namespace quor {
namespace {

using workbench::UsbFunction;

// Connects the link to the simulated base.
class CSimulatedUsb final : public IUsbXpress {
 public:
  explicit CSimulatedUsb(workbench::CBaseSimulator& base) : m_base(base) {}

  int GetNumDevices(uint32_t& count) noexcept override { return m_base.GetNumDevices(&count); }
  int GetProductString(uint32_t device, char* buffer, ProductString option) noexcept override {
    return m_base.GetProductString(device, buffer, static_cast<uint32_t>(option));
  }
  int Open(uint32_t device, UsbHandle& handle) noexcept override {
    return m_base.Open(device, &handle);
  }
  int Close(UsbHandle handle) noexcept override { return m_base.Close(handle); }
  int Read(UsbHandle handle, uint8_t* buffer, uint32_t wanted, uint32_t& read) noexcept override {
    largestRead = std::max(largestRead, wanted);
    return m_base.Read(handle, buffer, wanted, &read);
  }
  int Write(UsbHandle handle, const uint8_t* bytes, uint32_t count,
            uint32_t& written) noexcept override {
    return m_base.Write(handle, bytes, count, &written);
  }
  int FlushBuffers(UsbHandle handle, bool transmit, bool receive) noexcept override {
    return m_base.FlushBuffers(handle, transmit ? 1 : 0, receive ? 1 : 0);
  }
  int SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept override {
    return m_base.SetTimeouts(readTimeout, writeTimeout);
  }
  int CheckRxQueue(UsbHandle handle, uint32_t& queued, uint32_t& status) noexcept override {
    return m_base.CheckRxQueue(handle, &queued, &status);
  }
  int SetBaudRate(UsbHandle handle, uint32_t baudRate) noexcept override {
    return m_base.SetBaudRate(handle, baudRate);
  }
  int SetLineControl(UsbHandle handle, uint16_t lineControl) noexcept override {
    return m_base.SetLineControl(handle, lineControl);
  }
  int SetFlowControl(UsbHandle handle, const FlowControl&) noexcept override {
    return m_base.SetFlowControl(handle, std::array<int, 6>{});
  }

  uint32_t largestRead = 0;

 private:
  workbench::CBaseSimulator& m_base;
};

const std::string kLost =
    "SI_Close() complete.\n< USB device disconnect >\nUSB device disconnect post complete.\n";

class CDeviceLinkTest : public testing::Test,
                        private ILogWriter,
                        private IMessageQueue,
                        private ICallFromCellDisplay {
 protected:
  CDeviceLinkTest() { m_log.SetEnabled(true); }

  // Plugs the base in, opens it by a tick, and drops what this has logged.
  void Open() {
    m_base.Plug();
    m_link.ReceiveFrame();
    Log();
  }
  // Polls once, with these bytes queued.
  bool Receive(const std::vector<uint8_t>& bytes) {
    m_base.Queue(bytes);
    return m_link.ReceiveFrame();
  }
  // The lines since the last call.
  std::string Log() { return std::exchange(m_logged, {}); }
  std::string LastWritten() const {
    const auto bytes = m_base.Written(m_base.WrittenCount() - 1).bytes;
    return {bytes.begin(), bytes.end()};
  }

  workbench::CBaseSimulator m_base;
  CSimulatedUsb m_usb{m_base};
  CDiagnosticLog m_log{*this};
  DeviceRecords m_records;
  CDeviceLink m_link{m_usb, *this, m_records, m_log};
  CRequestHandlers m_handlers{m_link, m_records, *this, m_log};

 private:
  void WriteLine(std::string_view line) noexcept override { m_logged += line; }
  bool PostDeviceEvent(DeviceEvent, uint8_t) noexcept override { return true; }
  bool PostRequest(WindowRequest, uint32_t) noexcept override { return true; }
  void PutCallFromCellButton() override {}

  std::string m_logged;
};

TEST_F(CDeviceLinkTest, SixteenUnreadableDevicesEndTheSearch) {
  std::string refused;
  for (int i = 1; i <= 16; ++i) {
    m_base.Plug({nullptr, "", "", "", ""});
    refused += "** Error : [" + std::to_string(i) + "] SI_RETURN_SERIAL_NUMBER error. 255\n";
  }
  const std::string longest(255, 'x');
  m_base.Plug({"", "", "", "", longest.c_str()});
  m_link.ReceiveFrame();
  EXPECT_EQ(Log(), refused);
  m_base.Unplug(0);
  m_link.ReceiveFrame();
  EXPECT_TRUE(m_link.IsOpen());
}

TEST_F(CDeviceLinkTest, EnumerationThatFailsTakesTheDeviceDown) {
  Open();
  m_base.Fail(UsbFunction::GetNumDevices, 11);
  m_link.ReceiveFrame();
  EXPECT_EQ(m_base.OpenHandles(), 0U);
}

// The base refuses a second open.
TEST_F(CDeviceLinkTest, AProbeClosesABaseThatAnEarlierConnectionLeftOpen) {
  Open();
  m_link.Probe();
  EXPECT_EQ(Log().find("** Error"), std::string::npos);
  EXPECT_TRUE(m_link.IsConnected());
  EXPECT_EQ(m_base.OpenHandles(), 0U);
}

TEST_F(CDeviceLinkTest, CountsItsHealthWithTheLogOff) {
  m_log.SetEnabled(false);
  const auto poll = [this](uint32_t began, uint32_t ended) {
    m_link.ReceiveFrame();
    m_link.NotePoll(began, ended);
  };
  m_base.Plug();
  poll(100, 130);
  for (const std::vector<uint8_t>& bytes :
       {std::vector<uint8_t>{0x41, 0x42}, {0x26, 0x7F}, {0x26, 0x04, 0x0D, 0x0A, 0x0D}}) {
    m_base.Queue(bytes);
    poll(200, 210);
  }
  m_base.Unplug();
  poll(300, 301);
  m_base.Plug();
  poll(0xFFFFFFF0, 0x00000020);
  poll(0x00000030, 0x00000031);
  const LinkHealth& health = m_link.Health();
  EXPECT_EQ(health.badStartBytes, 1U);
  EXPECT_EQ(health.unknownTypes, 1U);
  EXPECT_EQ(health.badDelimiters, 1U);
  EXPECT_EQ(health.connections, 2U);
  EXPECT_EQ(health.longestPoll, 48U);
  EXPECT_EQ(health.connectedSince, 0x20U);
}

TEST_F(CDeviceLinkTest, DrainsOneBufferAndIfLostMeanwhileFlushesNothing) {
  Open();
  EXPECT_FALSE(Receive(std::vector<uint8_t>(5000, 'A')));
  EXPECT_EQ(m_usb.largestRead, 1024U);
  EXPECT_TRUE(m_link.IsOpen());
  Log();
  m_base.Fail(UsbFunction::CheckRxQueue, 8, {2, 2});
  EXPECT_FALSE(Receive({0x41, 0x42, 0x43}));
  EXPECT_EQ(Log(), "** Error : Delimit error STX.(41)... ---> Exec SI_FlushBuffers()\n" + kLost +
                       "** Error : SI_CheckRXQueue error.\n");
}

TEST_F(CDeviceLinkTest, CallerNamesLoseTheirPadding) {
  Open();
  const std::pair<std::string, std::string> kNames[] = {
      {"AB  CD          ", "AB  CD"},      {"                ", ""},
      {" A              ", " A"},          {"ABCDEFGHIJKLMNOP", "ABCDEFGHIJKLMNOP"},
      {{"A\0             \xE9", 16}, "A"},
  };
  for (const auto& [sent, name] : kNames) {
    std::vector<uint8_t> frame = {0x26, 0x03, 0x20, 0x20};
    frame.insert(frame.end(), sent.begin(), sent.end());
    frame.resize(39);
    frame[33] = kLine2;
    EXPECT_TRUE(Receive(frame));
    EXPECT_EQ(m_records.callerId[1].name, name);
  }
  EXPECT_EQ(m_records.callerId[1].name[15], '\xE9');
  EXPECT_EQ(m_records.callerId[1].longDistance, 0) << "another flag";
}

TEST_F(CDeviceLinkTest, NamesOfCellsMayFillTheirFields) {
  Open();
  std::vector<uint8_t> frame(61, 'A');
  frame[0] = 0x26;
  frame[1] = 0x05;
  EXPECT_TRUE(Receive(frame));
  const std::string name(14, 'A');
  EXPECT_NE(Log().find("Cell1Name: " + name + ", Cell2Name: " + name + ", "), std::string::npos);
  EXPECT_EQ(FieldText(m_records.cells.names[3]), name);
}

TEST_F(CDeviceLinkTest, NumbersOfAnyLengthAreSent) {
  Open();
  const std::pair<size_t, std::string> kLengths[] = {{0, "00"},  {9, "09"},   {10, "10"},
                                                     {99, "99"}, {100, "00"}, {123, "00"}};
  for (const auto& [length, counted] : kLengths) {
    std::string number(length, '8');
    EXPECT_TRUE(m_link.SendCallRequest(kCell1, number));
    EXPECT_EQ(LastWritten(), "+2\x11" + counted + std::string(length, '8') + '\r');
  }
  // A number that fills its field, without a terminator.
  m_records.dial.fill({kLine1, 25, {}});
  std::ranges::fill(m_records.dial[0].number, '7');
  m_handlers.OnCallRequest(kLine1);
  EXPECT_EQ(LastWritten().size(), 31U);
}

TEST_F(CDeviceLinkTest, RequestsThatCannotBeWrittenLoseTheBase) {
  const struct {
    void (CRequestHandlers::*post)(uint32_t);
    std::string sent, failure;
  } kRequests[] = {
      {&CRequestHandlers::OnCallRequest,
       "CAddin::OnCallRequest\n< Call request >\n[S] (7) 2B 32 01 30 31 35 0D\n",
       "** Error : #5 Failed to send start up request. (0x01)\n** CAddin::OnCallRequest error.\n"},
      {&CRequestHandlers::OnOnHookRequest,
       "CAddin::OnOnHookRequest\n< On hook request >\n[S] (4) 2B 33 01 0D\n",
       "** Error : Failed to send on hook request. (1)\n** CAddin::OnOnHookRequest error.\n"},
  };
  m_records.dial[0] = {kLine1, 1, "5"};
  m_records.onHookLine[0] = m_records.lastCaller[0].lineType = kLine1;
  for (const auto& request : kRequests) {
    Open();
    m_base.Shorten(UsbFunction::Write, 3);
    (m_handlers.*request.post)(kLine1);
    EXPECT_EQ(Log(), request.sent + "** Error : SI_Write size unmatch error. (from:0, to:3)\n" +
                         kLost + request.failure);
    EXPECT_EQ(m_base.OpenHandles(), 0U);
  }
  EXPECT_EQ(m_records.lastCaller[0].lineType, kNoLine);
  m_base.Reset();
  m_handlers.OnStartupRequest();
  EXPECT_TRUE(Log().ends_with("** CAddin::OnStartupRequest error.\n"));
}

TEST_F(CDeviceLinkTest, LinesWithoutASlotAreRefused) {
  Open();
  m_base.ForgetWritten();
  for (const uint32_t lineType : {0U, 3U, 0x15U, 0x101U}) {
    m_handlers.OnCallRequest(lineType);
    m_handlers.OnOnHookRequest(lineType);
    EXPECT_EQ(Log(),
              "CAddin::OnCallRequest\n** CAddin::OnCallRequest error.\n"
              "CAddin::OnOnHookRequest\n** CAddin::OnOnHookRequest error.\n");
  }
  EXPECT_EQ(m_base.WrittenCount(), 0U);
  for (int slot = 0; slot < kSlotCount; ++slot)
    EXPECT_EQ(SlotFromLineType(LineTypeFromSlot(slot)), slot);
  EXPECT_EQ(LineTypeFromSlot(kSlotCount), kNoLine);
}

TEST_F(CDeviceLinkTest, ShutdownEndsAWatchThreadOnce) {
  struct CThread final : IWatchThread {
    void StopAndWait() noexcept override { ++stops; }
    int stops = 0;
  } thread;
  m_link.StopWatchThread();
  EXPECT_EQ(Log(), "");
  m_link.AttachWatchThread(thread);
  m_link.StopWatchThread();
  m_link.StopWatchThread();
  EXPECT_EQ(Log(), "USB device watch thread exit.\n");
  EXPECT_EQ(thread.stops, 1);
}

TEST_F(CDeviceLinkTest, TheControllerClosesTheEventsItCouldCreate) {
  struct CEvents final : IEventObjects {
    void* CreateManualResetEvent() noexcept override { return ++created > 1 ? nullptr : this; }
    void CloseEvent(void* event) noexcept override { closed += event == this ? 1 : 100; }
    int created = 0;
    int closed = 0;
  } events;
  { const CTelCtrl control(events, m_log, 0); }
  EXPECT_EQ(events.created, 2);
  EXPECT_EQ(events.closed, 1);
}

}  // namespace
}  // namespace quor
