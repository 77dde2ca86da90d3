#ifndef QUOR_ADDIN_ADDIN_H
#define QUOR_ADDIN_ADDIN_H

#include "addin/caller_directory.h"
#include "addin/interface_language.h"
#include "addin/message_window.h"
#include "addin/outlook_session.h"
#include "addin/session_clock.h"
#include "addin/slice_clock.h"
#include "addin/tick_clock.h"
#include "addin/user_interface.h"
#include "com/com_object.h"
#include "com/type_info_dispatch.h"
#include "contacts/contact_folders.h"
#include "contacts/outlook_contact_directory.h"
#include "contacts/phone_number_index.h"
#include "device/device_link.h"
#include "device/event_objects.h"
#include "device/request_handlers.h"
#include "device/tel_ctrl.h"
#include "device/usbxpress_library.h"
#include "dialogs/pop_ups.h"
#include "dialogs/user_dialogs.h"
#include "journal/call_tracker.h"
#include "journal/journal.h"
#include "module/diagnostic_log.h"
#include "module/log_file.h"
#include "module/module.h"
#include "module/quor_telephone_toolbar.h"
#include "resources/resource_loader.h"
#include "settings/configuration_file.h"
#include "settings/settings.h"
#include "settings/system_language.h"
#include "telephone/telephone.h"
#include "toolbar/telephone_controls.h"

