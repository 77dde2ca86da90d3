#ifndef QUOR_DEVICE_TEL_CTRL_H
#define QUOR_DEVICE_TEL_CTRL_H

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "module/diagnostic_log.h"

namespace quor {

// Creates and closes event objects of the operating system.
class IEventObjects {
 public:
  // Creates a manual-reset, non-signalled event without a name; null on failure.
  virtual void* CreateManualResetEvent() noexcept = 0;
  virtual void CloseEvent(void* event) noexcept = 0;

 protected:
  ~IEventObjects() = default;
};

// The device controller object. It holds the log switch and the add-in's start time. No device
// traffic passes through it: its entries, events and timings are reserved for a controller that
// paces the link, and nothing reads them yet.
class CTelCtrl {
 public:
  // startTime: the milliseconds tick (timeGetTime) at creation. The log and the event objects must
  // outlive the controller.
  CTelCtrl(IEventObjects& events, CDiagnosticLog& log, uint32_t startTime) noexcept;
  ~CTelCtrl();
  CTelCtrl(const CTelCtrl&) = delete;
  CTelCtrl& operator=(const CTelCtrl&) = delete;

  // Always returns 1.
  int Initialize() noexcept;

  void SetLogFlag(bool on) noexcept { m_log.SetEnabled(on); }
  bool LogFlag() const noexcept { return m_log.IsEnabled(); }

  uint32_t StartTime() const noexcept { return m_startTime; }

  using Timings = std::array<uint32_t, 8>;  // milliseconds
  const Timings& TimingValues() const noexcept { return m_timings; }

 private:
  using Entry = std::array<std::string, 6>;

  IEventObjects& m_eventObjects;
  CDiagnosticLog& m_log;
  std::map<uint32_t, Entry> m_entries;
  std::array<void*, 2> m_events;
  Timings m_timings{10000, 60000, 15000, 15000, 5000, 0, 500, 400};
  uint32_t m_counter = 0;
  uint32_t m_startTime;
};

}  // namespace quor

#endif
