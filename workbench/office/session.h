#ifndef QUOR_WORKBENCH_OFFICE_SESSION_H
#define QUOR_WORKBENCH_OFFICE_SESSION_H

#include <functional>
#include <string>
#include <vector>

#include "workbench/office/automation.h"
#include "workbench/office/mailbox.h"

namespace quor::workbench {

class CApplication;
class CNameSpace;
class CExplorer;
class CExplorers;
class CInspector;
class CInspectors;
class CComAddIns;
class CWindowObject;

// Shows Outlook to the user: supplies windows and command bars, and is notified of changes.
// Implemented by the workbench's user interface; without one there are no windows and no command
// bars. Must outlive the session.
class IOutlookFace {
 public:
  // The window's CommandBars object, always the same one; null: the property is empty.
  virtual IDispatch* CommandBarsOf(CWindowObject&) { return nullptr; }
  // For IOleWindow; null if there is no window.
  virtual HWND WindowOf(CWindowObject&) { return nullptr; }
  // Called after NewExplorer or NewInspector is raised and before the first Activate.
  virtual void OnShown(CWindowObject&) {}
  // Called after Close is raised; the object stays valid while it is held.
  virtual void OnClosed(CWindowObject&) {}
  virtual void OnChanged() {}  // folders, items or the selection changed: redraw

 protected:
  ~IOutlookFace() = default;
};

// For sessions without windows.
class CNoFace final : public IOutlookFace {};

struct SessionOptions {
  int version = 16;  // 9 to 16
};

// Adding or removing this many items at once raises no item events.
inline constexpr size_t kBulkItems = 16;

// What the objects of one Outlook process share: the stores, the windows, the events for a change.
// Objects make changes only through this class, so that sinks cannot tell a change by the add-in
// from one by the user.
class CSession {
 public:
  CSession(CModel& model, const SessionOptions& options, IOutlookFace& face);
  ~CSession();
  CSession(const CSession&) = delete;
  CSession& operator=(const CSession&) = delete;

  CModel& Model() const noexcept { return m_model; }
  IOutlookFace& Face() const noexcept { return m_face; }
  CMailbox& Mailbox() noexcept { return m_mailbox; }
  int Version() const noexcept { return m_options.version; }
  std::wstring VersionText() const;  // "14.0.0.7000"

  CApplication& Application() const noexcept { return *m_application; }
  CNameSpace& NameSpace() const noexcept { return *m_nameSpace; }
  CExplorers& Explorers() const noexcept { return *m_explorers; }
  CInspectors& Inspectors() const noexcept { return *m_inspectors; }
  CComAddIns& ComAddIns() const noexcept { return *m_comAddIns; }

  // The one live object of a folder or item, created on demand; or, if so configured, a new one
  // each time.
  CModelPtr<CFolder> FolderObject(FolderNode& folder);
  CModelPtr<CItem> ItemObject(const StoredItemPtr& item);
  CModelPtr<CItem> NewItem(ItemType type, FolderNode& folder);  // not saved yet

  void DelayItemEvents(bool on) noexcept { m_delaysItemEvents = on; }
  void GiveSeveralObjects(bool on) noexcept { m_givesSeveralObjects = on; }

  // Changes, each with its events.
  void SaveNewItem(const StoredItemPtr& item, FolderNode& folder);
  void NoteItemChange(const StoredItemPtr& item);
  void AddItems(FolderNode& folder, const std::vector<StoredItemPtr>& items);
  void MoveItem(const StoredItemPtr& item, FolderNode& folder);
  void DeleteItems(const std::vector<StoredItemPtr>& items);  // to Deleted Items, or permanently
  FolderNode& AddFolder(FolderNode& parent, const std::wstring& name, ItemType type);
  void MoveFolder(FolderNode& folder, FolderNode& parent);
  void DeleteFolder(FolderNode& folder);

  // Windows in the order of opening; the last one activated is active.
  std::vector<CModelPtr<CExplorer>>& ExplorerWindows() noexcept { return m_explorerWindows; }
  std::vector<CModelPtr<CInspector>>& InspectorWindows() noexcept { return m_inspectorWindows; }
  CModelPtr<CExplorer> OpenExplorer(FolderNode& folder);  // raises NewExplorer
  void ShowExplorer(CExplorer& explorer);                 // window, then Activate
  void CloseExplorer(CExplorer& explorer);                // raises Close
  // The inspector of an item; a new one if none is open. It joins the collection when shown.
  CModelPtr<CInspector> InspectorFor(CItem& item);
  // Raises Open on the item and NewInspector, shows the window, raises Activate. False if a sink
  // cancelled.
  bool ShowInspector(CInspector& inspector);
  bool CloseInspector(CInspector& inspector);  // false if a sink cancelled
  // Moves the window to another item: Close of the first, Open of the second, Activate. False if a
  // sink cancelled.
  bool MoveInspector(CInspector& inspector, CItem& next);
  void ActivateWindow(CWindowObject& window);
  CModelPtr<CWindowObject> ActiveWindow() const;  // null: none is open
  CModelPtr<CExplorer> ActiveExplorer() const;
  CModelPtr<CInspector> ActiveInspector() const;

 private:
  void RaiseItemEvent(FolderNode& folder, const wchar_t* event, const StoredItemPtr& item);
  void FireItemEvent(FolderNode& folder, const wchar_t* event, const StoredItemPtr& item);
  void RaiseItemRemove(FolderNode& folder);
  void RaiseFolderEvent(FolderNode& parent, const wchar_t* event, FolderNode* folder);
  void LeaveFolder(const FolderNode& folder);

  CModel& m_model;
  IOutlookFace& m_face;
  const SessionOptions m_options;
  CMailbox m_mailbox;
  CModelPtr<CApplication> m_application;
  CModelPtr<CNameSpace> m_nameSpace;
  CModelPtr<CExplorers> m_explorers;
  CModelPtr<CInspectors> m_inspectors;
  CModelPtr<CComAddIns> m_comAddIns;
  std::vector<CModelPtr<CExplorer>> m_explorerWindows;
  std::vector<CModelPtr<CInspector>> m_inspectorWindows;
  bool m_inspectorActive = false;
  bool m_delaysItemEvents = false;
  bool m_givesSeveralObjects = false;
};

}  // namespace quor::workbench

#endif
