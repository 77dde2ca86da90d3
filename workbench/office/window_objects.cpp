#include "workbench/office/window_objects.h"

#include <algorithm>
#include <utility>

#include "workbench/office/folder_objects.h"

namespace quor::workbench {
namespace {

template <class Window>
CModelPtr<Window> WindowByIndex(const std::vector<CModelPtr<Window>>& windows,
                                const CArguments& arguments) {
  if (!arguments.IsText(0)) return windows[PositionFromIndex(arguments.Long(0), windows.size())];
  const std::wstring caption = arguments.Text(0);
  for (const auto& window : windows) {
    if (window->CaptionText() == caption) return window;
  }
  throw CModelError(kNotFound, "There is no such window.");
}

}  // namespace

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
      {Get<&Self::Caption>(L"Caption"), Get<&Self::CommandBars>(L"CommandBars"),
       Method<&Self::Activate>(L"Activate"),
       Get<&Self::GetPlace<&WindowPlace::state>>(L"WindowState"),
       Put<&Self::PutPlace<&WindowPlace::state>>(L"WindowState"),
       Get<&Self::GetPlace<&WindowPlace::height>>(L"Height"),
       Put<&Self::PutPlace<&WindowPlace::height>>(L"Height"),
       Get<&Self::GetPlace<&WindowPlace::left>>(L"Left"),
       Put<&Self::PutPlace<&WindowPlace::left>>(L"Left"),
       Get<&Self::GetPlace<&WindowPlace::top>>(L"Top"),
       Put<&Self::PutPlace<&WindowPlace::top>>(L"Top"),
       Get<&Self::GetPlace<&WindowPlace::width>>(L"Width"),
       Put<&Self::PutPlace<&WindowPlace::width>>(L"Width")});
  return table;
}

void* CWindowObject::OtherInterface(REFIID iid) {
  if (iid == IID_IOleWindow) return static_cast<IOleWindow*>(this);
  return COutlookObject::OtherInterface(iid);
}

void CWindowObject::CheckOpen() const {
  if (!m_open) throw CModelError(kObjectDeleted, "The window has been closed.");
}

CValue CWindowObject::CommandBars() {
  CheckOpen();
  return CValue(Session().Face().CommandBarsOf(*this));
}

void CWindowObject::Activate() {
  CheckOpen();
  Session().ActivateWindow(*this);
}

CValue CWindowObject::Caption() {
  CheckOpen();
  return CValue(CaptionText());
}

CExplorer::CExplorer(CSession& session, FolderNode& folder)
    : CWindowObject(session, Members(), ObjectClass::Explorer), m_folder(&folder) {
  if (!folder.items.empty()) m_selected = {folder.items.front()};
}

const CMemberTable& CExplorer::Members() {
  static const CMemberTable table(
      "Explorer", L"_Explorer", &WindowMembers(),
      {Get<&CExplorer::CurrentFolder>(L"CurrentFolder"),
       Put<&CExplorer::SetCurrentFolder>(L"CurrentFolder"), Method<&CExplorer::Close>(L"Close"),
       Method<&CExplorer::Display>(L"Display"), Get<&CExplorer::Selection>(L"Selection")},
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

CModelPtr<CFolder> CExplorer::CurrentFolder() {
  CheckOpen();
  return Session().FolderObject(*m_folder);
}

void CExplorer::SetCurrentFolder(const CArguments& arguments) {
  CheckOpen();
  CFolder* folder = ObjectBehind<CFolder>(arguments.Object(0));
  if (folder == nullptr) throw CModelError(E_INVALIDARG);
  SwitchFolder(folder->Node());
}

CModelPtr<CSelection> CExplorer::Selection() {
  CheckOpen();
  return MakeObject<CSelection>(Session(), *this);
}

void CExplorer::Close() {
  CheckOpen();
  Session().CloseExplorer(*this);
}

void CExplorer::Display() {
  CheckOpen();
  Session().ShowExplorer(*this);
}

CInspector::CInspector(CSession& session, CItem& item)
    : CWindowObject(session, Members(), ObjectClass::Inspector), m_item(&item) {}

const CMemberTable& CInspector::Members() {
  static const CMemberTable table(
      "Inspector", L"_Inspector", &WindowMembers(),
      {Get<&CInspector::CurrentItem>(L"CurrentItem"), Get<&CInspector::EditorType>(L"EditorType"),
       Method<&CInspector::Close>(L"Close"), Method<&CInspector::Display>(L"Display", 0)},
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

CModelPtr<CItem> CInspector::CurrentItem() {
  CheckOpen();
  return m_item;
}

long CInspector::EditorType() {
  CheckOpen();
  return 1;  // text
}

void CInspector::Close(const CArguments& arguments) {
  CheckOpen();
  if (arguments.Long(0) == 0) {
    m_item->SaveChanges();
  } else {
    m_item->DiscardChanges();
  }
  Session().CloseInspector(*this);
}

void CInspector::Display() {
  CheckOpen();
  Session().ShowInspector(*this);
}

CSelection::CSelection(CSession& session, CExplorer& explorer)
    : COutlookObject(session, Members(), ObjectClass::Selection),
      m_explorer(&explorer),
      m_items(explorer.SelectedItems()) {}

const CMemberTable& CSelection::Members() {
  static const CMemberTable table(
      "Selection", L"Selection", &CommonMembers(),
      {Get<&CSelection::Count>(L"Count"), Method<&CSelection::Item>(L"Item")});
  return table;
}

CValue CSelection::Parent() {
  return CValue(m_explorer.get());
}

void CSelection::OnGone() noexcept {
  m_items.clear();
  m_explorer = {};
  COutlookObject::OnGone();
}

CModelPtr<CItem> CSelection::Item(const CArguments& arguments) {
  return Session().ItemObject(m_items[PositionFromIndex(arguments.Long(0), m_items.size())]);
}

CExplorers::CExplorers(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::Explorers) {}

const CMemberTable& CExplorers::Members() {
  static const CMemberTable table(
      "Explorers", L"_Explorers", &CommonMembers(),
      {Get<&CExplorers::Count>(L"Count"), Method<&CExplorers::Item>(L"Item")},
      {L"ExplorersEvents"});
  return table;
}

CModelPtr<CExplorer> CExplorers::Item(const CArguments& arguments) {
  return WindowByIndex(Session().ExplorerWindows(), arguments);
}

CInspectors::CInspectors(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::Inspectors) {}

const CMemberTable& CInspectors::Members() {
  static const CMemberTable table(
      "Inspectors", L"_Inspectors", &CommonMembers(),
      {Get<&CInspectors::Count>(L"Count"), Method<&CInspectors::Item>(L"Item"),
       Method<&CInspectors::Add>(L"Add")},
      {L"InspectorsEvents"});
  return table;
}

CModelPtr<CInspector> CInspectors::Item(const CArguments& arguments) {
  return WindowByIndex(Session().InspectorWindows(), arguments);
}

CModelPtr<CInspector> CInspectors::Add(const CArguments& arguments) {
  CItem* item = ObjectBehind<CItem>(arguments.Object(0));
  if (item == nullptr) throw CModelError(E_INVALIDARG);
  return Session().InspectorFor(*item);
}

}  // namespace quor::workbench
