#include "device/device_link.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "device/frame_builder.h"
#include "device/frame_dump.h"

namespace quor {

CDeviceLink::CDeviceLink(IUsbXpress& usb, IMessageQueue& queue, DeviceRecords& records,
                         CDiagnosticLog& log) noexcept
    : m_records(records),
      m_log(log),
      m_connection(queue, log),
      m_port(usb, m_connection, m_health, log),
      m_dispatcher(records, queue, log),
      m_reader(m_port, m_dispatcher, m_health, log) {}

void CDeviceLink::Probe() {
  // The base can be opened only once, and an earlier connection may have left it open.
  Close();
  uint32_t index = 0;
  if (!m_port.FindDevice(index)) {
    m_connection.RaiseErrorConnect();
    m_log.Write("** Error : Device undefined.\n");
  } else if (!SetUp(index)) {
    m_connection.RaiseErrorConnect();
    m_log.Write("** Error : Failed setup device.\n");
  } else {
    m_port.Close();
  }
}

bool CDeviceLink::SetUp(uint32_t index) {
  if (!m_port.Open(index)) return false;
  if (!SendStartupRequest()) {
    // The request has already closed the device and raised the event. Repeating both on a null
    // handle is harmless and makes all failing steps of the set-up end alike.
    m_port.Lose();
    m_log.Write("** Error : Failed to send start up request.\n");
    return false;
  }
  m_connection.RaiseConnect();
  m_log.Write("Device setup complete.\n");
  return true;
}

bool CDeviceLink::ReceiveFrame() {
  uint32_t queued = 0;
  return CheckPresence() && m_port.CheckReceiveQueue(queued) && m_reader.ReadFrame();
}

void CDeviceLink::NotePoll(uint32_t began, uint32_t ended) noexcept {
  m_health.longestPoll = std::max(m_health.longestPoll, ended - began);
  if (IsOpen() && !m_wasOpen) m_health.connectedSince = ended;
  m_wasOpen = IsOpen();
}

bool CDeviceLink::CheckPresence() {
  uint32_t index = 0;
  if (m_port.FindDevice(index)) return m_port.IsOpen() || Recover(index);
  if (m_port.IsOpen()) TakeDown();
  return false;
}

bool CDeviceLink::Recover(uint32_t index) {
  if (!SetUp(index)) {
    m_log.Write("** Error : Device set up error.\n");
    return false;
  }
  m_connection.RaiseConnect();  // the second connect event, after SetUp's own; both are posted
  m_records.lastStatus = kNothingReported;
  m_log.Write("** Recovery : USB device recovery.\n");
  ++m_health.connections;
  return true;
}

void CDeviceLink::TakeDown() noexcept {
  if (!m_port.Close()) m_log.Write("** Error : USB device close error.\n");
  m_records.lastStatus = kNothingReported;
  m_log.Write("** Down : USB device down...\n");
  m_connection.RaiseDisconnect();
}

bool CDeviceLink::Send(RequestCode code, std::span<const uint8_t> payload) {
  const std::vector<uint8_t> frame = BuildRequest(code, payload);
  DumpFrame(m_log, FrameDirection::Sent, frame);
  return m_port.Write(frame);
}

bool CDeviceLink::SendStartupRequest() {
  m_log.Write("< Start up request >\n");
  if (!Send(RequestCode::Startup, {})) {
    m_port.Lose();
    m_log.Write("** Error : Failed to send start up request.\n");
    return false;
  }
  m_log.Print("Start up request complete. ( request size: %d )\n", 3);
  return true;
}

bool CDeviceLink::SendCallRequest(uint8_t lineType, std::string& number) {
  const std::string dialled = std::exchange(number, {});
  m_log.Write("< Call request >\n");
  if (!Send(RequestCode::Call, CallPayload(lineType, dialled))) {
    m_port.Lose();
    // This is the start-up request's wording; logs of failed call requests contain it all the same.
    m_log.Print("** Error : #%s Failed to send start up request. (0x%02X)\n", dialled.c_str(),
                lineType);
    return false;
  }
  // Logs one byte less than was sent: these logs always count so.
  m_log.Print("Call request Line%d (#%s) complete. ( request size: %d )\n", lineType,
              dialled.c_str(), static_cast<int>(dialled.size() + 5));
  return true;
}

bool CDeviceLink::SendOnHookRequest(uint8_t lineType) {
  m_log.Write("< On hook request >\n");
  if (!Send(RequestCode::OnHook, std::span(&lineType, 1))) {
    m_port.Lose();
    m_log.Print("** Error : Failed to send on hook request. (%d)\n", lineType);
    return false;
  }
  m_log.Print("On hook complete. %d ( request size: %d )\n", lineType, 4);
  return true;
}

void CDeviceLink::Close() noexcept {
  if (m_port.IsOpen()) m_port.Close();
}

void CDeviceLink::StopWatchThread() noexcept {
  if (m_watchThread == nullptr) return;
  std::exchange(m_watchThread, nullptr)->StopAndWait();
  m_log.Write("USB device watch thread exit.\n");
}

}  // namespace quor
