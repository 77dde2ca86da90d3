#include "dialogs/key_quiet.h"

namespace quor {
namespace {

constexpr int32_t kQuietTime = 500;  // milliseconds

// Negative for a stroke that was already in the queue at `since`.
int32_t Elapsed(uint32_t since, uint32_t time) noexcept {
  return static_cast<int32_t>(time - since);
}

}  // namespace

void CKeyQuiet::Begin(uint32_t now) noexcept {
  m_lastStroke = now;
  m_inFront = true;
  m_open = false;
  m_lastPressCounts = false;
  m_counts.reset();
}

bool CKeyQuiet::IsQuiet(uint32_t time) const noexcept {
  return Elapsed(m_lastStroke, time) >= kQuietTime;
}

bool CKeyQuiet::AdmitsPress(uint8_t key, bool repeated) noexcept {
  m_lastPressCounts = m_open && (!repeated || m_counts[key]);
  m_counts[key] = m_lastPressCounts;
  return m_lastPressCounts;
}

bool CKeyQuiet::Admits(KeyStroke stroke, uint8_t key, bool repeated, uint32_t time) noexcept {
  if (!m_inFront) return false;
  // Ignore repetitions here: the first one of a held key may come after more than half a second.
  if (!m_open && stroke != KeyStroke::Up && !repeated) m_open = IsQuiet(time);
  if (!m_open && Elapsed(m_lastStroke, time) > 0) m_lastStroke = time;
  switch (stroke) {
    case KeyStroke::Down:
      return AdmitsPress(key, repeated);
    case KeyStroke::Character:
      return m_open && (!repeated || m_lastPressCounts);
    case KeyStroke::Up:
      break;
  }
  return m_open && m_counts[key];
}

}  // namespace quor
