#include "device/request_handlers.h"

#include <string>

#include "device/line_type.h"

namespace quor {

void CRequestHandlers::OnStartupRequest() {
  m_log.Write("CAddin::OnStartupRequest\n");
  if (!m_link.SendStartupRequest()) m_log.Write("** CAddin::OnStartupRequest error.\n");
}

void CRequestHandlers::OnCallRequest(uint32_t lineType) {
  m_log.Write("CAddin::OnCallRequest\n");
  if (!SendCall(lineType)) m_log.Write("** CAddin::OnCallRequest error.\n");
}

bool CRequestHandlers::SendCall(uint32_t lineType) {
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return false;
  const DialRecord& dial = m_records.dial[static_cast<size_t>(slot)];
  std::string number(FieldText(dial.number));
  return m_link.SendCallRequest(dial.lineType, number);
}

void CRequestHandlers::OnOnHookRequest(uint32_t lineType) {
  m_log.Write("CAddin::OnOnHookRequest\n");
  if (!SendOnHook(lineType)) m_log.Write("** CAddin::OnOnHookRequest error.\n");
  m_display.PutCallFromCellButton();
}

bool CRequestHandlers::SendOnHook(uint32_t lineType) {
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return false;
  m_records.lastCaller[static_cast<size_t>(slot)].lineType = kNoLine;
  return m_link.SendOnHookRequest(m_records.onHookLine[static_cast<size_t>(slot)]);
}

}  // namespace quor
