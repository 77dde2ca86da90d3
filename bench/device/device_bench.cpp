// Measures a poll tick, with nothing to read and with each kind of frame, log off and on:
//   cmake --preset native-release && ninja -C build/native-release device_bench
//   build/native-release/bench/device/device_bench
// With the log on, every line is formatted and dropped: writing to the file is not measured.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <span>
#include <vector>

#include "bench/device/allocation_count.h"
#include "device/device_link.h"
#include "device/frame_format.h"

namespace quor {
namespace {

// A base that is always connected and always sends the same frame.
class CCannedUsb final : public IUsbXpress {
 public:
  void Send(std::span<const uint8_t> frame) { m_frame = frame; }

  int GetNumDevices(uint32_t& count) noexcept override {
    count = 1;
    return kUsbSuccess;
  }
  int GetProductString(uint32_t, char* buffer, ProductString) noexcept override {
    std::memcpy(buffer, "0001", 5);
    return kUsbSuccess;
  }
  int Open(uint32_t, UsbHandle& handle) noexcept override {
    handle = this;
    return kUsbSuccess;
  }
  int Close(UsbHandle) noexcept override { return kUsbSuccess; }
  int Read(UsbHandle, uint8_t* buffer, uint32_t wanted, uint32_t& read) noexcept override {
    std::memcpy(buffer, m_frame.data() + m_at, wanted);
    m_at = (m_at + wanted) % m_frame.size();
    read = wanted;
    return kUsbSuccess;
  }
  int Write(UsbHandle, const uint8_t*, uint32_t count, uint32_t& written) noexcept override {
    written = count;
    return kUsbSuccess;
  }
  int FlushBuffers(UsbHandle, bool, bool) noexcept override {
    m_at = 0;
    return kUsbSuccess;
  }
  int SetTimeouts(uint32_t, uint32_t) noexcept override { return kUsbSuccess; }
  int CheckRxQueue(UsbHandle, uint32_t& queued, uint32_t& status) noexcept override {
    queued = static_cast<uint32_t>(m_frame.size());
    status = queued == 0 ? kRxEmpty : kRxReady;
    return kUsbSuccess;
  }
  int SetBaudRate(UsbHandle, uint32_t) noexcept override { return kUsbSuccess; }
  int SetLineControl(UsbHandle, uint16_t) noexcept override { return kUsbSuccess; }
  int SetFlowControl(UsbHandle, const FlowControl&) noexcept override { return kUsbSuccess; }

 private:
  std::span<const uint8_t> m_frame;
  size_t m_at = 0;
};

struct CNoQueue final : IMessageQueue {
  bool PostDeviceEvent(DeviceEvent, uint8_t) noexcept override { return true; }
  bool PostRequest(WindowRequest, uint32_t) noexcept override { return true; }
};

struct CNoWriter final : ILogWriter {
  void WriteLine(std::string_view) noexcept override {}
};

struct Cost {
  double nanoseconds;
  double allocations;
};

Cost MeasureTick(CDeviceLink& link) {
  using Clock = std::chrono::steady_clock;
  constexpr int kTicks = 200'000;
  constexpr int kRounds = 5;
  Cost best{1e9, 0};
  for (int round = 0; round < kRounds; ++round) {
    const size_t allocations = AllocationCount();
    const auto start = Clock::now();
    for (int i = 0; i < kTicks; ++i)
      link.ReceiveFrame();
    const std::chrono::duration<double, std::nano> spent = Clock::now() - start;
    best.nanoseconds = std::min(best.nanoseconds, spent.count() / kTicks);
    best.allocations = static_cast<double>(AllocationCount() - allocations) / kTicks;
  }
  return best;
}

std::vector<uint8_t> Frame(Indication type) {
  const auto code = static_cast<uint8_t>(type);
  std::vector<uint8_t> frame(kHeaderSize + IndicationBodySize(code), kLine2);
  frame[0] = kIndicationStart;
  frame[1] = code;
  frame[frame.size() - 2] = kCarriageReturn;
  frame.back() = kLineFeed;
  if (type == Indication::CallerId) frame[kCidNumberLengthOffset] = 24;
  return frame;
}

void Run() {
  struct Case {
    const char* name;
    std::vector<uint8_t> frame;
  };
  const Case kCases[] = {
      {"nothing queued", {}},
      {"status, unchanged", Frame(Indication::SetStatus)},
      {"receive call", Frame(Indication::ReceiveCall)},
      {"caller ID, 24 digits", Frame(Indication::CallerId)},
      {"close pop-up", Frame(Indication::ClosePopUp)},
      {"cell registration", Frame(Indication::CellRegistration)},
      {"stray bytes", std::vector<uint8_t>(64, 'A')},
  };
  std::printf("%-22s %14s %14s %14s %14s\n", "one tick", "log off, ns", "allocations", "log on, ns",
              "allocations");
  for (const Case& one : kCases) {
    CCannedUsb usb;
    CNoQueue queue;
    CNoWriter writer;
    CDiagnosticLog log(writer);
    DeviceRecords records;
    CDeviceLink link(usb, queue, records, log);
    link.ReceiveFrame();  // opens the device
    usb.Send(one.frame);
    const Cost off = MeasureTick(link);
    log.SetEnabled(true);
    const Cost on = MeasureTick(link);
    std::printf("%-22s %14.0f %14.2f %14.0f %14.2f\n", one.name, off.nanoseconds, off.allocations,
                on.nanoseconds, on.allocations);
  }
}

}  // namespace
}  // namespace quor

int main() {
  quor::Run();
}
