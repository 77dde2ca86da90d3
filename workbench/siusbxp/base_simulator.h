#ifndef QUOR_WORKBENCH_SIUSBXP_BASE_SIMULATOR_H
#define QUOR_WORKBENCH_SIUSBXP_BASE_SIMULATOR_H

#include <deque>
#include <string>
#include <vector>

#include "workbench/siusbxp/simulated_base.h"
#include "workbench/siusbxp/usb_host.h"

namespace quor::workbench {

// The simulated base itself.
class CBaseSimulator final : public IUsbHost {
 public:
  CBaseSimulator() { Reset(); }

  // Unplugs everything, empties queues and resets counts; open handles become invalid.
  void Reset();

  // Devices are listed in the order of plugging. A handle to an unplugged device stays allocated
  // and returns kSiDeviceIoFailed until it is closed.
  void Plug(const ProductStrings& strings = kDefaultProductStrings);
  void Unplug(uint32_t device = 0);
  uint32_t DeviceCount() const { return static_cast<uint32_t>(m_devices.size()); }

  // Queues bytes from the base, `delay` milliseconds after those queued before. Time is simulated:
  // it passes while SI_Read waits and in Advance. SI_Read waits for all bytes or its timeout; then
  // it returns what has arrived, or kSiReadTimedOut if nothing has. An infinite timeout ends when
  // nothing more is queued. Unplugging the last device drops the queue.
  void Queue(std::span<const uint8_t> bytes, uint32_t delay = 0);
  void Advance(uint32_t milliseconds) { PassTime(m_now + milliseconds); }
  uint64_t Now() const { return m_now; }

  // What SI_CheckRXQueue reports in the next `calls` calls; without a count, the real one.
  void ReportQueue(uint32_t status, std::optional<uint32_t> count, uint32_t calls);

  // Makes calls return a status and do nothing. A failing SI_Close still invalidates the handle, as
  // for a device already removed. Call number n from the start of the run is n - CallCount here.
  void Fail(UsbFunction function, int status, CallRange calls = {});
  // Makes SI_Read or SI_Write succeed with at most this many bytes; the rest stays queued or
  // unsent.
  void Shorten(UsbFunction function, uint32_t bytes, CallRange calls = {});
  // Removes every Fail, Shorten and ReportQueue.
  void Heal();

  // Writes since the last ForgetWritten, one entry for each SI_Write that reached the wire.
  size_t WrittenCount() const { return m_written.size(); }
  WrittenFrame Written(size_t index) const;
  void ForgetWritten() { m_written.clear(); }

  uint32_t CallCount(UsbFunction function) const;
  uint32_t OpenHandles() const { return static_cast<uint32_t>(m_handles.size()); }
  // Devices still open when the DLL was freed: its threads ran in freed code.
  uint32_t FreedWhileOpen() const { return m_freedWhileOpen; }
  // Failed calls of SI_Close; the caller cannot know whether the device's thread has ended.
  uint32_t FailedCloses() const { return m_failedCloses; }

  void SetManners(const DriverManners& manners) { m_manners = manners; }

  // Notifies one observer of every call; null for none. Texts are built only if there is an
  // observer.
  void Observe(ICallObserver* observer) { m_observer = observer; }

  // The library's functions. A null out parameter gives kSiInvalidParameter.
  int GetNumDevices(uint32_t* count) noexcept override;
  int GetProductString(uint32_t device, char* text, uint32_t option) noexcept override;
  int Open(uint32_t device, Handle* handle) noexcept override;
  int Close(Handle handle) noexcept override;
  int Read(Handle handle, uint8_t* buffer, uint32_t wanted, uint32_t* read) noexcept override;
  int Write(Handle handle, const uint8_t* bytes, uint32_t count,
            uint32_t* written) noexcept override;
  int FlushBuffers(Handle handle, uint8_t transmit, uint8_t receive) noexcept override;
  int SetTimeouts(uint32_t readTimeout, uint32_t writeTimeout) noexcept override;
  int CheckRxQueue(Handle handle, uint32_t* queued, uint32_t* status) noexcept override;
  int SetBaudRate(Handle handle, uint32_t baudRate) noexcept override;
  int SetLineControl(Handle handle, uint16_t lineControl) noexcept override;
  int SetFlowControl(Handle handle, std::span<const int, 6> controls) noexcept override;
  void OnFreedWhileOpen(uint32_t devices) noexcept override { m_freedWhileOpen += devices; }

 private:
  struct Device {
    uint64_t number;
    std::array<std::optional<std::string>, 5> strings;
  };
  struct OpenHandle {
    Handle handle;
    uint64_t device;
  };
  struct Piece {
    uint64_t arrival;
    std::vector<uint8_t> bytes;
  };
  struct SentFrame {
    uint64_t sequence;
    std::vector<uint8_t> bytes;
  };
  // Applies to calls firstCall to lastCall as CallCount numbers them: a status to return, or a size
  // limit.
  struct Fault {
    uint64_t firstCall;
    uint64_t lastCall;
    int status;
    uint32_t size;
  };
  struct QueueReport {
    uint32_t status;
    std::optional<uint32_t> count;
    uint32_t calls;
  };
  struct FunctionState {
    uint32_t calls = 0;
    std::vector<Fault> faults;
  };

  // Counts the call, does the work unless a fault replaces it, and notifies the observer. The work
  // gets its size limit; results are formatted only after success.
  template <typename Work, typename Arguments, typename Results>
  int Call(UsbFunction function, Work work, Arguments arguments, Results results);
  Fault CountCall(UsbFunction function);
  void AddFault(UsbFunction function, CallRange calls, int status, uint32_t size);
  void Tell(UsbFunction function, int status, const std::string& arguments,
            const std::string& results);

  FunctionState& State(UsbFunction function) { return m_functions[static_cast<size_t>(function)]; }
  int StatusOf(Handle handle) const;
  bool IsPlugged(uint64_t device) const;
  bool IsOpen(uint64_t device) const;
  uint32_t Available() const;
  void WaitFor(uint32_t wanted);
  void PassTime(uint64_t until) { m_now = until; }
  uint32_t Take(uint8_t* buffer, uint32_t wanted);

  std::vector<Device> m_devices;
  std::vector<OpenHandle> m_handles;
  std::deque<Piece> m_pieces;
  std::vector<SentFrame> m_written;
  std::array<FunctionState, kUsbFunctionNames.size()> m_functions;
  QueueReport m_queueReport;
  DriverManners m_manners;
  uint32_t m_freedWhileOpen;
  uint32_t m_failedCloses;
  ICallObserver* m_observer = nullptr;
  uint64_t m_sequence;
  uint64_t m_lastDevice = 0;  // numbers are never reused, so that old handles stay invalid
  uintptr_t m_lastHandle = 0;
  uint64_t m_now;
  uint32_t m_readTimeout;
};

}  // namespace quor::workbench

#endif
