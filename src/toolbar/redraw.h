#ifndef QUOR_TOOLBAR_REDRAW_H
#define QUOR_TOOLBAR_REDRAW_H

#include "toolbar/flag_scope.h"

namespace quor {

// Serialises the redraws of one object. A redraw calls into Office, which may pump messages and
// request the same redraw. It is then repeated after the current one, never nested, so that Office
// ends up with the newest state.
class CRedraw {
 public:
  // `draw` must read the current state each time.
  template <typename Draw>
  void Run(Draw&& draw) {
    ++m_requests;
    if (m_running) return;
    const CFlagScope running(m_running);
    unsigned served = 0;
    do {
      served = m_requests;
      draw();
    } while (served != m_requests);
  }

 private:
  bool m_running = false;
  unsigned m_requests = 0;
};

}  // namespace quor

#endif
