// Arbitrary bytes in arbitrary pieces, from a library with arbitrary results.
//   cmake --preset fuzz && ninja -C build/fuzz device_fuzz && build/fuzz/fuzz/device/device_fuzz
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

#include "device/device_link.h"
#include "device/request_handlers.h"
#include "fuzz/require.h"

namespace quor {
namespace {

// Reads the fuzzer's input from the front; returns zeros after its end.
class CScript {
 public:
  explicit CScript(std::span<const uint8_t> bytes) : m_bytes(bytes) {}
  bool IsOver() const { return m_bytes.empty(); }
  uint8_t Byte() {
    uint8_t byte = 0;
    Take({&byte, 1});
    return byte;
  }
  size_t Take(std::span<uint8_t> target) {
    const size_t count = std::min(target.size(), m_bytes.size());
    std::copy_n(m_bytes.begin(), count, target.begin());
    m_bytes = m_bytes.subspan(count);
    return count;
  }

 private:
  std::span<const uint8_t> m_bytes;
};

// Most calls succeed, so that inputs get past the set-up; a byte above kGood makes a call fail.
class CScriptedUsb final : public IUsbXpress {
 public:
  explicit CScriptedUsb(CScript& script) : m_script(script) {}

  int GetNumDevices(uint32_t& count) noexcept override {
    count = 1;
    return Status();
  }
  int GetProductString(uint32_t, char* buffer, ProductString) noexcept override {
    std::memset(buffer, 'x', kProductStringSize);  // without a terminator
    return kUsbSuccess;
  }
  int Open(uint32_t, UsbHandle& handle) noexcept override {
    handle = this;
    return Status();
  }
  int Close(UsbHandle) noexcept override { return Status(); }
  int Read(UsbHandle handle, uint8_t* buffer, uint32_t wanted, uint32_t& read) noexcept override {
    Require(handle == this);
    Require(wanted >= 1 && wanted <= 1024);
    read = static_cast<uint32_t>(m_script.Take({buffer, wanted}));
    const uint8_t cut = m_script.Byte();
    if (cut > kGood) read = cut * 0x01010101U >> (cut % 32U);  // an arbitrary count
    return Status();
  }
  int Write(UsbHandle, const uint8_t* bytes, uint32_t count, uint32_t& written) noexcept override {
    Require(count >= 3 && bytes[0] == 0x2B && bytes[count - 1] == 0x0D);
    const uint8_t cut = m_script.Byte();
    written = cut > kGood ? cut : count;
    return Status();
  }
  int FlushBuffers(UsbHandle, bool, bool) noexcept override { return Status(); }
  int SetTimeouts(uint32_t, uint32_t) noexcept override { return Status(); }
  int CheckRxQueue(UsbHandle, uint32_t& queued, uint32_t& status) noexcept override {
    const uint32_t answer = m_script.Byte();
    queued = answer > kGood ? answer << (answer % 24) : 100;
    status = answer > kGood ? answer % 4 : kRxReady;
    return Status();
  }
  int SetBaudRate(UsbHandle, uint32_t) noexcept override { return Status(); }
  int SetLineControl(UsbHandle, uint16_t) noexcept override { return Status(); }
  int SetFlowControl(UsbHandle, const FlowControl&) noexcept override { return Status(); }

 private:
  static constexpr uint8_t kGood = 0xE0;
  int Status() {
    const uint8_t byte = m_script.Byte();
    return byte > kGood ? byte : kUsbSuccess;
  }

  CScript& m_script;
};

// Counts the posted messages and checks that each has a line with a slot.
class CCheckedQueue final : public IMessageQueue {
 public:
  explicit CCheckedQueue(CScript& script) : m_script(script) {}
  bool PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept override {
    const bool ofALine = event == DeviceEvent::ReceiveCall || event == DeviceEvent::CallerId;
    Require(ofALine == (SlotFromLineType(lineType) != kNoSlot));
    return m_script.Byte() < 0xF0;
  }
  bool PostRequest(WindowRequest, uint32_t) noexcept override { return true; }

 private:
  CScript& m_script;
};

struct CWholeLines final : ILogWriter {
  void WriteLine(std::string_view line) noexcept override {
    Require(!line.empty() && line.back() == '\n');
  }
};

struct CNoDisplay final : ICallFromCellDisplay {
  void PutCallFromCellButton() override {}
};

void CheckTexts(const DeviceRecords& records) {
  for (size_t slot = 0; slot < records.callerId.size(); ++slot) {
    const CallerIdRecord& caller = records.callerId[slot];
    Require(caller.noNum < 16 && caller.noName < 16 && caller.longDistance < 2);
    Require(FieldText(caller.name).size() <= 16 && FieldText(caller.number).size() <= 24);
    Require(std::strcmp(caller.number, records.lastCaller[slot].number) == 0);
    Require(caller.lineType == kNoLine ||
            caller.lineType == LineTypeFromSlot(static_cast<int>(slot)));
  }
}

}  // namespace
}  // namespace quor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace quor;
  CScript script({data, size});
  CScriptedUsb usb(script);
  CCheckedQueue queue(script);
  CWholeLines lines;
  CNoDisplay display;
  CDiagnosticLog log(lines);
  DeviceRecords records;
  CDeviceLink link(usb, queue, records, log);
  CRequestHandlers handlers(link, records, display, log);

  log.SetEnabled(script.Byte() % 2 == 0);
  while (!script.IsOver()) {
    const uint8_t step = script.Byte();
    if (step < 0xF8) {
      link.ReceiveFrame();
    } else if (step < 0xFC) {
      script.Take({reinterpret_cast<uint8_t*>(&records.dial), sizeof records.dial});
      handlers.OnCallRequest(script.Byte());
    } else if (step < 0xFE) {
      handlers.OnOnHookRequest(script.Byte());
    } else {
      link.Probe();
    }
    CheckTexts(records);
  }
  return 0;
}
