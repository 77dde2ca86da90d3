#ifndef QUOR_TOOLBAR_MENU_ITEMS_H
#define QUOR_TOOLBAR_MENU_ITEMS_H

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "com/event_connection.h"
#include "module/diagnostic_log.h"
#include "outlook/command_bars.h"
#include "toolbar/control_faces.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// The face that a control shows. Only changes are sent to Office: each costs a call.
class CShownFace {
 public:
  // Throws _com_error; the shown face then counts as unknown. A shutdown may run inside a call, so
  // the caller must hold the object that contains this one; the control is held here.
  void Show(CCommandBarControl control, const ItemFace& face);

 private:
  std::optional<ItemFace> m_shown;
};

// A button of a command bar or menu, with the sink for its clicks. Created at the end of the bar or
// menu; a failing object-model call throws _com_error.
class CMenuItem {
 public:
  using Face = ItemFace;

  CMenuItem(const CMenuItem&) = delete;
  CMenuItem& operator=(const CMenuItem&) = delete;

  // A shutdown may run inside the calls, so the caller must hold a reference.
  void Show(const ItemFace& face) { m_shown.Show(m_button, face); }
  void Unadvise() noexcept { m_events.Unadvise(); }

 protected:
  // `name` is a string literal for error lines in the log; `owner` is held while a click is
  // handled.
  CMenuItem(const CCommandBarControls& menu, const std::wstring& tag, const char* name,
            IEventOwner& owner, CDiagnosticLog& log);
  ~CMenuItem() = default;

  const CCommandBarButton& Button() const noexcept { return m_button; }

 private:
  virtual void OnClick() = 0;

  CCommandBarButton m_button;
  CEventConnection m_events;
  CShownFace m_shown;
};

// An item of the call-from-cell menu.
class CCallFromCellCommandBarButton final : public CMenuItem {
 public:
  CCallFromCellCommandBarButton(const CCommandBarControls& menu, size_t cell,
                                IToolbarActions& actions, IEventOwner& owner, CDiagnosticLog& log);

 private:
  void OnClick() override { m_actions.ClickCell(static_cast<int>(m_cell)); }

  size_t m_cell;
  IToolbarActions& m_actions;
};

// An item of the caller list.
class CCallerCommandBarButton final : public CMenuItem {
 public:
  CCallerCommandBarButton(const CCommandBarControls& menu, size_t entry, IToolbarActions& actions,
                          IEventOwner& owner, CDiagnosticLog& log);

 private:
  void OnClick() override { m_actions.ClickCaller(m_entry); }

  size_t m_entry;
  IToolbarActions& m_actions;
};

// An item in the submenu of a speed dial entry.
class CSpeedDialCommandBarButton final : public CMenuItem {
 public:
  CSpeedDialCommandBarButton(const CCommandBarControls& menu, size_t entry, SpeedDialAction action,
                             IToolbarActions& actions, IEventOwner& owner, CDiagnosticLog& log);

 private:
  void OnClick() override { m_actions.ClickSpeedDial(m_action, m_entry); }

  size_t m_entry;
  SpeedDialAction m_action;
  IToolbarActions& m_actions;
};

// An entry of the speed dial: a submenu with its actions.
class CSpeedDialEntryMenu {
 public:
  struct Face {
    std::wstring caption;
    std::array<ItemFace, kSpeedDialActionCount> actions;  // in the order of SpeedDialAction
  };

  CSpeedDialEntryMenu(const CCommandBarControls& menu, size_t entry, IToolbarActions& actions,
                      IEventOwner& owner, CDiagnosticLog& log);
  CSpeedDialEntryMenu(const CSpeedDialEntryMenu&) = delete;
  CSpeedDialEntryMenu& operator=(const CSpeedDialEntryMenu&) = delete;

  void Show(const Face& face);
  void Unadvise() noexcept;

 private:
  CCommandBarPopup m_popup;
  std::vector<std::unique_ptr<CSpeedDialCommandBarButton>> m_actions;
  std::wstring m_shownCaption;
};

}  // namespace quor

#endif
