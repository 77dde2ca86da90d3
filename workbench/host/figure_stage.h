#ifndef QUOR_WORKBENCH_HOST_FIGURE_STAGE_H
#define QUOR_WORKBENCH_HOST_FIGURE_STAGE_H

#include <functional>
#include <optional>

#include "workbench/host/delay_probe.h"
#include "workbench/host/office_face.h"
#include "workbench/office/model.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Measures the time that the add-in costs Outlook, by the machine's clock.
class CFigureStage final {
 public:
  // Both must outlive the stage.
  CFigureStage(CModel& model, COfficeFace& face) : m_model(model), m_face(face) {}

  using TimeOf = std::optional<double> Figures::*;
  // Runs the action and adds its time to the figure.
  void Time(TimeOf figure, const std::function<void()>& action);
  using WorkOf = std::optional<Figures::Work> Figures::*;
  // Runs the action and adds its cost, inside and outside the object model, to the figure.
  void Measure(WorkOf figure, const std::function<void()>& action);

  // Runs the tick and then handles messages until there are none. Measures the time from the tick
  // to the first window that appears.
  void TimeCaller(const std::function<void()>& tick, const std::function<bool()>& handleMessage,
                  const std::function<bool()>& appears);

  void WatchDelays();
  Figures Take();

 private:
  CModel& m_model;
  COfficeFace& m_face;
  Figures m_figures;
  std::optional<CDelayProbe> m_delays;
};

}  // namespace quor::workbench

#endif
