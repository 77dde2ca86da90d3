#ifndef QUOR_DIALOGS_KEY_QUIET_H
#define QUOR_DIALOGS_KEY_QUIET_H

#include <bitset>
#include <cstdint>

namespace quor {

enum class KeyStroke { Down, Character, Up };

// Distinguishes keys meant for a window from those meant for the window that was in front before.
// Keys count after half a second without any key stroke while the window is in front; each stroke
// in that time, auto-repeat included, starts it again. Times are 32-bit tick counts in milliseconds
// and may wrap around.
class CKeyQuiet {
 public:
  // The window has come to the front, or shows something new there.
  void Begin(uint32_t now) noexcept;
  // The window is no longer in front: no key counts.
  void End() noexcept { m_inFront = false; }

  // Whether a key stroke counts. `key` is the virtual-key code, ignored for a character; `repeated`
  // means that the key was already down. A release or a repetition counts only if its press
  // counted.
  bool Admits(KeyStroke stroke, uint8_t key, bool repeated, uint32_t time) noexcept;

 private:
  bool IsQuiet(uint32_t time) const noexcept;
  bool AdmitsPress(uint8_t key, bool repeated) noexcept;

  uint32_t m_lastStroke = 0;
  bool m_inFront = false;
  bool m_open = false;  // half a second has passed without a key
  bool m_lastPressCounts = false;
  std::bitset<256> m_counts;  // by key code: whether its last press counted
};

}  // namespace quor

#endif
