#ifndef QUOR_DEVICE_EVENT_OBJECTS_H
#define QUOR_DEVICE_EVENT_OBJECTS_H

#include "device/tel_ctrl.h"

namespace quor {

// Events of the Windows kernel.
class CEventObjects final : public IEventObjects {
 public:
  void* CreateManualResetEvent() noexcept override;
  void CloseEvent(void* event) noexcept override;
};

}  // namespace quor

#endif
