// Arbitrary bytes in arbitrary pieces, from a library with arbitrary results.
//   cmake --preset fuzz && ninja -C build/fuzz device_fuzz && build/fuzz/fuzz/device/device_fuzz
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>

#include "device/device_link.h"
#include "device/request_handlers.h"
#include "fuzz/require.h"

namespace quor {
namespace {

// The next byte from the front; zero after the end.
uint8_t NextByte(FuzzedDataProvider& input) {
  uint8_t byte = 0;
  input.ConsumeData(&byte, 1);
  return byte;
}

// Most calls succeed, so that inputs get past the set-up; a byte above kGood makes a call fail.
class CScriptedUsb final : public IUsbXpress {
 public:
  explicit CScriptedUsb(FuzzedDataProvider& input) : m_input(input) {}

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
    read = static_cast<uint32_t>(m_input.ConsumeData(buffer, wanted));
    const uint8_t cut = NextByte(m_input);
    if (cut > kGood) read = cut * 0x01010101U >> (cut % 32U);  // an arbitrary count
    return Status();
  }
  int Write(UsbHandle, const uint8_t* bytes, uint32_t count, uint32_t& written) noexcept override {
    Require(count >= 3 && bytes[0] == 0x2B && bytes[count - 1] == 0x0D);
    const uint8_t cut = NextByte(m_input);
    written = cut > kGood ? cut : count;
    return Status();
  }
  int FlushBuffers(UsbHandle, bool, bool) noexcept override { return Status(); }
  int SetTimeouts(uint32_t, uint32_t) noexcept override { return Status(); }
  int CheckRxQueue(UsbHandle, uint32_t& queued, uint32_t& status) noexcept override {
    const uint32_t answer = NextByte(m_input);
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
    const uint8_t byte = NextByte(m_input);
    return byte > kGood ? byte : kUsbSuccess;
  }

  FuzzedDataProvider& m_input;
};

// Counts the posted messages and checks that each has a line with a slot.
class CCheckedQueue final : public IMessageQueue {
 public:
  explicit CCheckedQueue(FuzzedDataProvider& input) : m_input(input) {}
  bool PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept override {
    const bool ofALine = event == DeviceEvent::ReceiveCall || event == DeviceEvent::CallerId;
    Require(ofALine == (SlotFromLineType(lineType) != kNoSlot));
    return NextByte(m_input) < 0xF0;
  }
  bool PostRequest(WindowRequest, uint32_t) noexcept override { return true; }

 private:
  FuzzedDataProvider& m_input;
};

struct CAddinSide final : ILogWriter, ICallFromCellDisplay {
  void WriteLine(std::string_view line) noexcept override { Require(line.ends_with('\n')); }
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
  FuzzedDataProvider input(data, size);
  CScriptedUsb usb(input);
  CCheckedQueue queue(input);
  CAddinSide addin;
  CDiagnosticLog log(addin);
  DeviceRecords records;
  CDeviceLink link(usb, queue, records, log);
  CRequestHandlers handlers(link, records, addin, log);

  log.SetEnabled(NextByte(input) % 2 == 0);
  while (input.remaining_bytes() != 0) {
    const uint8_t step = NextByte(input);
    if (step < 0xF8) {
      link.ReceiveFrame();
    } else if (step < 0xFC) {
      input.ConsumeData(&records.dial, sizeof records.dial);
      handlers.OnCallRequest(NextByte(input));
    } else if (step < 0xFE) {
      handlers.OnOnHookRequest(NextByte(input));
    } else {
      link.Probe();
    }
    CheckTexts(records);
  }
  return 0;
}
