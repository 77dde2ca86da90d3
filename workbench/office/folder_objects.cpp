#include "workbench/office/folder_objects.h"

#include "workbench/office/application_objects.h"
#include "workbench/office/item_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {

CFolder::CFolder(CSession& session, FolderNode& node)
    : COutlookObject(session, Members(), ObjectClass::Folder), m_node(&node) {
  node.objects.push_back(this);
}

const CMemberTable& CFolder::Members() {
  using Self = CFolder;
  static const CMemberTable table(
      "MAPIFolder", L"MAPIFolder", &CommonMembers(),
      {Get(L"DefaultItemType", [](Self& self) { return self.Node().itemType; }),
       Get(L"EntryID", [](Self& self) { return self.Node().entryId; }),
       Get(L"Folders",
           [](Self& self) { return MakeObject<CFolders>(self.Session(), &self.Node()); }),
       Get(L"Items", [](Self& self) { return MakeObject<CItems>(self.Session(), self.Node()); }),
       Get(L"Name", [](Self& self) { return self.Node().name; }),
       Get(L"StoreID", [](Self& self) { return self.Node().store->storeId; })});
  return table;
}

std::string CFolder::ObjectName() const {
  return m_node != nullptr ? Utf8FromWide(m_node->name) : std::string();
}

FolderNode& CFolder::Node() const {
  if (m_node == nullptr) throw CModelError(kObjectDeleted, "The folder has been deleted.");
  return *m_node;
}

void CFolder::OnGone() noexcept {
  if (m_node != nullptr) std::erase(m_node->objects, this);
  COutlookObject::OnGone();
}

CValue CFolder::Parent() {
  FolderNode* parent = Node().parent;
  if (parent == nullptr) return {&Session().NameSpace()};
  return {Session().FolderObject(*parent).get()};
}

CFolders::CFolders(CSession& session, FolderNode* node)
    : CCollection(session, Members(), ObjectClass::Folders), m_node(node) {
  if (m_node != nullptr) m_node->folderCollections.push_back(this);
}

const CMemberTable& CFolders::Members() {
  static const CMemberTable table("Folders", L"_Folders", &CursorMembers(), {}, {L"FoldersEvents"});
  return table;
}

std::string CFolders::ObjectName() const {
  if (m_gone) return {};
  return m_node != nullptr ? Utf8FromWide(m_node->name) : "stores";
}

void CFolders::OnGone() noexcept {
  if (!m_gone && m_node != nullptr) std::erase(m_node->folderCollections, this);
  COutlookObject::OnGone();
}

CValue CFolders::Parent() {
  if (m_gone) throw CModelError(kObjectDeleted);
  if (m_node == nullptr) return {&Session().NameSpace()};
  return {Session().FolderObject(*m_node).get()};
}

size_t CFolders::Size() {
  if (m_gone) throw CModelError(kObjectDeleted, "The folder has been deleted.");
  return m_node != nullptr ? m_node->folders.size() : Session().Mailbox().Stores().size();
}

FolderNode& CFolders::NodeAt(size_t position) {
  return m_node != nullptr ? *m_node->folders[position]
                           : *Session().Mailbox().Stores()[position]->top;
}

CValue CFolders::At(size_t position) {
  return {Session().FolderObject(NodeAt(position)).get()};
}

CItems::CItems(CSession& session, FolderNode& node)
    : CCollection(session, Members(), ObjectClass::Items), m_node(&node) {
  node.itemCollections.push_back(this);
}

const CMemberTable& CItems::Members() {
  static const CMemberTable table("Items", L"_Items", &CursorMembers(), {}, {L"ItemsEvents"});
  return table;
}

std::string CItems::ObjectName() const {
  return m_node != nullptr ? Utf8FromWide(m_node->name) : std::string();
}

FolderNode& CItems::Node() const {
  if (m_node == nullptr) throw CModelError(kObjectDeleted, "The folder has been deleted.");
  return *m_node;
}

void CItems::OnGone() noexcept {
  if (m_node != nullptr) std::erase(m_node->itemCollections, this);
  COutlookObject::OnGone();
}

CValue CItems::Parent() {
  return {Session().FolderObject(Node()).get()};
}

CValue CItems::At(size_t position) {
  return {Session().ItemObject(Node().items[position]).get()};
}

std::wstring CItems::NameAt(size_t position) {
  return Node().items[position]->fields.Get(field::kSubject);
}

}  // namespace quor::workbench
