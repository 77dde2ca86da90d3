#ifndef QUOR_ADDIN_OUTLOOK_SESSION_H
#define QUOR_ADDIN_OUTLOOK_SESSION_H

#include <cstdint>
#include <map>
#include <string>

#include "com/event_connection.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// What Outlook tells the add-in. Called inside the sinks' boundary: throwing is allowed.
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

// The add-in's hold on Outlook: the application, the main explorer, and the connections to their
// events. Connecting goes step by step in the order of the declarations; each step logs its own
// failure. A failed object-model call throws _com_error.
class COutlookSession {
 public:
  // All must outlive the session; `owner` is held while an event is handled.
  COutlookSession(IOutlookEvents& events, IEventOwner& owner, CDiagnosticLog& log) noexcept;
  COutlookSession(const COutlookSession&) = delete;
  COutlookSession& operator=(const COutlookSession&) = delete;

  // Takes hold of the application and reads its major version. E_NOINTERFACE is thrown when the
  // object is no application.
  void Attach(IDispatch* application);
  bool ConnectInspectors();
  // Also finds the first explorer; false when there is none.
  bool ConnectExplorers();
  // The failure is Outlook's own.
  HRESULT ConnectApplication();
  HRESULT ConnectExplorer();
  // Reads the names of the stores, each one that cannot be read logged and skipped, and where
  // deleted items go.
  void ReadStores();
  bool ConnectDeletedItems();

  // The main explorer's events and the explorer itself: Outlook up to 2007 does not end while an
  // explorer is held.
  void DisconnectExplorer() noexcept;
  // The collections and folders with their events: what is left after a failed start are the
  // application and the explorer with theirs.
  void DisconnectCollections() noexcept;
  // All connections but the explorer's.
  void Disconnect() noexcept;
  // All connections, the explorer and the application.
  void Release() noexcept;

  // Outlook's major version; 0 until known.
  int32_t AppVersion() const noexcept { return m_appVersion; }
  const COutlookApplication& Application() const noexcept { return m_application; }
  const CExplorer& MainExplorer() const noexcept { return m_explorer; }
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
