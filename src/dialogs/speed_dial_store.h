#ifndef QUOR_DIALOGS_SPEED_DIAL_STORE_H
#define QUOR_DIALOGS_SPEED_DIAL_STORE_H

#include <cstddef>

#include "settings/configuration.h"

namespace quor {

// Takes what the user decided in the speed dial dialogs, and keeps it at once. Indexes are those
// the dialogs were opened with. Called inside a boundary: throwing is allowed.
class ISpeedDialStore {
 public:
  // The name is never empty; the number can be dialled as it stands.
  virtual void SetEntry(size_t index, const SpeedDialEntry& entry) = 0;
  virtual void EraseEntry(size_t index) = 0;

 protected:
  ~ISpeedDialStore() = default;
};

}  // namespace quor

#endif
