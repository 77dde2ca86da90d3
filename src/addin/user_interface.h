#ifndef QUOR_ADDIN_USER_INTERFACE_H
#define QUOR_ADDIN_USER_INTERFACE_H

#include <string>
#include <string_view>

#include "addin/outlook_session.h"
#include "device/request_handlers.h"
#include "dialogs/user_dialogs.h"
#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"
#include "settings/settings.h"
#include "telephone/telephone.h"
#include "toolbar/contact_windows.h"
#include "toolbar/main_toolbar.h"
#include "toolbar/user_actions.h"

namespace quor {

// The telephone's controls in Outlook's windows, wired to the telephone: its state is shown in
// them, and CUserActions applies what the user does there.
class CUserInterface final : public ITelephoneControls,
                             public ICallFromCellDisplay,
                             public IFaceSource,
                             private IContactRibbonDisplay,
                             private IActionWindows {
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

  // Shows the lists that the user has edited in the file.
  void OnListsChanged() noexcept;

  // IFaceSource
  CControlFaces Faces() const override;
  std::wstring DialText() const override { return m_telephone.Dialler().BoxText(); }

 private:
  // IContactRibbonDisplay
  void InvalidateContactRibbons() noexcept override { m_toolbar.Ribbon().InvalidateContactsOnce(); }
  bool PostRefresh() noexcept override;

  // IActionWindows
  SelectedContact FindSelectedContact() override;
  void ShowWaitingNumber() override { m_toolbar.Ribbon().InvalidateOnce(); }
  void EditSpeedDial(size_t index, const SpeedDialEntry& entry,
                     const SpeedDialEntry& offered) override {
    m_dialogs.EditSpeedDial(index, entry, offered);
  }
  void EraseSpeedDial(size_t index, const SpeedDialEntry& entry) override {
    m_dialogs.EraseSpeedDial(index, entry);
  }
  void OpenOptions() override { m_dialogs.OpenOptions(); }

  CTelephone& m_telephone;
  COutlookSession& m_session;
  CSettings& m_settings;
  CUserDialogs& m_dialogs;
  IMessageQueue& m_queue;
  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;
  CUserActions m_actions;
  CContactWindows m_contactWindows;
  CMainToolbar m_toolbar;
};

}  // namespace quor

#endif
