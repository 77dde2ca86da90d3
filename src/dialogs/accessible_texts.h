#ifndef QUOR_DIALOGS_ACCESSIBLE_TEXTS_H
#define QUOR_DIALOGS_ACCESSIBLE_TEXTS_H

#include <windows.h>

#include <memory>
#include <string>

#include "dialogs/window_watch.h"

namespace quor {

// The texts that a screen reader gets for a window, in place of the ones from its class.
struct AccessibleTexts {
  std::wstring name;         // empty: the one from the class
  std::wstring description;  // empty: none
};

// Supplies a window's accessible object. A client that keeps the object gets the current texts.
class CAccessibleTexts final : private IWindowWatch {
 public:
  // A role of 0 keeps the role of the window's class.
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
