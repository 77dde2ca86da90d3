#ifndef QUOR_TOOLBAR_CONTACT_WINDOWS_H
#define QUOR_TOOLBAR_CONTACT_WINDOWS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "resources/resource_loader.h"
#include "settings/configuration.h"
#include "toolbar/contact_window.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon.h"

namespace quor {

// What the contact windows need of the rest of the interface.
class IContactRibbonDisplay {
 public:
  // Invalidates the contact ribbons: once for any number of requests until they have asked again.
  virtual void InvalidateContactRibbons() noexcept = 0;
  // Has CContactWindows::Refresh called from the message loop; false when that cannot be had.
  virtual bool PostRefresh() noexcept = 0;

 protected:
  ~IContactRibbonDisplay() = default;
};

// The telephone in the windows of open contacts, any number at once, each followed until it closes.
// Before version 12 of Outlook each has a command bar of its own. From then on contact windows have
// a ribbon, which asks for what it shows.
class CContactWindows final : public IContactRibbon, private IContactWindowHost {
 public:
  // All must outlive the windows. `place` is the record of the contact windows' command bar: read
  // for each new one, and written when one closes.
  CContactWindows(const IFaceSource& source, IContactWindowActions& actions,
                  IContactRibbonDisplay& display, const CResourceLoader& resources,
                  ToolBarRecord& place, IEventOwner& owner, CDiagnosticLog& log) noexcept;
  ~CContactWindows() { CloseAll(); }
  CContactWindows(const CContactWindows&) = delete;
  CContactWindows& operator=(const CContactWindows&) = delete;

  // For every inspector that Outlook opens; those of other items are ignored. Failures are logged.
  void Open(const CInspector& inspector, int32_t appVersion) noexcept;

  // Windows whose contact has changed show it again.
  void Refresh() noexcept;
  // Captions, enabled flags and numbers of every window's command bar.
  void Redraw() noexcept;
  // There is no base.
  void Disable() noexcept;
  // Where the bar stands that was opened last, for a file that is written before the windows close.
  void SavePlace() noexcept;
  // Takes the command bars away and lets go of everything.
  void CloseAll() noexcept;

  // IContactRibbon: read from the contact at each call, since the user may be changing it.
  std::wstring NumberOf(IDispatch* inspector, int telNumberType) override;
  ContactNumber PickedNumber(IDispatch* inspector) override;
  void DialContact(IDispatch* inspector, int telNumberType) override;
  bool IsContactWindow(IDispatch* window) override;
  void ClickLine(IDispatch* inspector, uint8_t lineType) override;

 private:
  // IContactWindowHost
  CControlFaces Faces() const override { return m_source.Faces(); }
  void InvalidateRibbon() noexcept override { m_display.InvalidateContactRibbons(); }
  void RequestRefresh() noexcept override;
  void OnClosed(const CContactWindow& window) noexcept override;

  using WindowPtr = std::shared_ptr<CContactWindow>;
  // Null when the inspector cannot be followed.
  WindowPtr OpenWindow(const CInspector& inspector, unsigned number);
  WindowPtr FindWindow(IDispatch* inspector) const;
  // Follows a window that was open before the add-in came.
  WindowPtr WindowOf(IDispatch* inspector);
  template <typename Act>
  void ForEach(Act act) noexcept;

  const IFaceSource& m_source;
  IContactWindowActions& m_actions;
  IContactRibbonDisplay& m_display;
  ToolBarRecord& m_place;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  CPictureLoader m_pictures;
  std::vector<WindowPtr> m_windows;
  unsigned m_lastNumber = 0;
  bool m_withPictures = false;
  bool m_refreshPosted = false;
};

}  // namespace quor

#endif
