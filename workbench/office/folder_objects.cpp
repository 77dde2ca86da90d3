#include "workbench/office/folder_objects.h"

#include <algorithm>

#include "workbench/office/application_objects.h"
#include "workbench/office/item_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {
namespace {

// OlDefaultFolders and OlItemType number the same kinds differently; Folders.Add takes the former.
ItemType ItemTypeOfDefaultFolder(long olDefaultFolder, ItemType fallback) {
  switch (olDefaultFolder) {
    case 6:
      return ItemType::Mail;
    case 9:
      return ItemType::Appointment;
    case 10:
      return ItemType::Contact;
    case 11:
      return ItemType::Journal;
    case 12:
      return ItemType::Note;
    case 13:
      return ItemType::Task;
    default:
      return fallback;
  }
}

}  // namespace

CFolder::CFolder(CSession& session, FolderNode& node)
    : COutlookObject(session, Members(), ObjectClass::Folder), m_node(&node) {
  node.objects.push_back(this);
}

const CMemberTable& CFolder::Members() {
  static const CMemberTable table(
      "MAPIFolder", L"MAPIFolder", &CommonMembers(),
      {Get<&CFolder::DefaultItemType>(L"DefaultItemType"), Get<&CFolder::EntryId>(L"EntryID"),
       Get<&CFolder::Folders>(L"Folders"), Get<&CFolder::Items>(L"Items"),
       Get<&CFolder::Name>(L"Name"), Put<&CFolder::SetName>(L"Name"),
       Get<&CFolder::StoreId>(L"StoreID"), Method<&CFolder::Delete>(L"Delete"),
       Method<&CFolder::MoveTo>(L"MoveTo")});
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
  if (parent == nullptr) return CValue(&Session().NameSpace());
  return CValue(Session().FolderObject(*parent).get());
}

void CFolder::CheckAnswers(Store::Refusal question) const {
  const Store& store = *Node().store;
  if (Node().parent == nullptr && store.refusal == question) throw CModelError(store.refusalCode);
}

CValue CFolder::EntryId() {
  CheckAnswers(Store::Refusal::EntryId);
  return CValue(Node().entryId);
}

CModelPtr<CFolders> CFolder::Folders() {
  return MakeObject<CFolders>(Session(), &Node());
}

CModelPtr<CItems> CFolder::Items() {
  return MakeObject<CItems>(Session(), Node());
}

CValue CFolder::Name() {
  CheckAnswers(Store::Refusal::Name);
  return CValue(Node().name);
}

void CFolder::MoveTo(const CArguments& arguments) {
  CFolder* target = ObjectBehind<CFolder>(arguments.Object(0));
  if (target == nullptr) throw CModelError(E_INVALIDARG);
  Session().MoveFolder(Node(), target->Node());
}

CFolders::CFolders(CSession& session, FolderNode* node)
    : COutlookObject(session, Members(), ObjectClass::Folders), m_node(node) {
  if (m_node != nullptr) m_node->folderCollections.push_back(this);
}

const CMemberTable& CFolders::Members() {
  static const CMemberTable table(
      "Folders", L"_Folders", &CommonMembers(),
      {Get<&CFolders::Count>(L"Count"), Method<&CFolders::Item>(L"Item"),
       Method<&CFolders::Add>(L"Add", 1), Method<&CFolders::GetFirst>(L"GetFirst"),
       Method<&CFolders::GetLast>(L"GetLast"), Method<&CFolders::GetNext>(L"GetNext"),
       Method<&CFolders::GetPrevious>(L"GetPrevious"), Method<&CFolders::Remove>(L"Remove")},
      {L"FoldersEvents"});
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
  if (m_node == nullptr) return CValue(&Session().NameSpace());
  return CValue(Session().FolderObject(*m_node).get());
}

size_t CFolders::Size() {
  if (m_gone) throw CModelError(kObjectDeleted, "The folder has been deleted.");
  return m_node != nullptr ? m_node->folders.size() : Session().Mailbox().Stores().size();
}

FolderNode& CFolders::NodeAt(size_t position) {
  return m_node != nullptr ? *m_node->folders[position]
                           : *Session().Mailbox().Stores()[position]->top;
}

