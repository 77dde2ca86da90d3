#ifndef QUOR_WORKBENCH_HOST_WORKBENCH_H
#define QUOR_WORKBENCH_HOST_WORKBENCH_H

#include <optional>
#include <string>

#include "workbench/host/addin_host.h"
#include "workbench/host/application_data.h"
#include "workbench/host/base_panel.h"
#include "workbench/host/base_stage.h"
#include "workbench/host/evidence_stage.h"
#include "workbench/host/figure_stage.h"
#include "workbench/host/message_loop.h"
#include "workbench/host/office_face.h"
#include "workbench/host/options_window.h"
#include "workbench/host/running_entry.h"
#include "workbench/host/screen_stage.h"
#include "workbench/scenario/options.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// What the commands of a scenario act on. An action on something that does not exist (contact,
// button) throws.
struct Stage {
  CAddInHost& host;
  CBaseStage& base;
  COutlook& outlook;
  CScreenStage& screen;
  CEvidenceStage& evidence;
  CApplicationData& data;
  CFigureStage& figures;
};

// One session: Outlook with its first window open, the base, the run's application data, and the
// registered add-in, not yet loaded. Lives on Outlook's thread.
class CWorkbench {
 public:
  // Throws std::runtime_error with a text for the user, for example if no add-in is registered.
  CWorkbench(const Options& options, CMessageLoop& loop);
  CWorkbench(const CWorkbench&) = delete;
  CWorkbench& operator=(const CWorkbench&) = delete;

  Stage Stages();
  COutlook& Outlook() { return m_outlook; }
  COfficeFace& Face() { return m_face; }
  CAddInHost& Host() { return m_host; }
  CBaseSimulator& Base() { return m_baseStage.Base(); }

 private:
  RegisteredAddIn m_addIn;
  CApplicationData m_data;
  COfficeFace m_face;
  COutlook m_outlook;
  CFigureStage m_figureStage;
  COptionsWindow m_options;
  CAddInHost m_host;
  CBaseStage m_baseStage;
  CBasePanel m_basePanel;
  CScreenStage m_screenStage;
  CEvidenceStage m_evidenceStage;
  std::optional<CRunningEntry> m_running;
};

}  // namespace quor::workbench

#endif
