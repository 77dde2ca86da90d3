#ifndef QUOR_TOOLBAR_BAR_MENU_H
#define QUOR_TOOLBAR_BAR_MENU_H

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "com/com_boundary.h"
#include "outlook/command_bars.h"
#include "toolbar/menu_items.h"
#include "toolbar/redraw.h"

namespace quor {

// A menu of the command bar with one Item per entry. Its own calls into Office may re-enter Show
// and Release.
template <typename Item>
class CBarMenu {
 public:
  // All must outlive the menu.
  CBarMenu(IToolbarActions& actions, IEventOwner& owner, CDiagnosticLog& log) noexcept
      : m_actions(actions), m_owner(owner), m_log(log) {}

  void Attach(CCommandBarPopup popup) { m_popup = std::move(popup); }

  // Creates the missing items. Throws _com_error; items created before the failure stay.
  void Complete(size_t count) {
    m_completion.Run([this, count] {
      if (!m_popup || m_items.size() >= count) return;
      const CCommandBarControls controls = m_popup.Controls();
      while (m_popup && m_items.size() < count) {
        auto item = std::make_shared<Item>(controls, m_items.size(), m_actions, m_owner, m_log);
        if (m_popup) m_items.push_back(std::move(item));
      }
    });
  }

  // Shows one face per item. An item that fails, for example because the user deleted it, is logged
  // and skipped.
  void Show(std::vector<typename Item::Face> faces) {
    m_faces = std::move(faces);
    m_redraw.Run([this] {
      const std::vector<std::shared_ptr<Item>> items = m_items;
      for (size_t i = 0; i < items.size() && i < m_faces.size(); ++i) {
        const typename Item::Face face = m_faces[i];
        GuardCall(m_log, "menu item", [&] { items[i]->Show(face); });
      }
    });
  }

  // Disconnects the items and releases the menu.
  void Release() noexcept {
    const CCommandBarPopup popup = std::exchange(m_popup, {});
    const std::vector<std::shared_ptr<Item>> items = std::exchange(m_items, {});
    for (const auto& item : items)
      item->Unadvise();
  }

 private:
  IToolbarActions& m_actions;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  CCommandBarPopup m_popup;
  std::vector<std::shared_ptr<Item>> m_items;
  std::vector<typename Item::Face> m_faces;
  CRedraw m_completion;
  CRedraw m_redraw;
};

}  // namespace quor

#endif
