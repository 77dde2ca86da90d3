#ifndef QUOR_TESTS_DEVICE_DEVICE_FIXTURE_H
#define QUOR_TESTS_DEVICE_DEVICE_FIXTURE_H

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "device/device_link.h"
#include "device/message_queue.h"
#include "device/records.h"
#include "device/usbxpress.h"
#include "module/diagnostic_log.h"
#include "workbench/siusbxp/base_simulator.h"

namespace quor {

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
  int SetFlowControl(UsbHandle handle, const FlowControl& c) noexcept override {
    return m_base.SetFlowControl(
        handle, std::array<int, 6>{c.cts, c.rts, c.dtr, c.dsr, c.dcd, c.xonXoff ? 1 : 0});
  }

 private:
  workbench::CBaseSimulator& m_base;
};

class CRecordedLog final : public ILogWriter {
 public:
  void WriteLine(std::string_view line) noexcept override { text += line; }
  std::string text;
};

// Posted events as "5001", or "5102:2" with a line type; separated by blanks.
class CRecordedQueue final : public IMessageQueue {
 public:
  bool PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept override;
  bool PostRequest(WindowRequest, uint32_t) noexcept override { return accepts; }

  std::string events;
  bool accepts = true;
};

// Groups of log lines that belong together.
extern const std::string kStartupSent;
extern const std::string kConnected;
extern const std::string kDisconnected;
extern const std::string kLost;       // closed, then disconnected
extern const std::string kRecovered;  // one tick from plugged in to open

// Converts between "26 01 0D" and bytes.
std::vector<uint8_t> Bytes(std::string_view hex);
std::string Hex(std::span<const uint8_t> bytes);

// A link with its own base. Log(), Events() and Wire() return what is new since their last call.
class CDeviceLinkTest : public ::testing::Test {
 protected:
  CDeviceLinkTest() { m_log.SetEnabled(true); }

  // Plugs the base in, opens it by a tick, and drops what this has logged and sent.
  void Open();
  void Feed(std::string_view hex, uint32_t delay = 0) { m_base.Queue(Bytes(hex), delay); }
  bool Tick() { return m_link.ReceiveFrame(); }
  // Sends one frame through an open link; true if it was dispatched.
  bool Receive(std::string_view hex);

  std::string Log() { return std::exchange(m_lines.text, {}); }
  std::string Events() { return std::exchange(m_queue.events, {}); }
  std::string Wire();

  workbench::CBaseSimulator m_base;
  CSimulatedUsb m_usb{m_base};
  CRecordedLog m_lines;
  CDiagnosticLog m_log{m_lines};
  CRecordedQueue m_queue;
  DeviceRecords m_records;
  CDeviceLink m_link{m_usb, m_queue, m_records, m_log};

 private:
  size_t m_wireSeen = 0;
};

}  // namespace quor

#endif
