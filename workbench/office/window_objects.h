#ifndef QUOR_WORKBENCH_OFFICE_WINDOW_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_WINDOW_OBJECTS_H

#include <string>
#include <vector>

#include "workbench/office/item_objects.h"
#include "workbench/office/outlook_object.h"

namespace quor::workbench {

// Common members of explorer and inspector.
class CWindowObject : public COutlookObject, public IOleWindow {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return COutlookObject::QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return AddOutside(); }
  STDMETHODIMP_(ULONG) Release() override { return ReleaseOutside(); }
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  bool IsOpen() const noexcept { return m_open; }
  virtual void SetClosed() noexcept { m_open = false; }
  virtual bool IsExplorer() const noexcept = 0;
  HWND Window() { return Session().Face().WindowOf(*this); }
  virtual std::wstring CaptionText() const = 0;
  void RaiseActivate(bool active) { Fire(active ? L"Activate" : L"Deactivate"); }

 protected:
  CWindowObject(CSession& session, const CMemberTable& members, ObjectClass objectClass);

  static const CMemberTable& WindowMembers();
  void RequireAlive() const override;  // throws a CModelError once closed
  void* OtherInterface(REFIID iid) override;

 private:
  bool m_open = true;
};

class CExplorer final : public CWindowObject {
 public:
  CExplorer(CSession& session, FolderNode& folder);

  std::string ObjectName() const override;
  bool IsExplorer() const noexcept override { return true; }
  std::wstring CaptionText() const override;
  void SetClosed() noexcept override;

  FolderNode& Folder() const noexcept { return *m_folder; }
  const std::vector<StoredItemPtr>& SelectedItems() const noexcept { return m_selected; }
  // Raises BeforeFolderSwitch, FolderSwitch and, for the first item selected, SelectionChange.
  // False if a sink cancelled. Does nothing if the folder is already shown.
  bool SwitchFolder(FolderNode& folder);
  void LeaveFolder(FolderNode& instead);  // the folder shown is being deleted; cannot be cancelled
  void Select(std::vector<StoredItemPtr> items);  // SelectionChange
  void Deselect(const StoredItemPtr& item);       // the item left the folder shown

 private:
  static const CMemberTable& Members();

  void ShowFolder(FolderNode& folder);

  FolderNode* m_folder;
  std::vector<StoredItemPtr> m_selected;
};

class CInspector final : public CWindowObject {
 public:
  CInspector(CSession& session, CItem& item);

  std::string ObjectName() const override { return m_item ? m_item->ObjectName() : "closed"; }
  bool IsExplorer() const noexcept override { return false; }
  std::wstring CaptionText() const override;
  void SetClosed() noexcept override;

  CItem* Item() const noexcept { return m_item.get(); }  // null after closing
  bool IsShown() const noexcept { return m_shown; }
  void SetShown() noexcept { m_shown = true; }
  void SetItem(CItem& item) { m_item = CModelPtr<CItem>(&item); }

 protected:
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  CModelPtr<CItem> m_item;
  bool m_shown = false;
};

// The selection at the time of the property read.
class CSelection final : public CCollection {
 public:
  CSelection(CSession& session, CExplorer& explorer);

 protected:
  CValue Parent() override { return {m_explorer.get()}; }
  size_t Size() override { return m_items.size(); }
  CValue At(size_t position) override;
  std::wstring NameAt(size_t position) override;
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  CModelPtr<CExplorer> m_explorer;
  std::vector<StoredItemPtr> m_items;
};

class CExplorers final : public CCollection {
 public:
  explicit CExplorers(CSession& session);

 protected:
  size_t Size() override { return Session().ExplorerWindows().size(); }
  CValue At(size_t position) override;
  std::wstring NameAt(size_t position) override;

 private:
  static const CMemberTable& Members();
};

class CInspectors final : public CCollection {
 public:
  explicit CInspectors(CSession& session);

 protected:
  size_t Size() override { return Session().InspectorWindows().size(); }
  CValue At(size_t position) override;
  std::wstring NameAt(size_t position) override;

 private:
  static const CMemberTable& Members();
};

}  // namespace quor::workbench

#endif
