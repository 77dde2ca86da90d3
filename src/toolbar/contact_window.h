#ifndef QUOR_TOOLBAR_CONTACT_WINDOW_H
#define QUOR_TOOLBAR_CONTACT_WINDOW_H

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "com/event_connection.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "settings/configuration.h"
#include "toolbar/contact_bar.h"
#include "toolbar/contact_numbers.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/redraw.h"

namespace quor {

// What the user does in the window of a contact. Numbers are as they are written in the contact,
// blanks, brackets and all. Called inside a boundary: throwing is allowed.
class IContactWindowActions {
 public:
  // A number picked from the contact's menu: dialled when a line is ready for it. True when it
  // waits for a line button instead, which only the ribbon's numbers do.
  virtual bool PickNumber(std::wstring_view number) = 0;
  // A button of a line or cell, as in the main window. Asks for no number of the contact's.
  virtual void ClickLine(uint8_t lineType) = 0;
  // Whether a click on that button dials at once, as an idle line on the ribbon does: then it is
  // DialOnLine's, with the contact's number (empty when there is none). True when it was dialled.
  virtual bool DialsAtOnce(uint8_t lineType) const = 0;
  virtual bool DialOnLine(uint8_t lineType, std::wstring_view number) = 0;

 protected:
  ~IContactWindowActions() = default;
};

class CContactWindow;

// Whoever keeps the open windows.
class IContactWindowHost {
 public:
  virtual CControlFaces Faces() const = 0;
  // Other numbers are known, or another one is picked: what the ribbon shows is asked again.
  virtual void InvalidateRibbon() noexcept = 0;
  // The contact has changed: a later Refresh of the window is enough for any number of changes.
  virtual void RequestRefresh() noexcept = 0;
  // The window has closed and holds nothing any more.
  virtual void OnClosed(const CContactWindow& window) noexcept = 0;

 protected:
  ~IContactWindowHost() = default;
};

// One open contact's window: its command bar before version 12 of Outlook, the number that is
// picked in its ribbon from then on. Follows the contact, which is another one when the user moves
// on to the next in the same window. Any call into Outlook may close the window: whoever calls an
// operation holds a reference of his own. Always made shared.
class CContactWindow final : public std::enable_shared_from_this<CContactWindow>,
                             private IContactBarActions {
 public:
  // All must outlive the window; `pictures` is null where a bar's buttons have none. `number` tells
  // the controls of its bar from those of every other; 0 for a window that has a ribbon.
  CContactWindow(IContactWindowHost& host, IContactWindowActions& actions, CPictureLoader* pictures,
                 ToolBarRecord& place, IEventOwner& owner, CDiagnosticLog& log,
                 unsigned number) noexcept;
  ~CContactWindow() { Close(); }
  CContactWindow(const CContactWindow&) = delete;
  CContactWindow& operator=(const CContactWindow&) = delete;

  // Follows the inspector to its end. False, and logged, when it cannot be followed; then nothing
  // of it is kept. A contact whose changes cannot be followed is only logged.
  bool Follow(const CInspector& inspector);
  bool IsOf(IDispatch* inspector) const { return IDispatchPtr(m_inspector.Get()) == inspector; }
  // Makes the command bar. A failure is logged and made up for when the window is next activated,
  // since Outlook announces a window before it is there. Does nothing for a window with a ribbon.
  void MakeBar() noexcept;

  // What is picked in the number menu and waits for a line button; none when the contact has no
  // such number any more. May throw _com_error.
  ContactNumber Picked();
  void DialContact(int telNumberType) override;
  // Dials the picked number, else the contact's first; for a line that dials at once.
  void CallContact(uint8_t lineType);

  // After RequestRefresh. True when the ribbon must ask again.
  bool Refresh() noexcept;
  void Redraw() noexcept;
  // There is no base: disabled until the next redraw.
  void Disable() noexcept;
  void SavePlace() noexcept;
  // Takes the command bar away and lets go of everything; a second time does nothing.
  void Close() noexcept;

 private:
  // IContactBarActions
  void ClickLine(uint8_t lineType) override { m_actions.ClickLine(lineType); }

  void OnWindowEvent(DISPID event);
  void OnContactEvent(DISPID event, const CEventArguments& arguments);
  void OnActivate();
  void FollowContact() noexcept;
  void SwitchContact(const CContactItem& contact);
  // Reads the contact's numbers for a window with a ribbon: whether others are known now.
  bool NumbersChanged() noexcept;
  void Pick(int telNumberType);
  bool HasBar() const noexcept { return m_number != 0; }
  void Draw() noexcept;
  ContactBarFaces Faces() const;

  IContactWindowHost& m_host;
  IContactWindowActions& m_actions;
  CPictureLoader* m_pictures;
  ToolBarRecord& m_place;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const unsigned m_number;

  CInspector m_inspector;  // empty once the window has closed
  CEventConnection m_events;
  CContactItem m_contact;  // the one in the window when it was last looked at
  CEventConnection m_contactEvents;
  CRedraw m_following;
  std::vector<ContactNumber> m_numbers;  // what the ribbon may be showing
  int m_pick = 0;                        // telNumberType of m_contact; 0: none
  bool m_stale = false;
  std::shared_ptr<CContactBar> m_bar;
  CRedraw m_redraw;
  bool m_makingBar = false;
  bool m_connected = true;
};

}  // namespace quor

#endif
