#include "device/tel_ctrl.h"

namespace quor {

CTelCtrl::CTelCtrl(IEventObjects& events, CDiagnosticLog& log, uint32_t startTime) noexcept
    : m_eventObjects(events), m_log(log), m_startTime(startTime) {
  for (void*& event : m_events)
    event = m_eventObjects.CreateManualResetEvent();
}

CTelCtrl::~CTelCtrl() {
  for (void* event : m_events) {
    if (event != nullptr) m_eventObjects.CloseEvent(event);
  }
  m_log.Write("CTelCtrl Destructor\n");
}

int CTelCtrl::Initialize() noexcept {
  m_log.Write("Initialize\n");
  m_counter = 0;
  return 1;
}

}  // namespace quor
