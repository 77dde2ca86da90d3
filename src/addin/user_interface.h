#ifndef QUOR_ADDIN_USER_INTERFACE_H
#define QUOR_ADDIN_USER_INTERFACE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "addin/outlook_session.h"
#include "device/request_handlers.h"
#include "dialogs/user_dialogs.h"
#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"
#include "settings/settings.h"
#include "telephone/telephone.h"
#include "toolbar/contact_windows.h"
#include "toolbar/main_toolbar.h"

namespace quor {

// The telephone's controls in Outlook's windows: shows the telephone's state and passes clicks and
// numbers to it.
class CUserInterface final : public ITelephoneControls,
                             public ICallFromCellDisplay,
                             public IToolbarActions,
                             public IFaceSource,
                             public IListObserver,
                             private IContactRibbonDisplay {
 public:
  // All must outlive the user interface.
  CUserInterface(CTelephone& telephone, COutlookSession& session, CSettings& settings,
                 CUserDialogs& dialogs, IMessageQueue& queue, const CResourceLoader& resources,
                 IEventOwner& owner, CDiagnosticLog& log) noexcept;

  HRESULT CreateMainToolbar();
  // Throws _com_error if the dial box fails.
  void ClearDialList() { m_toolbar.ClearDialList(); }
  // Fills the menus and the dial box from the saved lists.
  void FillToolbar();
  CRibbon& Ribbon() noexcept { return m_toolbar.Ribbon(); }

  // Handles WindowRequest::Refresh.
  void Refresh() noexcept;

  void OpenContactWindow(const CInspector& inspector) noexcept;
  void OnFolderSwitch();
  // Offers the selected contact's numbers in the dial box.
  void FollowSelection();

  // Shutdown: call in this order; DeleteMainToolbar only if the user removed the add-in. Stores the
  // bar's position in the configuration.
  void DisconnectMainToolbar() noexcept;
  void DeleteMainToolbar() { m_toolbar.DeleteBar(); }
  void ReleaseMainToolbar() noexcept;
  void ReleaseRibbon() noexcept { m_toolbar.ReleaseRibbon(); }
  void CloseContactWindows() noexcept { m_contactWindows.CloseAll(); }
  // Stores the bars' positions, for a save before the bars are removed.
  void SavePlaces() noexcept;

  // ITelephoneControls, and ICallFromCellDisplay's PutCallFromCellButton
  void SetToolBarState() override;
  void DisableControls() override;
  void RedrawLineButtons() override;
  void PutCallFromCellButton() override { m_toolbar.PutCallFromCellButton(); }
  void DisableOtherCellItems(int cell) override { m_toolbar.DisableOtherCellItems(cell); }
  void PutSpeedDialButton() override { m_toolbar.PutSpeedDialButton(); }
  void PutCallerList() override { m_toolbar.PutCallerList(); }
  void PutHistory() override { m_toolbar.PutHistory(); }
  void SetDialText(std::wstring_view text) override { m_toolbar.SetDialText(text); }

  // IToolbarActions
  void ClickLine(uint8_t lineType) override;
  void ClickCell(int cell) override;
  void ClickCaller(size_t entry) override;
  void ClickSpeedDial(SpeedDialAction action, size_t entry) override;
  void ClickOptions() override { m_dialogs.OpenOptions(); }
  void ChangeDialBox(std::wstring_view text, int listIndex) override;
  void StoreDialText(std::wstring_view text) override;
  bool PickNumber(std::wstring_view number) override;
  bool DialsAtOnce(uint8_t lineType) const override;
  bool DialOnLine(uint8_t lineType, std::wstring_view number) override;

  // IListObserver
  void OnListsChanged() noexcept override;

  // IFaceSource
  CControlFaces Faces() const override;
  std::wstring DialText() const override { return m_telephone.Dialler().BoxText(); }

 private:
  // IContactRibbonDisplay
  void InvalidateContactRibbons() noexcept override { m_toolbar.Ribbon().InvalidateContactsOnce(); }
  bool PostRefresh() noexcept override;

  void DialNumber(std::wstring_view number);

  SpeedDialEntry OfferedEntry();
  // The number to dial for a text of the dial box; nothing if no candidate has this label.
  std::optional<std::wstring> CandidateNumber(std::wstring_view text) const;

  CTelephone& m_telephone;
  COutlookSession& m_session;
  CSettings& m_settings;
  CUserDialogs& m_dialogs;
  IMessageQueue& m_queue;
  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;
  std::vector<DialCandidate> m_candidates;
  CContactWindows m_contactWindows;
  CMainToolbar m_toolbar;
};

}  // namespace quor

#endif
