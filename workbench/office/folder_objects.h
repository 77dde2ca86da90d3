#ifndef QUOR_WORKBENCH_OFFICE_FOLDER_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_FOLDER_OBJECTS_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "workbench/office/outlook_object.h"

namespace quor::workbench {

// MAPIFolder. Its members fail after the folder was deleted.
class CFolder final : public COutlookObject {
 public:
  CFolder(CSession& session, FolderNode& node);

  std::string ObjectName() const override;
  FolderNode& Node() const;  // throws a CModelError after the folder was deleted
  void Forget() noexcept { m_node = nullptr; }

 protected:
  CValue Parent() override;
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  long DefaultItemType() { return static_cast<long>(Node().itemType); }
  CValue EntryId();
  CModelPtr<CFolders> Folders();
  CModelPtr<CItems> Items();
  CValue Name();
  void SetName(const CArguments& arguments) { Session().RenameFolder(Node(), arguments.Text(0)); }
  CValue StoreId() { return CValue(Node().store->storeId); }
  void Delete() { Session().DeleteFolder(Node()); }
  void MoveTo(const CArguments& arguments);

  void CheckAnswers(Store::Refusal question) const;

  FolderNode* m_node;
};

// _Folders: the subfolders of a folder, or without a folder the stores' top folders. Each read of
// the property creates an object with its own cursor.
class CFolders final : public COutlookObject {
 public:
  CFolders(CSession& session, FolderNode* node);

  std::string ObjectName() const override;
  void Forget() noexcept { m_gone = true; }

 protected:
  CValue Parent() override;
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  size_t Size();
  CModelPtr<CFolder> At(size_t position);
  long Count() { return static_cast<long>(Size()); }
  CModelPtr<CFolder> Item(const CArguments& arguments);
  CModelPtr<CFolder> Add(const CArguments& arguments);
  CModelPtr<CFolder> GetFirst();
  CModelPtr<CFolder> GetLast();
  CModelPtr<CFolder> GetNext();
  CModelPtr<CFolder> GetPrevious();
  void Remove(const CArguments& arguments);
  FolderNode& NodeAt(size_t position);

  FolderNode* m_node;  // null: the stores
  bool m_gone = false;
  CCursor m_cursor;
};

// _Items. Each read of the property creates an object with its own cursor and order.
class CItems final : public COutlookObject {
 public:
  CItems(CSession& session, FolderNode& node);

  std::string ObjectName() const override;
  void Forget() noexcept { m_node = nullptr; }

 protected:
  CValue Parent() override;
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  FolderNode& Node() const;
  CModelPtr<CItem> At(size_t position);
  long Count() { return static_cast<long>(Node().items.size()); }
  CModelPtr<CItem> Item(const CArguments& arguments);
  CModelPtr<CItem> Add(const CArguments& arguments);
  CModelPtr<CItem> GetFirst();
  CModelPtr<CItem> GetLast();
  CModelPtr<CItem> GetNext();
  CModelPtr<CItem> GetPrevious();
  void Remove(const CArguments& arguments);

  FolderNode* m_node;
  CCursor m_cursor;
};

}  // namespace quor::workbench

#endif
