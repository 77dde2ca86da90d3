#ifndef QUOR_DIALOGS_KEY_QUIET_H
#define QUOR_DIALOGS_KEY_QUIET_H

#include <bitset>
#include <cstdint>

namespace quor {

enum class KeyStroke { Down, Character, Up };

// Tells keys meant for a window from those meant for the window that was in front before it. Keys
// count once they have been quiet for half a second with the window in front; every stroke in
// that time, auto-repeat included, begins the half second again. Times are milliseconds of a
// 32-bit tick and may wrap.
class CKeyQuiet {
 public:
  // The window is in front now, or announces something new there.
  void Begin(uint32_t now) noexcept;
  // The window is no longer in front: no key counts.
  void End() noexcept { m_inFront = false; }

  // `key` is the virtual-key code, ignored for a character; `repeated` tells that the key was down
  // already. The release of a key counts only if its press did, and so does a repetition.
  bool Admits(KeyStroke stroke, uint8_t key, bool repeated, uint32_t time) noexcept;

 private:
  bool IsQuiet(uint32_t time) const noexcept;
  bool AdmitsPress(uint8_t key, bool repeated) noexcept;

  uint32_t m_lastStroke = 0;
  bool m_inFront = false;
  bool m_open = false;  // the half second has passed
  bool m_lastPressCounts = false;
  std::bitset<256> m_counts;  // by key: whether its last press counted
};

}  // namespace quor

#endif
