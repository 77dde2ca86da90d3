#include "workbench/office/window_objects.h"

#include <algorithm>
#include <utility>

#include "workbench/office/folder_objects.h"

namespace quor::workbench {

STDMETHODIMP CWindowObject::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = m_open ? Window() : nullptr;
  return *window != nullptr ? S_OK : E_FAIL;
}

CWindowObject::CWindowObject(CSession& session, const CMemberTable& members,
                             ObjectClass objectClass)
    : COutlookObject(session, members, objectClass) {}

const CMemberTable& CWindowObject::WindowMembers() {
  using Self = CWindowObject;
  static const CMemberTable table(
      "Window", nullptr, &CommonMembers(),
      {Get(L"Caption", [](Self& self) { return self.CaptionText(); }),
       Get(L"CommandBars", [](Self& self) { return self.Session().Face().CommandBarsOf(self); })});
  return table;
}

void* CWindowObject::OtherInterface(REFIID iid) {
  if (iid == IID_IOleWindow) return static_cast<IOleWindow*>(this);
  return COutlookObject::OtherInterface(iid);
}

void CWindowObject::RequireAlive() const {
  if (!m_open) throw CModelError(kObjectDeleted, "The window has been closed.");
}

CExplorer::CExplorer(CSession& session, FolderNode& folder)
    : CWindowObject(session, Members(), ObjectClass::Explorer), m_folder(&folder) {
  if (!folder.items.empty()) m_selected = {folder.items.front()};
}

const CMemberTable& CExplorer::Members() {
  using Self = CExplorer;
  static const CMemberTable table(
      "Explorer", L"_Explorer", &WindowMembers(),
      {Get(L"CurrentFolder",
           [](Self& self) { return self.Session().FolderObject(*self.m_folder); }),
       Get(L"Selection", [](Self& self) { return MakeObject<CSelection>(self.Session(), self); })},
      {L"ExplorerEvents", L"ExplorerEvents_10"});
  return table;
}

std::string CExplorer::ObjectName() const {
  return m_folder != nullptr ? Utf8FromWide(m_folder->name) : "closed";
}

std::wstring CExplorer::CaptionText() const {
  return (m_folder != nullptr ? m_folder->name : L"") + std::wstring(L" - Microsoft Outlook");
}

void CExplorer::SetClosed() noexcept {
  CWindowObject::SetClosed();
  m_folder = nullptr;
  m_selected.clear();
}

bool CExplorer::SwitchFolder(FolderNode& folder) {
  if (m_folder == &folder) return true;
  const CModelPtr<CFolder> object = Session().FolderObject(folder);
  if (FireCancellable(L"BeforeFolderSwitch", {CValue(object.get())})) return false;
  if (IsOpen()) ShowFolder(folder);
  return true;
}

void CExplorer::LeaveFolder(FolderNode& instead) {
  ShowFolder(instead);
}

void CExplorer::ShowFolder(FolderNode& folder) {
  m_folder = &folder;
  m_selected.clear();
  Session().Face().OnChanged();
  Fire(L"FolderSwitch");
  if (m_folder != &folder) return;  // a sink switched to another folder
  Select(folder.items.empty() ? std::vector<StoredItemPtr>()
                              : std::vector<StoredItemPtr>{folder.items.front()});
}

void CExplorer::Select(std::vector<StoredItemPtr> items) {
  m_selected = std::move(items);
  Session().Face().OnChanged();
  Fire(L"SelectionChange");
}

void CExplorer::Deselect(const StoredItemPtr& item) {
  if (std::erase(m_selected, item) == 0) return;
  if (m_selected.empty() && m_folder != nullptr && !m_folder->items.empty()) {
    m_selected = {m_folder->items.front()};
  }
  Session().Face().OnChanged();
  Fire(L"SelectionChange");
}

CInspector::CInspector(CSession& session, CItem& item)
    : CWindowObject(session, Members(), ObjectClass::Inspector), m_item(&item) {}

const CMemberTable& CInspector::Members() {
  using Self = CInspector;
  static const CMemberTable table("Inspector", L"_Inspector", &WindowMembers(),
                                  {Get(L"CurrentItem", [](Self& self) { return self.m_item; })},
                                  {L"InspectorEvents", L"InspectorEvents_10"});
  return table;
}

std::wstring CInspector::CaptionText() const {
  if (!m_item) return {};
  const std::wstring subject = m_item->Text(field::kSubject);
  const bool contact = m_item->Stored()->type == ItemType::Contact;
  return (subject.empty() ? L"Untitled" : subject) + (contact ? L" - Contact" : L"");
}

void CInspector::SetClosed() noexcept {
  CWindowObject::SetClosed();
  m_item = {};
}

void CInspector::OnGone() noexcept {
  m_item = {};
  CWindowObject::OnGone();
}

CSelection::CSelection(CSession& session, CExplorer& explorer)
    : CCollection(session, Members(), ObjectClass::Selection),
      m_explorer(&explorer),
      m_items(explorer.SelectedItems()) {}

const CMemberTable& CSelection::Members() {
  static const CMemberTable table("Selection", L"Selection", &CollectionMembers(), {});
  return table;
}

void CSelection::OnGone() noexcept {
  m_items.clear();
  m_explorer = {};
  COutlookObject::OnGone();
}

CValue CSelection::At(size_t position) {
  return {Session().ItemObject(m_items[position]).get()};
}

std::wstring CSelection::NameAt(size_t position) {
  return m_items[position]->fields.Get(field::kSubject);
}

CExplorers::CExplorers(CSession& session)
    : CCollection(session, Members(), ObjectClass::Explorers) {}

const CMemberTable& CExplorers::Members() {
  static const CMemberTable table("Explorers", L"_Explorers", &CollectionMembers(), {},
                                  {L"ExplorersEvents"});
  return table;
}

CValue CExplorers::At(size_t position) {
  return {Session().ExplorerWindows()[position].get()};
}

std::wstring CExplorers::NameAt(size_t position) {
  return Session().ExplorerWindows()[position]->CaptionText();
}

CInspectors::CInspectors(CSession& session)
    : CCollection(session, Members(), ObjectClass::Inspectors) {}

const CMemberTable& CInspectors::Members() {
  static const CMemberTable table("Inspectors", L"_Inspectors", &CollectionMembers(), {},
                                  {L"InspectorsEvents"});
  return table;
}

CValue CInspectors::At(size_t position) {
  return {Session().InspectorWindows()[position].get()};
}

std::wstring CInspectors::NameAt(size_t position) {
  return Session().InspectorWindows()[position]->CaptionText();
}

}  // namespace quor::workbench
