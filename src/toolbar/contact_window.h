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
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/redraw.h"
#include "toolbar/shown_contact.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

class CContactWindows;

// The window of one open contact: its command bar before Outlook version 12, and from then on the
// number picked in its ribbon. Follows the contact, also when the user moves to the next contact in
// the same window. Any call into Outlook may close the window, so callers must hold a reference to
// it. Always created as a shared_ptr.
class CContactWindow final : public std::enable_shared_from_this<CContactWindow> {
 public:
  // All must outlive the window. `pictures` is null if buttons cannot have pictures. `number` makes
  // the tags of the bar's controls unique; 0 for a window with a ribbon.
  CContactWindow(CContactWindows& windows, IToolbarActions& actions, CPictureLoader* pictures,
                 ToolBarRecord& place, IEventOwner& owner, CDiagnosticLog& log,
                 unsigned number) noexcept;
  ~CContactWindow() { Close(); }
  CContactWindow(const CContactWindow&) = delete;
  CContactWindow& operator=(const CContactWindow&) = delete;

  // Follows the inspector until it closes. If its events cannot be connected, logs this, releases
  // it and returns false. If only the contact's events cannot be connected, logs this and returns
  // true.
  bool Follow(const CInspector& inspector);
  bool IsOf(IDispatch* inspector) const { return IDispatchPtr(m_inspector.Get()) == inspector; }
  // Creates the command bar. A failure is logged; the next activation of the window tries again,
  // because Outlook announces a window before it is ready. Does nothing for a window with a ribbon.
  void MakeBar() noexcept;

  // The number picked in the menu that waits for a line button; none if the contact no longer has
  // it. May throw _com_error.
  ContactNumber Picked();
  // A number was clicked in the menu.
  void PickNumber(int telNumberType);
  // Dials the picked number, or else the contact's first, on a line that dials at once.
  void ClickLine(uint8_t lineType);

  // Call after RequestRefresh. True if the ribbon must query its faces again.
  bool Refresh() noexcept;
  void Redraw() noexcept;
  // Disables the controls until the next redraw, because the base is disconnected.
  void DisableControls() noexcept;
  void SavePlace() noexcept;
  // Removes the command bar and releases everything; does nothing the second time.
  void Close() noexcept;

 private:
  void OnWindowEvent(DISPID event);
  void OnContactEvent(DISPID event, const CEventArguments& arguments);
  void OnActivate();
  void FollowContact() noexcept;
  void SwitchContact(const CContactItem& contact);
  // Reads the contact's numbers for a window with a ribbon. Returns whether they changed.
  bool NumbersChanged() noexcept;
  void Pick(int telNumberType);
  bool HasBar() const noexcept { return m_number != 0; }
  void Draw() noexcept;
  ContactBarFaces Faces() const;

  CContactWindows& m_windows;
  IToolbarActions& m_actions;
  CPictureLoader* m_pictures;
  ToolBarRecord& m_place;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const unsigned m_number;

  CInspector m_inspector;  // empty after the window has closed
  CEventConnection m_events;
  CContactItem m_contact;  // the contact last seen in the window
  CEventConnection m_contactEvents;
  CRedraw m_following;
  std::vector<ContactNumber> m_numbers;  // numbers that the ribbon may be showing
  int m_pick = 0;                        // telNumberType of m_contact; 0: none
  bool m_stale = false;
  std::shared_ptr<CContactBar> m_bar;
  CRedraw m_redraw;
  bool m_makingBar = false;
  bool m_connected = true;
};

}  // namespace quor

#endif
