#ifndef QUOR_WORKBENCH_HOST_KEY_STROKE_H
#define QUOR_WORKBENCH_HOST_KEY_STROKE_H

#include <windows.h>

#include <array>
#include <string>

namespace quor::workbench {

// A key stroke: "Tab", "Shift+Tab", "Alt+l", or a typed text. The modifiers are down while this
// object exists.
class CKeyStroke {
 public:
  // Throws CScenarioError for an unknown key.
  explicit CKeyStroke(const std::string& key);
  ~CKeyStroke();
  CKeyStroke(const CKeyStroke&) = delete;
  CKeyStroke& operator=(const CKeyStroke&) = delete;

  // Sends the key to the window with the focus on this thread.
  void Post() const;

 private:
  void HoldDown(const std::string& modifier);

  std::array<BYTE, 256> m_before = {};
  bool m_alt = false;
  WPARAM m_virtualKey = 0;  // 0: a text
  std::wstring m_text;
};

}  // namespace quor::workbench

#endif
