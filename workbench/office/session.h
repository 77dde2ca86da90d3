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

// What shows Outlook to the user: supplies the windows and the command bars, and hears what
// changed. The workbench's user interface implements it; without one there are no windows and no
// command bars. Must outlive the session.
class IOutlookFace {
 public:
  // The CommandBars object of a window, the same one each time; null: the property answers nothing.
  virtual IDispatch* CommandBarsOf(CExplorer&) { return nullptr; }
  virtual IDispatch* CommandBarsOf(CInspector&) { return nullptr; }
  // For IOleWindow; null while there is no window.
  virtual HWND WindowOf(CExplorer&) { return nullptr; }
  virtual HWND WindowOf(CInspector&) { return nullptr; }
  // After NewExplorer or NewInspector was raised and before the first Activate.
  virtual void OnShown(CExplorer&) {}
  virtual void OnShown(CInspector&) {}
  // After Close was raised; the object stays valid while somebody holds it.
  virtual void OnClosed(CExplorer&) {}
  virtual void OnClosed(CInspector&) {}
  virtual void OnChanged() {}  // folders, items, selection: draw again

 protected:
  ~IOutlookFace() = default;
};

// For sessions without windows.
class CNoFace final : public IOutlookFace {};

struct SessionOptions {
  int version = 16;                 // 9 to 16
  int itemChangeRepeats = 1;        // ItemChange so many times for one edit
  bool itemChangeAfterAdd = false;  // ItemChange after ItemAdd for a new item
};

// From so many items on, an addition or a removal in one go raises no item events.
inline constexpr size_t kBulkItems = 16;

// What the objects of one Outlook process share: the stores, the windows, the events that follow
// from a change. The objects change things only through here, so that a change made by the add-in
// and one made by the user look the same to the sinks.
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

  // The one live object for a folder or an item, made on demand; or another one each time.
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
  void DeleteItems(const std::vector<StoredItemPtr>& items);  // to Deleted Items, or for good
  FolderNode& AddFolder(FolderNode& parent, const std::wstring& name, ItemType type);
  void RenameFolder(FolderNode& folder, const std::wstring& name);
  void MoveFolder(FolderNode& folder, FolderNode& parent);
  void DeleteFolder(FolderNode& folder);

  // Windows, in the order in which they were opened; the last activated one is active.
  std::vector<CModelPtr<CExplorer>>& ExplorerWindows() noexcept { return m_explorerWindows; }
  std::vector<CModelPtr<CInspector>>& InspectorWindows() noexcept { return m_inspectorWindows; }
  CModelPtr<CExplorer> OpenExplorer(FolderNode& folder);  // raises NewExplorer
  void ShowExplorer(CExplorer& explorer);                 // window, then Activate
  void CloseExplorer(CExplorer& explorer);                // raises Close
  // The inspector of an item, a new one unless it is open already. Joins the collection when shown.
  CModelPtr<CInspector> InspectorFor(CItem& item);
  // Open on the item, NewInspector, window, Activate. False if a sink cancelled.
  bool ShowInspector(CInspector& inspector);
  bool CloseInspector(CInspector& inspector);  // false if a sink cancelled
  // The window moves on to another item: Close of the one, Open of the other, Activate. False if a
  // sink cancelled.
  bool MoveInspector(CInspector& inspector, CItem& next);
  void ActivateWindow(CExplorer& explorer);
  void ActivateWindow(CInspector& inspector);
  CModelPtr<CExplorer> ActiveExplorer() const;
  CModelPtr<CInspector> ActiveInspector() const;
  bool IsInspectorActive() const noexcept { return m_inspectorActive; }

 private:
  void RaiseItemEvent(FolderNode& folder, DISPID event, const StoredItemPtr& item);
  void FireItemEvent(FolderNode& folder, DISPID event, const StoredItemPtr& item);
  void RaiseItemAdd(FolderNode& folder, const StoredItemPtr& item);
  void RaiseItemRemove(FolderNode& folder);
  void RaiseFolderEvent(FolderNode& parent, DISPID event, FolderNode* folder);
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
