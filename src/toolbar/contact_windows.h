#ifndef QUOR_TOOLBAR_CONTACT_WINDOWS_H
#define QUOR_TOOLBAR_CONTACT_WINDOWS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "settings/configuration.h"
#include "toolbar/contact_window.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon.h"

namespace quor {

// What the contact windows need from the user interface.
class IContactRibbonDisplay {
 public:
  // Invalidates the contact ribbons, at most once until they have queried their faces again.
  virtual void InvalidateContactRibbons() noexcept = 0;
  // Posts a message that calls CContactWindows::Refresh; false if posting fails.
  virtual bool PostRefresh() noexcept = 0;

 protected:
  ~IContactRibbonDisplay() = default;
};

// The telephone in the windows of open contacts, each followed until it closes. Before Outlook
// version 12 each has its own command bar; from then on contact windows have a ribbon, which
// queries its faces.
class CContactWindows final : public IContactRibbon {
 public:
  // All must outlive this object. `place` records the position of the contact windows' command bar:
  // each new bar reads it, each closing bar writes it.
  CContactWindows(const IFaceSource& source, IToolbarActions& actions,
                  IContactRibbonDisplay& display, CPictureLoader& pictures, ToolBarRecord& place,
                  IEventOwner& owner, CDiagnosticLog& log) noexcept;
  ~CContactWindows() { CloseAll(); }
  CContactWindows(const CContactWindows&) = delete;
  CContactWindows& operator=(const CContactWindows&) = delete;

  // Call for every inspector that Outlook opens; ignores items that are not contacts. Failures are
  // logged.
  void Open(const CInspector& inspector, int32_t appVersion) noexcept;

  // Redraws the windows whose contact has changed.
  void Refresh() noexcept;
  // Updates captions, enabled flags and numbers of every window's command bar.
  void Redraw() noexcept;
  // Disables the controls, because the base is disconnected.
  void DisableControls() noexcept;
  // Stores the position of the bar opened last, for a save before the windows close.
  void SavePlace() noexcept;
  // Removes the command bars and releases everything.
  void CloseAll() noexcept;

  // IContactRibbon: each call reads from the contact, because the user may be changing it.
  std::wstring NumberOf(IDispatch* inspector, int telNumberType) override;
  ContactNumber PickedNumber(IDispatch* inspector) override;
  void PickNumber(IDispatch* inspector, int telNumberType) override;
  bool IsContactWindow(IDispatch* window) override;
  void ClickLine(IDispatch* inspector, uint8_t lineType) override;

  // For the windows.

  CControlFaces Faces() const { return m_source.Faces(); }
  // A contact's numbers or a picked number changed: the ribbon must query its faces again.
  void InvalidateRibbon() noexcept { m_display.InvalidateContactRibbons(); }
  // A contact changed. One later Refresh covers any number of changes.
  void RequestRefresh() noexcept;
  // The window has closed and released everything.
  void OnClosed(const CContactWindow& window) noexcept;

 private:
  using WindowPtr = std::shared_ptr<CContactWindow>;
  // Null if the inspector cannot be followed.
  WindowPtr OpenWindow(const CInspector& inspector, unsigned number);
  WindowPtr FindWindow(IDispatch* inspector) const;
  // The inspector's window; follows it if it was opened before the add-in started.
  WindowPtr WindowOf(IDispatch* inspector);
  template <typename Act>
  void ForEach(Act act) noexcept;

  const IFaceSource& m_source;
  IToolbarActions& m_actions;
  IContactRibbonDisplay& m_display;
  ToolBarRecord& m_place;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  CPictureLoader& m_pictures;
  std::vector<WindowPtr> m_windows;
  unsigned m_lastNumber = 0;
  bool m_withPictures = false;
  bool m_refreshPosted = false;
};

}  // namespace quor

#endif
