#ifndef QUOR_TOOLBAR_REDRAW_H
#define QUOR_TOOLBAR_REDRAW_H

namespace quor {

// One thing that is drawn by calls into Office. Each of them may handle messages, and so ask for
// the very redraw that is under way: that one is then repeated when it is through, never nested in
// itself, so that what Office shows in the end is the newest.
class CRedraw {
 public:
  // `draw` must read what it draws afresh each time.
  template <typename Draw>
  void Run(Draw&& draw) {
    ++m_requests;
    if (m_running) return;
    const CRunning running(m_running);
    unsigned served = 0;
    do {
      served = m_requests;
      draw();
    } while (served != m_requests);
  }

 private:
  class CRunning {
   public:
    explicit CRunning(bool& flag) noexcept : m_flag(flag) { m_flag = true; }
    ~CRunning() { m_flag = false; }
    CRunning(const CRunning&) = delete;
    CRunning& operator=(const CRunning&) = delete;

   private:
    bool& m_flag;
  };

  bool m_running = false;
  unsigned m_requests = 0;
};

}  // namespace quor

#endif
