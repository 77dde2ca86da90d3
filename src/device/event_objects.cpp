#include "device/event_objects.h"

#include <windows.h>

namespace quor {

void* CEventObjects::CreateManualResetEvent() noexcept {
  return CreateEventW(nullptr, TRUE, FALSE, nullptr);
}

void CEventObjects::CloseEvent(void* event) noexcept {
  CloseHandle(event);
}

}  // namespace quor
