#include "toolbar/menu_items.h"

#include <utility>

#include "com/com_boundary.h"
#include "toolbar/toolbar_layout.h"

namespace quor {

// NOLINTNEXTLINE(performance-unnecessary-value-param): a call out may release the caller's own.
void CShownFace::Show(CCommandBarControl control, const ItemFace& face) {
  const std::optional<ItemFace> shown = std::exchange(m_shown, std::nullopt);
  if (!shown || shown->caption != face.caption) control.SetCaption(face.caption);
  if (!shown || shown->enabled != face.enabled) control.SetEnabled(face.enabled);
  if (!shown || shown->visible != face.visible) control.SetVisible(face.visible);
  m_shown = face;
}

CMenuItem::CMenuItem(const CCommandBarControls& menu, const std::wstring& tag, const char* name,
                     IEventOwner& owner, CDiagnosticLog& log)
    : m_button(menu.Add(kControlButton)), m_events(owner, log, name) {
  try {
    m_button.SetTag(tag);
    const HRESULT advised = m_events.Advise(m_button.Get(), kCommandBarButtonEvents,
                                            [this](DISPID event, const CEventArguments&) {
                                              if (event == kEventClick) OnClick();
                                            });
    if (FAILED(advised)) _com_issue_error(advised);
  } catch (...) {
    // Do not leave an incomplete item in the menu.
    GuardCall(log, name, [this] { m_button.Delete(); });
    throw;
  }
}

CCallFromCellCommandBarButton::CCallFromCellCommandBarButton(const CCommandBarControls& menu,
                                                             size_t cell, IToolbarActions& actions,
                                                             IEventOwner& owner,
                                                             CDiagnosticLog& log)
    : CMenuItem(menu, ItemTag(LayoutOf(kCallFromCellControl), cell),
                "CCallFromCellCommandBarButton", owner, log),
      m_cell(cell),
      m_actions(actions) {}

CCallerCommandBarButton::CCallerCommandBarButton(const CCommandBarControls& menu, size_t entry,
                                                 IToolbarActions& actions, IEventOwner& owner,
                                                 CDiagnosticLog& log)
    : CMenuItem(menu, ItemTag(LayoutOf(kCallerListControl), entry), "CCallerCommandBarButton",
                owner, log),
      m_entry(entry),
      m_actions(actions) {}

CSpeedDialCommandBarButton::CSpeedDialCommandBarButton(const CCommandBarControls& menu,
                                                       size_t entry, SpeedDialAction action,
                                                       IToolbarActions& actions, IEventOwner& owner,
                                                       CDiagnosticLog& log)
    : CMenuItem(menu, SpeedDialItemTag(entry, action), "CSpeedDialCommandBarButton", owner, log),
      m_entry(entry),
      m_action(action),
      m_actions(actions) {}

CSpeedDialEntryMenu::CSpeedDialEntryMenu(const CCommandBarControls& menu, size_t entry,
                                         IToolbarActions& actions, IEventOwner& owner,
                                         CDiagnosticLog& log)
    : m_popup(menu.Add(kControlPopup)) {
  try {
    m_popup.SetTag(ItemTag(LayoutOf(kSpeedDialControl), entry));
    const CCommandBarControls items = m_popup.Controls();
    for (size_t action = 0; action < kSpeedDialActionCount; ++action) {
      m_actions.push_back(std::make_unique<CSpeedDialCommandBarButton>(
          items, entry, static_cast<SpeedDialAction>(action), actions, owner, log));
    }
  } catch (...) {
    GuardCall(log, "speed dial menu", [this] { m_popup.Delete(); });
    throw;
  }
}

void CSpeedDialEntryMenu::Show(const Face& face) {
  if (m_shownCaption != face.caption) {
    m_popup.SetCaption(face.caption);
    m_shownCaption = face.caption;
  }
  for (size_t action = 0; action < m_actions.size(); ++action) {
    m_actions[action]->Show(face.actions[action]);
  }
}

void CSpeedDialEntryMenu::Unadvise() noexcept {
  for (const auto& action : m_actions)
    action->Unadvise();
}

}  // namespace quor
