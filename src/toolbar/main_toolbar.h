#ifndef QUOR_TOOLBAR_MAIN_TOOLBAR_H
#define QUOR_TOOLBAR_MAIN_TOOLBAR_H

#include <cstdint>
#include <string_view>

#include "outlook/object_model.h"
#include "toolbar/command_bar_toolbar.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon.h"

namespace quor {

// The telephone in Outlook's main window: a command bar before version 14, the ribbon from then on.
// Both read the same faces, so one redraw request serves either. A failed redraw is logged; only
// ClearDialList and DeleteBar throw.
class CMainToolbar {
 public:
  // All must outlive the toolbar.
  CMainToolbar(const IFaceSource& source, IToolbarActions& actions, IContactRibbon& contacts,
               IMessageQueue& queue, const CResourceLoader& resources, IEventOwner& owner,
               CDiagnosticLog& log) noexcept;
  CMainToolbar(const CMainToolbar&) = delete;
  CMainToolbar& operator=(const CMainToolbar&) = delete;

  // Creates the command bar if this Outlook version has command bars. Returns the failed
  // object-model call's error.
  HRESULT Create(const CExplorer& explorer, int32_t appVersion,
                 const ToolBarRecord& place) noexcept;
  CRibbon& Ribbon() noexcept { return m_ribbon; }

  void SetToolBarState() noexcept;
  // The same without a log line.
  void Redraw() noexcept;
  void DisableControls() noexcept;

  void PutHistory() noexcept;
  void RefreshDialList() noexcept;
  void PutCallFromCellButton() noexcept;
  void PutCallerList() noexcept;
  void PutSpeedDialButton() noexcept;
  void DisableOtherCellItems(int cell) noexcept;
  void SetDialText(std::wstring_view text) noexcept;

  // Throws _com_error if the dial box fails.
  void ClearDialList() { m_bar.ClearDialList(); }

  void SavePlace(ToolBarRecord& place) noexcept { m_bar.SavePlace(place); }
  // Disconnects the command bar's sinks.
  void Disconnect() noexcept { m_bar.Unadvise(); }
  // Deletes the command bar. Throws _com_error on failure.
  void DeleteBar() { m_bar.Delete(); }
  // Releases the command bar, its controls and their sinks.
  void ReleaseBar() noexcept { m_bar.Release(); }
  // Releases the ribbons and their pictures.
  void ReleaseRibbon() noexcept;

 private:
  CDiagnosticLog& m_log;
  const CResourceLoader& m_resources;
  CPictureLoader m_pictures;
  CCommandBarToolbar m_bar;
  CRibbon m_ribbon;
};

}  // namespace quor

#endif