CModelPtr<CFolder> CFolders::At(size_t position) {
  if (position == CCursor::kNone) return {};
  const Store& store = *NodeAt(position).store;
  if (m_node == nullptr && store.refusal == Store::Refusal::Item) {
    throw CModelError(store.refusalCode);
  }
  return Session().FolderObject(NodeAt(position));
}

CModelPtr<CFolder> CFolders::Item(const CArguments& arguments) {
  const size_t size = Size();
  if (!arguments.IsText(0)) return At(PositionFromIndex(arguments.Long(0), size));
  const std::wstring name = arguments.Text(0);
  for (size_t position = 0; position < size; ++position) {
    if (SameText(NodeAt(position).name, name)) return At(position);
  }
  throw CModelError(kNotFound, "The folder was not found.");
}

CModelPtr<CFolder> CFolders::Add(const CArguments& arguments) {
  Size();
  if (m_node == nullptr) throw CModelError(E_ACCESSDENIED);
  const ItemType type = ItemTypeOfDefaultFolder(arguments.LongOr(1, 0), m_node->itemType);
  return Session().FolderObject(Session().AddFolder(*m_node, arguments.Text(0), type));
}

CModelPtr<CFolder> CFolders::GetFirst() {
  return At(m_cursor.First(Size()));
}

CModelPtr<CFolder> CFolders::GetLast() {
  return At(m_cursor.Last(Size()));
}

CModelPtr<CFolder> CFolders::GetNext() {
  return At(m_cursor.Next(Size()));
}

CModelPtr<CFolder> CFolders::GetPrevious() {
  return At(m_cursor.Previous(Size()));
}

void CFolders::Remove(const CArguments& arguments) {
  const size_t position = PositionFromIndex(arguments.Long(0), Size());
  if (m_node == nullptr) throw CModelError(E_ACCESSDENIED);
  Session().DeleteFolder(NodeAt(position));
}

CItems::CItems(CSession& session, FolderNode& node)
    : COutlookObject(session, Members(), ObjectClass::Items), m_node(&node) {
  node.itemCollections.push_back(this);
}

const CMemberTable& CItems::Members() {
  static const CMemberTable table(
      "Items", L"_Items", &CommonMembers(),
      {Get<&CItems::Count>(L"Count"), Method<&CItems::Item>(L"Item"),
       Method<&CItems::Add>(L"Add", 0), Method<&CItems::GetFirst>(L"GetFirst"),
       Method<&CItems::GetLast>(L"GetLast"), Method<&CItems::GetNext>(L"GetNext"),
       Method<&CItems::GetPrevious>(L"GetPrevious"), Method<&CItems::Remove>(L"Remove")},
      {L"ItemsEvents"});
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
  return CValue(Session().FolderObject(Node()).get());
}

CModelPtr<CItem> CItems::At(size_t position) {
  if (position == CCursor::kNone) return {};
  return Session().ItemObject(Node().items[position]);
}

CModelPtr<CItem> CItems::Item(const CArguments& arguments) {
  const std::vector<StoredItemPtr>& view = Node().items;
  if (!arguments.IsText(0)) return At(PositionFromIndex(arguments.Long(0), view.size()));
  const std::wstring name = arguments.Text(0);
  for (size_t position = 0; position < view.size(); ++position) {
    if (SameText(view[position]->fields.Get(field::kSubject), name)) return At(position);
  }
  throw CModelError(kNotFound, "The item was not found.");
}

CModelPtr<CItem> CItems::Add(const CArguments& arguments) {
  FolderNode& node = Node();
  const long type = arguments.LongOr(0, static_cast<long>(node.itemType));
  return Session().NewItem(static_cast<ItemType>(type), node);
}

CModelPtr<CItem> CItems::GetFirst() {
  return At(m_cursor.First(Node().items.size()));
}

CModelPtr<CItem> CItems::GetLast() {
  return At(m_cursor.Last(Node().items.size()));
}

CModelPtr<CItem> CItems::GetNext() {
  return At(m_cursor.Next(Node().items.size()));
}

CModelPtr<CItem> CItems::GetPrevious() {
  return At(m_cursor.Previous(Node().items.size()));
}

void CItems::Remove(const CArguments& arguments) {
  const std::vector<StoredItemPtr>& view = Node().items;
  Session().DeleteItems({view[PositionFromIndex(arguments.Long(0), view.size())]});
}

}  // namespace quor::workbench
