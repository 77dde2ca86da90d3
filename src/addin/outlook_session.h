#ifndef QUOR_ADDIN_OUTLOOK_SESSION_H
#define QUOR_ADDIN_OUTLOOK_SESSION_H

#include <cstdint>
#include <map>
#include <string>

#include "com/event_connection.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// Receives Outlook's events. Called inside the sinks' boundary: exceptions are allowed.
class IOutlookEvents {
 public:
  virtual void OnNewExplorer(IDispatch* explorer) = 0;
  virtual void OnNewInspector(IDispatch* inspector) = 0;
  virtual void OnQuit() = 0;
  virtual void OnOptionsPagesAdd(IDispatch* pages) = 0;
  virtual void OnSelectionChange() = 0;
  virtual void OnFolderSwitch() = 0;
  virtual void OnCloseExplorer() = 0;
  virtual void OnDeleteItemAdd(IDispatch* item) = 0;
  virtual void OnDeleteFolderAdd(IDispatch* folder) = 0;
  virtual void OnDeleteFolderRemove() = 0;

 protected:
  ~IOutlookEvents() = default;
};

// The add-in's references to Outlook: the application, the main explorer, and the connections to
// their events. Call the connection steps in the order of their declarations. Each logs its own
// failure; a failed object-model call throws _com_error.
class COutlookSession {
 public:
  // All must outlive the session; `owner` is held while an event is handled.
  COutlookSession(IOutlookEvents& events, IEventOwner& owner, CDiagnosticLog& log) noexcept;
  COutlookSession(const COutlookSession&) = delete;
  COutlookSession& operator=(const COutlookSession&) = delete;

  // Stores the application and reads its major version. Throws E_NOINTERFACE if the object is not
  // an application.
  void Attach(IDispatch* application);
  bool ConnectInspectors();
  // Also gets the first explorer; false if there is none.
  bool ConnectExplorers();
  // Returns Outlook's error.
  HRESULT ConnectApplication();
  HRESULT ConnectExplorer();
  // Reads the names of the stores and opens the Deleted Items folder. A store that cannot be read
  // is logged and skipped; any other failure is thrown.
  void ReadStores();
  bool ConnectDeletedItems();

  // Disconnects and releases the main explorer: Outlook up to version 2007 does not quit while an
  // explorer is held.
  void DisconnectExplorer() noexcept;
  // Disconnects and releases the collections and folders. After a failed start only the application
  // and the explorer remain connected.
  void DisconnectCollections() noexcept;
  // Ends all connections except the explorer's.
  void Disconnect() noexcept;
  // Ends all connections and releases the explorer and the application.
  void Release() noexcept;

  // Outlook's major version; 0 until it is known.
  int32_t AppVersion() const noexcept { return m_appVersion; }
  const COutlookApplication& Application() const noexcept { return m_application; }
  const CExplorer& MainExplorer() const noexcept { return m_explorer; }
  // The number of open main windows. Throws _com_error.
  int32_t CountExplorers() const;
  // Empty until the stores are read.
  const CFolder& DeletedItems() const noexcept { return m_deletedItems; }

 private:
  void OnExplorerEvent(DISPID event);
  void OnApplicationEvent(DISPID event, const CEventArguments& arguments);
  bool AdviseOrLog(CEventConnection& connection, const CDispatchObject& source, REFIID events,
                   EventHandler handler, const char* failure);

  IOutlookEvents& m_events;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  COutlookApplication m_application;
  CExplorer m_explorer;
  CFolder m_deletedItems;
  std::map<std::wstring, std::wstring> m_storeNames;  // entry ID -> name of each top-level folder
  int32_t m_appVersion = 0;

  CEventConnection m_inspectorsEvents;
  CEventConnection m_explorersEvents;
  CEventConnection m_applicationEvents;
  CEventConnection m_explorerEvents;
  CEventConnection m_deletedItemsEvents;
  CEventConnection m_deletedFoldersEvents;
};

}  // namespace quor

#endif