namespace quor {

// The COM object that Outlook loads, and the composition root. It owns one of each collaborator and
// passes on the events of Outlook, the hidden window and the timers. It contains only the order of
// start-up and shutdown.
class CAddin final
    : public CComObject<CDispatchPart<IDTExtensibility2>, CDispatchPart<IRibbonExtensibility>,
                        CDispatchPart<ITelephoneAddin>>,
      private IEventOwner,
      private IWindowHandler,
      private IOutlookEvents,
      private IContactScanHost,
      private IAnswerHandler,
      private IListObserver,
      private IAboutSource {
 public:
  // For the class table: creates the object with its hidden window; fails if the window fails.
  static HRESULT Create(IUnknown* outer, REFIID iid, void** object);

  // IDTExtensibility2
  STDMETHODIMP OnConnection(IDispatch* application, ext_ConnectMode mode, IDispatch* instance,
                            SAFEARRAY** custom) override;
  STDMETHODIMP OnDisconnection(ext_DisconnectMode mode, SAFEARRAY** custom) override;
  STDMETHODIMP OnAddInsUpdate(SAFEARRAY** custom) override;
  STDMETHODIMP OnStartupComplete(SAFEARRAY** custom) override;
  STDMETHODIMP OnBeginShutdown(SAFEARRAY** custom) override;

  // IRibbonExtensibility
  STDMETHODIMP GetCustomUI(BSTR ribbonId, BSTR* document) override;

  // ITelephoneAddin: the ribbon's callbacks (addin_ribbon.cpp). Before OnConnection has finished,
  // and after it failed, they return default values.
  STDMETHODIMP RibbonLoadMain(IDispatch* ribbon) override;
  STDMETHODIMP RibbonLoadContact(IDispatch* ribbon) override;
  STDMETHODIMP GetLabel(IDispatch* control, BSTR* label) override;
  STDMETHODIMP GetEnabled(IDispatch* control, VARIANT_BOOL* enabled) override;
  STDMETHODIMP GetVisible(IDispatch* control, VARIANT_BOOL* visible) override;
  STDMETHODIMP GetImage(IDispatch* control, IDispatch** picture) override;
  STDMETHODIMP GetItemCount(IDispatch* control, long* count) override;
  STDMETHODIMP GetItemLabel(IDispatch* control, long index, BSTR* label) override;
  STDMETHODIMP GetTextComboBox(IDispatch* control, BSTR* text) override;
  STDMETHODIMP ChangeComboBox(IDispatch* control, BSTR text) override;
  STDMETHODIMP Line1Clicked(IDispatch* control) override;
  STDMETHODIMP Line2Clicked(IDispatch* control) override;
  STDMETHODIMP CellClicked(IDispatch* control) override;
  STDMETHODIMP CallerListClicked(IDispatch* control) override;
  STDMETHODIMP SpeedDialClicked(IDispatch* control) override;
  STDMETHODIMP OptionsClicked(IDispatch* control) override;
  STDMETHODIMP ContactDialNClicked(IDispatch* control) override;
  STDMETHODIMP ContactLine1Clicked(IDispatch* control) override;
  STDMETHODIMP ContactLine2Clicked(IDispatch* control) override;

  // For the class table: the options page of the running add-in; E_FAIL if there is none.
  static HRESULT CreateOptionsPage(IUnknown* outer, REFIID iid, void** object);

 private:
  CAddin();
  ~CAddin() override;
  HRESULT FinalConstruct() noexcept;
  void FinalRelease() noexcept;
  void* FindInterface(REFIID iid) noexcept override;

  // IEventOwner
  IUnknown& Identity() noexcept override { return static_cast<IDTExtensibility2&>(*this); }
  bool IsShuttingDown() const noexcept override { return m_disconnected || m_quitting; }

  HRESULT LoadRibbon(IDispatch* ribbon, RibbonWindow window);
  HRESULT RibbonClicked(IDispatch* control);
  HRESULT CreateOptionsPage(REFIID iid, void** object);

  // The start-up sequence (addin_startup.cpp). S_FALSE leaves the add-in loaded but idle.
  // `connection` is the number of this connection.
  HRESULT Start(IDispatch* application, unsigned connection);
  bool IsStartStopped(unsigned connection) const noexcept;
  void LoadConfiguration();
  HRESULT ConnectApplication();
  bool ConnectDeletedItems();
  bool StartController();
  HRESULT OnNewMainExplorer();
  bool CreateMainToolbar(const char* failure);
  HRESULT FinishStart(unsigned connection);
  // Whether the main window has closed, which is then logged.
  bool IsExplorerClosed() noexcept;
  // Releases what a failed start has acquired.
  void GiveUpStart(HRESULT result) noexcept;
  // Whether OnConnection completed; logs if it did not.
  bool HasFinished() noexcept;

  // The shutdown sequences (addin_shutdown.cpp).
  void Disconnect(ext_DisconnectMode mode);
  void Quit();
  void ReleaseOutlook(ext_DisconnectMode mode) noexcept;
  void ReleaseExplorer() noexcept;
  void StopScanWithLastExplorer() noexcept;
  void DisconnectEvents() noexcept;

  // IWindowHandler (addin_events.cpp)
  void OnDeviceEvent(DeviceEvent event, uint8_t lineType) override;
  void OnRequest(WindowRequest request, uint32_t parameter) override;
  void OnTimer(UINT_PTR timer) override;
  void BuildContacts();
  void WriteJournal();
  void EndCalls();

  // IOutlookEvents (addin_events.cpp)
  void OnNewExplorer(IDispatch* explorer) override;
  void OnNewInspector(IDispatch* inspector) override;
  void OnQuit() override;
  void OnOptionsPagesAdd(IDispatch* pages) override;
  void OnSelectionChange() override;
  void OnFolderSwitch() override;
  void OnCloseExplorer() override;
  void OnDeleteItemAdd(IDispatch* item) override;
  void OnDeleteFolderAdd(IDispatch* folder) override;
  void OnDeleteFolderRemove() override;

  // IContactScanHost
  bool MustStop() noexcept override { return IsShuttingDown() || m_stopRequested; }
  bool IsSliceOver() noexcept override { return m_sliceClock.IsOver(); }
  void ShowLoading() noexcept override { m_popUps.ShowLoading(); }
  bool PostCloseLoading() noexcept override;

  // IAnswerHandler: the caller window's button
  void OnAnswer(int slot) override { m_telephone.Lines().AnswerUSB(slot); }

  // IListObserver
  void OnListsChanged() noexcept override { m_ui.OnListsChanged(); }

  // IAboutSource
  void Describe(AboutFacts& facts) const override;

  CLogFile m_logFile;
  CDiagnosticLog m_log{m_logFile};
  CTickClock m_clock;
  CSessionClock m_sessionClock{m_clock};
  CSliceClock m_sliceClock;
  CLocalClock m_localClock;
  CEventObjects m_eventObjects;
  CTelCtrl m_telCtrl;
  CConfigurationFile m_configurationFile{m_log};
  CSystemLanguage m_systemLanguage;
  CSettings m_settings;
  CResourceLoader m_resources{ModuleInstance()};
  CInterfaceLanguage m_language{m_resources, m_log};
  CMessageWindow m_window;

  DeviceRecords m_records;
  CUsbXpressLibrary m_usb;
  CDeviceLink m_link;

  COutlookSession m_session;
  CTrackedFolders m_trackedFolders;
  COutlookContactDirectory m_contacts;
  CPhoneNumberIndex m_index;
  CContactFolders m_folders;
  CCallerDirectory m_callers;
  CJournal m_journal;
  CCallTracker m_calls;

  CPopUps m_popUps;
  // The user interface keeps references to the next three and uses none before they exist.
  CUserInterface m_ui;
  CTelephoneControls m_controls;
  CUserDialogs m_dialogs;
  CTelephone m_telephone;
  CRequestHandlers m_requests;

  // The running add-in, for an options page that Outlook creates.
  static CAddin* s_addin;

  unsigned m_connection = 0;  // changes with each OnConnection
  bool m_starting = false;    // OnConnection is on the stack
  bool m_explorerClosed = false;
  bool m_finished = false;  // OnConnection completed
  bool m_disconnected = false;
  bool m_quitting = false;
  bool m_buildDue = false;       // the next tick of the deferred timer starts reading the contacts
  bool m_stopRequested = false;  // of the scan, for the rest of the session
};

}  // namespace quor

#endif
