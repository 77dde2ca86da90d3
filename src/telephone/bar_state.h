#ifndef QUOR_TELEPHONE_BAR_STATE_H
#define QUOR_TELEPHONE_BAR_STATE_H

#include <cstdint>

#include "telephone/collaborators.h"

namespace quor {

// Redraws of the telephone's controls, at once or posted. Posted where the caller sits in a
// control's own click handler.
class CBarState {
 public:
  explicit CBarState(const TelephoneCollaborators& with) noexcept : m_with(with) {}

  void PostSetBarState(bool connected) noexcept;
  // The handler of WindowRequest::SetBarState.
  void OnSetBarState(uint32_t connected);
  // Any value but 1 means that there is no base.
  void SetBarState(uint32_t connected);

  // Its handler is CDialler::OnClearDial.
  void PostClearDialNumber() noexcept;

 private:
  const TelephoneCollaborators& m_with;
};

}  // namespace quor

#endif
