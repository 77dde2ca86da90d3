#ifndef QUOR_TELEPHONE_CONTROL_REFRESH_H
#define QUOR_TELEPHONE_CONTROL_REFRESH_H

#include <cstdint>

#include "telephone/collaborators.h"

namespace quor {

// Redraws the telephone's controls, at once or through a posted message. The message is for callers
// inside a control's own click handler.
class CControlRefresh {
 public:
  explicit CControlRefresh(const TelephoneCollaborators& collaborators) noexcept
      : m_collaborators(collaborators) {}

  void PostSetBarState(bool connected) noexcept;
  // Handles WindowRequest::SetBarState.
  void OnSetBarState(uint32_t connected);
  // 1: the base is connected; any other value: it is not.
  void SetBarState(uint32_t connected);

 private:
  const TelephoneCollaborators& m_collaborators;
};

}  // namespace quor

#endif
