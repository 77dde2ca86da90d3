#ifndef QUOR_WORKBENCH_OFFICE_FOLDER_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_FOLDER_OBJECTS_H

#include <string>

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

  FolderNode* m_node;
};

// _Folders: the subfolders of a folder, or without a folder the stores' top folders. Each read of
// the property creates an object with its own cursor.
class CFolders final : public CCollection {
 public:
  CFolders(CSession& session, FolderNode* node);

  std::string ObjectName() const override;
  void Forget() noexcept { m_gone = true; }

 protected:
  CValue Parent() override;
  size_t Size() override;
  CValue At(size_t position) override;
  std::wstring NameAt(size_t position) override { return NodeAt(position).name; }
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();
  FolderNode& NodeAt(size_t position);

  FolderNode* m_node;  // null: the stores
  bool m_gone = false;
};

// _Items. Each read of the property creates an object with its own cursor and order.
class CItems final : public CCollection {
 public:
  CItems(CSession& session, FolderNode& node);

  std::string ObjectName() const override;
  void Forget() noexcept { m_node = nullptr; }

 protected:
  CValue Parent() override;
  size_t Size() override { return Node().items.size(); }
  CValue At(size_t position) override;
  std::wstring NameAt(size_t position) override;
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();
  FolderNode& Node() const;

  FolderNode* m_node;
};

}  // namespace quor::workbench

#endif
