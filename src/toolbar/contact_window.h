#ifndef QUOR_TOOLBAR_CONTACT_WINDOW_H
#define QUOR_TOOLBAR_CONTACT_WINDOW_H

#include <cstdint>
#include <memory>
#include <string_view>

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

// What the user does in the window of a contact. Called inside a boundary: throwing is allowed.
class IContactWindowActions {
 public:
  // A number of the contact, as it is written there: blanks, brackets and all.
  virtual void DialNumber(std::wstring_view number) = 0;
  // A line button of the command bar, which takes or releases the line as the main toolbar's does.
  virtual void ClickLine(uint8_t lineType) = 0;
  // A line button of the ribbon. `firstNumber`, as it is written in the contact, is what an idle
  // line dials when the dial box holds nothing; empty when the contact has none.
  virtual void ClickContactLine(uint8_t lineType, std::wstring_view firstNumber) = 0;

 protected:
  ~IContactWindowActions() = default;
};

class CContactWindow;

// Whoever keeps the open windows.
class IContactWindowHost {
 public:
  virtual CControlFaces Faces() const = 0;
  // The window has closed and holds nothing any more.
  virtual void OnClosed(const CContactWindow& window) noexcept = 0;

 protected:
  ~IContactWindowHost() = default;
};

// One open contact's window and its command bar. Any call into Outlook may close it: whoever calls
// an operation holds a reference of his own. Always made shared.
class CContactWindow final : public std::enable_shared_from_this<CContactWindow>,
                             private IContactBarActions {
 public:
  // All must outlive the window. `number` tells this window's controls from those of every other.
  CContactWindow(IContactWindowHost& host, IContactWindowActions& actions, CPictureLoader& pictures,
                 ToolBarRecord& place, IEventOwner& owner, CDiagnosticLog& log,
                 unsigned number) noexcept;
  ~CContactWindow() { Close(); }
  CContactWindow(const CContactWindow&) = delete;
  CContactWindow& operator=(const CContactWindow&) = delete;

  // Follows the inspector to its end. False, and logged, when it cannot be followed; then nothing
  // of it is kept.
  bool Follow(const CInspector& inspector);
  // Makes the command bar. A failure is logged and made up for when the window is next activated,
  // since Outlook announces a window before it is there.
  void MakeBar() noexcept;

  void Redraw() noexcept;
  // There is no base: disabled until the next redraw.
  void Disable() noexcept;
  void SavePlace() noexcept;
  // Takes the command bar away and lets go of everything; a second time does nothing.
  void Close() noexcept;

 private:
  // IContactBarActions
  void DialContact(int telNumberType) override;
  void ClickLine(uint8_t lineType) override { m_actions.ClickLine(lineType); }

  void OnEvent(DISPID event);
  void Draw() noexcept;
  ContactBarFaces Faces() const;

  IContactWindowHost& m_host;
  IContactWindowActions& m_actions;
  CPictureLoader& m_pictures;
  ToolBarRecord& m_place;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const unsigned m_number;

  CInspector m_inspector;  // empty once the window has closed
  CEventConnection m_events;
  std::shared_ptr<CContactBar> m_bar;
  CRedraw m_redraw;
  bool m_makingBar = false;
  bool m_connected = true;
};

}  // namespace quor

#endif
