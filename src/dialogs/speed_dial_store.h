#ifndef QUOR_DIALOGS_SPEED_DIAL_STORE_H
#define QUOR_DIALOGS_SPEED_DIAL_STORE_H

#include <cstddef>

#include "settings/configuration.h"

namespace quor {

// Stores and saves the user's changes from the speed dial dialogs. An index is the one that the
// dialog was opened with. Called inside a boundary: exceptions are allowed.
class ISpeedDialStore {
 public:
  // The name is not empty, and the number can be dialled.
  virtual void SetEntry(size_t index, const SpeedDialEntry& entry) = 0;
  virtual void EraseEntry(size_t index) = 0;

 protected:
  ~ISpeedDialStore() = default;
};

}  // namespace quor

#endif
