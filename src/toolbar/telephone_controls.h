#ifndef QUOR_TOOLBAR_TELEPHONE_CONTROLS_H
#define QUOR_TOOLBAR_TELEPHONE_CONTROLS_H

#include <cstdint>
#include <string_view>

#include "device/request_handlers.h"
#include "outlook/object_model.h"
#include "settings/configuration.h"
#include "telephone/collaborators.h"
#include "toolbar/command_bar_toolbar.h"
#include "toolbar/contact_windows.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon.h"

namespace quor {

// The telephone's controls in Outlook's windows. The main window has a command bar before version
// 14 and the ribbon from then on; contact windows have theirs. All read the same faces, so one
// redraw request serves any of them. A failed redraw is logged; only ClearDialList and DeleteBar
// throw.
class CTelephoneControls final : public ITelephoneControls,
                                 public ICallFromCellDisplay,
                                 private IContactRibbonDisplay {
 public:
  // All must outlive the controls. `configuration` keeps the positions of the command bars.
  CTelephoneControls(const IFaceSource& source, IToolbarActions& actions, IMessageQueue& queue,
                     Configuration& configuration, const CResourceLoader& resources,
                     IEventOwner& owner, CDiagnosticLog& log) noexcept;
  CTelephoneControls(const CTelephoneControls&) = delete;
  CTelephoneControls& operator=(const CTelephoneControls&) = delete;

  // Creates the main window's command bar if this Outlook version has command bars. Returns the
  // failed object-model call's error.
  HRESULT CreateBar(const CExplorer& explorer, int32_t appVersion) noexcept;
  CRibbon& Ribbon() noexcept { return m_ribbon; }
  CContactWindows& ContactWindows() noexcept { return m_contactWindows; }

  // ITelephoneControls, and ICallFromCellDisplay's PutCallFromCellButton
  void SetToolBarState() noexcept override;
  void DisableControls() noexcept override;
  void RedrawControls() noexcept override;
  void PutCallFromCellButton() noexcept override;
  void DisableOtherCellItems(int cell) noexcept override;
  void PutSpeedDialButton() noexcept override;
  void PutCallerList() noexcept override;
  void PutHistory() noexcept override;
  void SetDialText(std::wstring_view text) noexcept override;

  // As PutHistory, without its log line.
  void ShowDialList() noexcept;
  // Throws _com_error if the dial box fails.
  void ClearDialList() { m_bar.ClearDialList(); }
  // Handles WindowRequest::Refresh.
  void Refresh() noexcept;

  // Stores the positions of the command bars, for a save before they are removed.
  void SavePlaces() noexcept;

  // Shutdown, in this order; DeleteBar only if the user removed the add-in.

  // Stores the command bar's position and disconnects its sinks.
  void DisconnectBar() noexcept;
  // Throws _com_error on failure.
  void DeleteBar() { m_bar.Delete(); }
  // The same as DisconnectBar; then releases the command bar and its controls.
  void ReleaseBar() noexcept;
  // Releases the ribbons and their pictures.
  void ReleaseRibbon() noexcept;

 private:
  // IContactRibbonDisplay
  void InvalidateContactRibbons() noexcept override { m_ribbon.InvalidateContactsOnce(); }
  bool PostRefresh() noexcept override { return m_queue.PostRequest(WindowRequest::Refresh, 0); }

  IMessageQueue& m_queue;
  ToolBarRecord& m_place;
  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;
  CPictureLoader m_pictures;
  CContactWindows m_contactWindows;
  CCommandBarToolbar m_bar;
  CRibbon m_ribbon;
};

}  // namespace quor

#endif
