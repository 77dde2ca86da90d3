#ifndef QUOR_ADDIN_USER_INTERFACE_H
#define QUOR_ADDIN_USER_INTERFACE_H

#include <string>

#include "addin/outlook_session.h"
#include "dialogs/user_dialogs.h"
#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"
#include "settings/settings.h"
#include "telephone/telephone.h"
#include "toolbar/telephone_controls.h"
#include "toolbar/user_actions.h"

namespace quor {

// Connects the controls with the telephone: provides their faces and fills their lists. Connects
// the user's actions with Outlook's windows and our dialogs.
class CUserInterface final : public IFaceSource, private IActionWindows {
 public:
  // All must outlive the user interface.
  CUserInterface(CTelephone& telephone, CTelephoneControls& controls, COutlookSession& session,
                 CSettings& settings, CUserDialogs& dialogs, const CResourceLoader& resources,
                 CDiagnosticLog& log) noexcept;

  IToolbarActions& Actions() noexcept { return m_actions; }

  // Fills the menus and the dial box from the saved lists.
  void FillToolbar();
  // Shows the lists that the user has edited in the file.
  void OnListsChanged() noexcept;

  void OnFolderSwitch();
  // Offers the selected contact's numbers in the dial box.
  void FollowSelection();

  // IFaceSource
  CControlFaces Faces() const override;
  std::wstring DialText() const override { return m_telephone.Dialler().DialText(); }

 private:
  // IActionWindows
  SelectedContact FindSelectedContact() override;
  void ShowWaitingNumber() override { m_controls.Ribbon().InvalidateOnce(); }
  void EditSpeedDial(size_t index, const SpeedDialEntry& entry,
                     const SpeedDialEntry& offered) override {
    m_dialogs.EditSpeedDial(index, entry, offered);
  }
  void EraseSpeedDial(size_t index, const SpeedDialEntry& entry) override {
    m_dialogs.EraseSpeedDial(index, entry);
  }
  void OpenOptions() override { m_dialogs.OpenOptions(); }

  CTelephone& m_telephone;
  CTelephoneControls& m_controls;
  COutlookSession& m_session;
  CSettings& m_settings;
  CUserDialogs& m_dialogs;
  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;
  CUserActions m_actions;
};

}  // namespace quor

#endif
