#ifndef QUOR_DIALOGS_ACCESSIBLE_TEXTS_H
#define QUOR_DIALOGS_ACCESSIBLE_TEXTS_H

#include <windows.h>

#include <memory>
#include <string>

#include "dialogs/window_watch.h"

namespace quor {

// What assistive technology is told about a window, in place of what Windows tells of its class.
struct AccessibleTexts {
  std::wstring name;         // empty: as Windows tells it
  std::wstring description;  // empty: none
};

// Answers for a window's accessible object. A client may keep that object as long as it likes; it
// reads the texts as they are then.
class CAccessibleTexts final : private IWindowWatch {
 public:
  // The role is 0 for that of the window's class.
  explicit CAccessibleTexts(long role = 0) noexcept : m_role(role) {}
  CAccessibleTexts(const CAccessibleTexts&) = delete;
  CAccessibleTexts& operator=(const CAccessibleTexts&) = delete;

  // The window must be destroyed before this object is.
  void Attach(HWND window) noexcept { WatchWindow(window, *this); }
  void Set(AccessibleTexts texts) { *m_texts = std::move(texts); }

 private:
  std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM wparam,
                                   LPARAM lparam) noexcept override;

  long m_role;
  std::shared_ptr<AccessibleTexts> m_texts = std::make_shared<AccessibleTexts>();
};

}  // namespace quor

#endif
