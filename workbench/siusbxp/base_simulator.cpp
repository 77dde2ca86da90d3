#include "workbench/siusbxp/base_simulator.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

namespace quor::workbench {
namespace {

constexpr uint32_t kNoLimit = UINT32_MAX;
constexpr uint32_t kEndless = UINT32_MAX;
constexpr uint32_t kMaxReadSize = 65536;
constexpr uint32_t kMaxWriteSize = 4096;

std::string Number(uint64_t value) {
  return std::to_string(value);
}

std::string HandleName(const void* handle) {
  return "#" + Number(reinterpret_cast<uintptr_t>(handle));
}

// Handles are numbers cast to pointers; they are only compared.
void* HandleFromNumber(uintptr_t number) {
  return reinterpret_cast<void*>(number);  // NOLINT(performance-no-int-to-ptr)
}

std::string Hex(std::span<const uint8_t> bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const unsigned byte : bytes) {
    if (!text.empty()) text += ' ';
    text += {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
  }
  return text;
}

void Sleep(uint64_t milliseconds) {
  if (milliseconds != 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::string NoArguments() {
  return {};
}
std::string NoResults() {
  return {};
}

}  // namespace

void CBaseSimulator::Reset() {
  m_devices.clear();
  m_handles.clear();
  m_pieces.clear();
  m_written.clear();
  m_functions = {};
  m_queueReport = {};
  m_manners = {};
  m_freedWhileOpen = 0;
  m_failedCloses = 0;
  m_sequence = 0;
  m_now = 0;
  m_readTimeout = kEndless;
}

void CBaseSimulator::Plug(const ProductStrings& strings) {
  Device device{++m_lastDevice, {}};
  for (size_t i = 0; i < strings.size(); ++i) {
    if (strings[i] != nullptr) device.strings[i] = strings[i];
  }
  m_devices.push_back(std::move(device));
}

void CBaseSimulator::Unplug(uint32_t device) {
  if (device >= m_devices.size()) return;
  m_devices.erase(m_devices.begin() + device);
  if (m_devices.empty()) m_pieces.clear();
}

void CBaseSimulator::Queue(std::span<const uint8_t> bytes, uint32_t delay) {
  const uint64_t before = m_pieces.empty() ? m_now : std::max(m_now, m_pieces.back().arrival);
  m_pieces.push_back({before + delay, {bytes.begin(), bytes.end()}});
}

void CBaseSimulator::ReportQueue(uint32_t status, std::optional<uint32_t> count, uint32_t calls) {
  m_queueReport = {status, count, calls};
}

void CBaseSimulator::Fail(UsbFunction function, int status, CallRange calls) {
  AddFault(function, calls, status, kNoLimit);
}

void CBaseSimulator::Shorten(UsbFunction function, uint32_t bytes, CallRange calls) {
  AddFault(function, calls, kSiSuccess, bytes);
}

void CBaseSimulator::AddFault(UsbFunction function, CallRange calls, int status, uint32_t size) {
  const uint64_t done = State(function).calls;
  State(function).faults.push_back({done + calls.first, done + calls.last, status, size});
}

void CBaseSimulator::Heal() {
  for (FunctionState& function : m_functions)
    function.faults.clear();
  m_queueReport = {};
}

WrittenFrame CBaseSimulator::Written(size_t index) const {
  const SentFrame& frame = m_written.at(index);
  return {frame.sequence, frame.bytes};
}

uint32_t CBaseSimulator::CallCount(UsbFunction function) const {
  return m_functions[static_cast<size_t>(function)].calls;
}

template <typename Work, typename Arguments, typename Results>
int CBaseSimulator::Call(UsbFunction function, Work work, Arguments arguments, Results results) {
  const Fault fault = CountCall(function);
  const int status = fault.status != kSiSuccess ? fault.status : work(fault.size);
  if (m_observer != nullptr) {
    Tell(function, status, arguments(), status == kSiSuccess ? results() : std::string());
  }
  return status;
}

CBaseSimulator::Fault CBaseSimulator::CountCall(UsbFunction function) {
  ++m_sequence;
  FunctionState& state = State(function);
  const uint64_t call = ++state.calls;
  for (const Fault& fault : state.faults) {
    if (fault.firstCall <= call && call <= fault.lastCall) return fault;
  }
  return {call, call, kSiSuccess, kNoLimit};
}

void CBaseSimulator::Tell(UsbFunction function, int status, const std::string& arguments,
                          const std::string& results) {
  std::string text(kUsbFunctionNames[static_cast<size_t>(function)]);
  text += "(" + arguments + ") = " + std::to_string(status);
  if (!results.empty()) text += ", " + results;
  m_observer->OnCall({m_sequence, function, status, text});
}

bool CBaseSimulator::IsPlugged(uint64_t device) const {
  return std::any_of(m_devices.begin(), m_devices.end(),
                     [device](const Device& plugged) { return plugged.number == device; });
}

bool CBaseSimulator::IsOpen(uint64_t device) const {
  return std::any_of(m_handles.begin(), m_handles.end(),
                     [device](const OpenHandle& open) { return open.device == device; });
}

int CBaseSimulator::StatusOf(Handle handle) const {
  const auto open =
      std::find_if(m_handles.begin(), m_handles.end(),
                   [handle](const OpenHandle& candidate) { return candidate.handle == handle; });
  if (open == m_handles.end()) return kSiInvalidHandle;
  return IsPlugged(open->device) ? kSiSuccess : kSiDeviceIoFailed;
}

int CBaseSimulator::GetNumDevices(uint32_t* count) noexcept {
  return Call(
      UsbFunction::GetNumDevices,
      [&](uint32_t) -> int {
        if (count == nullptr) return kSiInvalidParameter;
        *count = DeviceCount();
        return *count == 0 ? m_manners.withoutDevice : kSiSuccess;
      },
      NoArguments, [&] { return Number(*count); });
}

int CBaseSimulator::GetProductString(uint32_t device, char* text, uint32_t option) noexcept {
  return Call(
      UsbFunction::GetProductString,
      [&](uint32_t) -> int {
        Sleep(m_manners.stringTime);
        if (device >= m_devices.size()) return kSiDeviceNotFound;
        const auto& strings = m_devices[device].strings;
        if (text == nullptr || option >= strings.size()) return kSiInvalidParameter;
        if (!strings[option]) return kSiDeviceNotFound;
        std::memcpy(text, strings[option]->c_str(), strings[option]->size() + 1);
        return kSiSuccess;
      },
      [&] { return Number(device) + ", " + Number(option); }, [&] { return std::string(text); });
}

int CBaseSimulator::Open(uint32_t device, Handle* handle) noexcept {
  // A failing library may have written a value; no caller may use it as a handle.
  if (handle != nullptr) *handle = HandleFromNumber(UINTPTR_MAX);
  return Call(
      UsbFunction::Open,
      [&](uint32_t) -> int {
        if (handle == nullptr) return kSiInvalidParameter;
        Sleep(m_manners.openTime);
        if (device >= m_devices.size()) return kSiDeviceNotFound;
        if (IsOpen(m_devices[device].number)) return m_manners.secondOpen;
        *handle = HandleFromNumber(++m_lastHandle);
        m_handles.push_back({*handle, m_devices[device].number});
        return kSiSuccess;
      },
      [&] { return Number(device); }, [&] { return HandleName(*handle); });
}

int CBaseSimulator::Close(Handle handle) noexcept {
  const size_t closed =
      std::erase_if(m_handles, [handle](const OpenHandle& open) { return open.handle == handle; });
  const int status = Call(
      UsbFunction::Close,
      [&](uint32_t) -> int { return closed == 0 ? kSiInvalidHandle : kSiSuccess; },
      [&] { return HandleName(handle); }, NoResults);
  if (status != kSiSuccess) ++m_failedCloses;
  return status;
}

uint32_t CBaseSimulator::Available() const {
  size_t count = 0;
  for (const Piece& piece : m_pieces) {
    if (piece.arrival > m_now) break;
    count += piece.bytes.size();
  }
  return static_cast<uint32_t>(count);
}

void CBaseSimulator::WaitFor(uint32_t wanted) {
  const bool endless = m_readTimeout == kEndless;
  const uint64_t deadline = m_now + m_readTimeout;
  while (Available() < wanted) {
    const auto next = std::find_if(m_pieces.begin(), m_pieces.end(),
                                   [this](const Piece& piece) { return piece.arrival > m_now; });
    if (next == m_pieces.end() || (!endless && next->arrival > deadline)) {
      if (!endless) PassTime(deadline);
      return;
    }
    PassTime(next->arrival);
  }
}

uint32_t CBaseSimulator::Take(uint8_t* buffer, uint32_t wanted) {
  uint32_t taken = 0;
  while (taken < wanted && !m_pieces.empty() && m_pieces.front().arrival <= m_now) {
    std::vector<uint8_t>& bytes = m_pieces.front().bytes;
    const size_t count = std::min<size_t>(wanted - taken, bytes.size());
    std::copy_n(bytes.begin(), count, buffer + taken);
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
    if (bytes.empty()) m_pieces.pop_front();
    taken += static_cast<uint32_t>(count);
  }
  return taken;
}

int CBaseSimulator::Read(Handle handle, uint8_t* buffer, uint32_t wanted, uint32_t* read) noexcept {
  return Call(
      UsbFunction::Read,
      [&](uint32_t limit) -> int {
        if (buffer == nullptr || read == nullptr) return kSiInvalidParameter;
        if (wanted == 0 || wanted > kMaxReadSize) return kSiInvalidRequestLength;
        if (const int status = StatusOf(handle); status != kSiSuccess) return status;
        WaitFor(wanted);
        const bool timedOut = Available() == 0;
        *read = Take(buffer, std::min(wanted, limit));
        return timedOut ? kSiReadTimedOut : kSiSuccess;
      },
      [&] { return HandleName(handle) + ", " + Number(wanted); },
      [&] {
        return Hex({buffer, *read});
      });
}

int CBaseSimulator::Write(Handle handle, const uint8_t* bytes, uint32_t count,
                          uint32_t* written) noexcept {
  return Call(
      UsbFunction::Write,
      [&](uint32_t limit) -> int {
        if (bytes == nullptr || written == nullptr) return kSiInvalidParameter;
        if (count == 0 || count > kMaxWriteSize) return kSiInvalidRequestLength;
        if (const int status = StatusOf(handle); status != kSiSuccess) return status;
        *written = std::min(count, limit);
        m_written.push_back({m_sequence, {bytes, bytes + *written}});
        return kSiSuccess;
      },
      [&] {
        return HandleName(handle) + ", " + Hex({bytes, count});
      },
      [&] { return Number(*written); });
}

int CBaseSimulator::FlushBuffers(Handle handle, uint8_t transmit, uint8_t receive) noexcept {
  return Call(
      UsbFunction::FlushBuffers,
      [&](uint32_t) -> int {
        if (const int status = StatusOf(handle); status != kSiSuccess) return status;
        while (receive != 0 && !m_pieces.empty() && m_pieces.front().arrival <= m_now) {
          m_pieces.pop_front();
        }
        return kSiSuccess;
      },
      [&] { return HandleName(handle) + ", " + Number(transmit) + ", " + Number(receive); },
      NoResults);
}

int CBaseSimulator::SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept {
  return Call(
      UsbFunction::SetTimeouts,
      [&](uint32_t) -> int {
        m_readTimeout = readTimeout;
        return kSiSuccess;
      },
      [&] { return Number(readTimeout) + ", " + Number(writeTimeout); }, NoResults);
}

int CBaseSimulator::CheckRxQueue(Handle handle, uint32_t* queued, uint32_t* status) noexcept {
  return Call(
      UsbFunction::CheckRxQueue,
      [&](uint32_t) -> int {
        if (queued == nullptr || status == nullptr) return kSiInvalidParameter;
        if (const int bad = StatusOf(handle); bad != kSiSuccess) return bad;
        *queued = Available();
        *status = *queued == 0 ? kSiRxEmpty : kSiRxReady;
        if (m_queueReport.calls > 0) {
          --m_queueReport.calls;
          *queued = m_queueReport.count.value_or(*queued);
          *status = m_queueReport.status;
        }
        return kSiSuccess;
      },
      [&] { return HandleName(handle); }, [&] { return Number(*queued) + ", " + Number(*status); });
}

int CBaseSimulator::SetBaudRate(Handle handle, uint32_t baudRate) noexcept {
  return Call(
      UsbFunction::SetBaudRate, [&](uint32_t) { return StatusOf(handle); },
      [&] { return HandleName(handle) + ", " + Number(baudRate); }, NoResults);
}

int CBaseSimulator::SetLineControl(Handle handle, uint16_t lineControl) noexcept {
  return Call(
      UsbFunction::SetLineControl, [&](uint32_t) { return StatusOf(handle); },
      [&] { return HandleName(handle) + ", " + Number(lineControl); }, NoResults);
}

int CBaseSimulator::SetFlowControl(Handle handle, std::span<const int, 6> controls) noexcept {
  return Call(
      UsbFunction::SetFlowControl, [&](uint32_t) { return StatusOf(handle); },
      [&] {
        std::string arguments = HandleName(handle);
        for (const int control : controls)
          arguments += ", " + std::to_string(control);
        return arguments;
      },
      NoResults);
}

}  // namespace quor::workbench
