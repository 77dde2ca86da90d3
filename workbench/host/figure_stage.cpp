#include "workbench/host/figure_stage.h"

#include <algorithm>
#include <utility>

#include "workbench/host/clock.h"
#include "workbench/host/module_meter.h"

namespace quor::workbench {

namespace {

// Enough for figures; a session of 100,000 calls does not need them.
constexpr size_t kMostCallers = 1000;
constexpr UINT_PTR kPollTimer = 0x80000002u;
constexpr double kPollInterval = 100;  // milliseconds

double MillisecondsOf(const std::function<void()>& action) {
  const double start = MillisecondsNow();
  action();
  return MillisecondsNow() - start;
}

}  // namespace

void CFigureStage::Time(TimeOf figure, const std::function<void()>& action) {
  const double milliseconds = MillisecondsOf(action);
  m_figures.*figure = (m_figures.*figure).value_or(0) + milliseconds;
}

void CFigureStage::Measure(WorkOf figure, const std::function<void()>& action) {
  const uint64_t calls = m_model.TotalCalls();
  const double inModel = m_model.MicrosecondsInModel();
  const double inWindows = CModuleMeter::SoFar().windows;
  const double begun = MillisecondsNow();
  const double whole = MillisecondsOf(action) * 1000;
  const double inside = m_model.MicrosecondsInModel() - inModel;
  const double windows = (CModuleMeter::SoFar().windows - inWindows) * 1000;
  Figures::Work& work = (m_figures.*figure).emplace((m_figures.*figure).value_or(Figures::Work()));
  work.calls += m_model.TotalCalls() - calls;
  work.microsecondsInModel += inside;
  work.microsecondsInWindows += windows;
  work.microsecondsInAddIn += whole - inside - windows;
  if (work.messages++ == 0) work.begun = begun;
  work.longestMilliseconds = std::max(work.longestMilliseconds, whole / 1000);
  work.ended = MillisecondsNow();
}

void CFigureStage::TimeCaller(const std::function<void()>& tick,
                              const std::function<bool()>& handleMessage,
                              const std::function<bool()>& appears) {
  Figures::Caller caller;
  const CModuleMeter::Times before = CModuleMeter::SoFar();
  const double inModel = m_model.MicrosecondsInModel();
  caller.milliseconds = MillisecondsOf(tick);
  bool more = true;
  bool shown = appears();
  while (more && !shown) {
    caller.milliseconds += MillisecondsOf([&] { more = handleMessage(); });
    if (more) ++caller.messages;
    shown = appears();
  }
  const CModuleMeter::Times after = CModuleMeter::SoFar();
  caller.savingMilliseconds = after.saving - before.saving;
  caller.windowMilliseconds = after.windows - before.windows;
  caller.outlookMilliseconds = (m_model.MicrosecondsInModel() - inModel) / 1000;
  if (shown && m_figures.callers.size() < kMostCallers) m_figures.callers.push_back(caller);
  while (handleMessage()) {
  }
}

void CFigureStage::WatchDelays() {
  m_delays.emplace(kPollTimer, kPollInterval);
}

Figures CFigureStage::Take() {
  const RibbonFigures ribbon = m_face.TakeRibbonFigures();
  Figures figures = std::exchange(m_figures, {});
  figures.ribbonCallbacks = ribbon.callbacks;
  figures.ribbonInvalidations = ribbon.invalidations;
  figures.ribbonMicroseconds = ribbon.microseconds;
  if (m_delays) figures.delays = {m_delays->KeyDelay(), m_delays->PollDelay()};
  m_delays.reset();
  return figures;
}

}  // namespace quor::workbench
