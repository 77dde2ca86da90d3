#ifndef QUOR_DIALOGS_USER_DIALOGS_H
#define QUOR_DIALOGS_USER_DIALOGS_H

#include "device/device_link.h"
#include "device/tel_ctrl.h"
#include "dialogs/about_dlg.h"
#include "dialogs/options_dialog.h"
#include "dialogs/speed_dial_erase.h"
#include "dialogs/speed_dial_regist.h"
#include "settings/settings.h"

namespace quor {

// The windows opened by the user: speed dial, options, about. His changes enter the configuration
// and are saved at once.
class CUserDialogs final : public IOptionsStore, private ISpeedDialStore, private IAboutActions {
 public:
  // All must outlive the dialogs.
  CUserDialogs(const DialogHost& host, CSettings& settings, ITelephoneControls& controls,
               IMessagePopup& messages, CTelCtrl& telCtrl, const CDeviceLink& link,
               const IAboutSource& about) noexcept;

  // Call when an Outlook window closes, because it may own one of the dialogs. They can be opened
  // again.
  void Destroy() noexcept;

  void EditSpeedDial(size_t index, const SpeedDialEntry& entry, const SpeedDialEntry& offered);
  void EraseSpeedDial(size_t index, const SpeedDialEntry& entry);
  void OpenOptions();

  // IOptionsStore
  OptionValues Load() override;
  OptionValues Reload() override;
  void Apply(const OptionValues& values) override;
  void ShowAbout(HWND owner) override;

 private:
  // ISpeedDialStore
  void SetEntry(size_t index, const SpeedDialEntry& entry) override;
  void EraseEntry(size_t index) override;

  // IAboutActions
  void SwitchLog(bool on) override;
  void OpenLogFolder() override;

  void KeepSpeedDial();

  CSettings& m_settings;
  ITelephoneControls& m_controls;
  CTelCtrl& m_telCtrl;
  const CDeviceLink& m_link;
  const IAboutSource& m_aboutSource;
  CSpeedDialRegist m_regist;
  CSpeedDialErase m_erase;
  COptionsDialog m_options;
  CAboutDlg m_about;
};

}  // namespace quor

#endif
