#include "workbench/office/window_objects.h"

#include <algorithm>
#include <utility>

#include "workbench/office/folder_objects.h"

namespace quor::workbench {
namespace {

constexpr DISPID kActivate = 0xF001;
constexpr DISPID kFolderSwitch = 0xF002;
constexpr DISPID kBeforeFolderSwitch = 0xF003;
constexpr DISPID kDeactivate = 0xF006;
constexpr DISPID kSelectionChange = 0xF007;
constexpr DISPID kClose = 0xF008;
constexpr DISPID kNewWindow = 0xF001;

constexpr DISPID kHeight = 0x2114;
constexpr DISPID kLeft = 0x2115;
constexpr DISPID kTop = 0x2116;
constexpr DISPID kWidth = 0x2117;

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

class COleWindow final : public IOleWindow {
 public:
  explicit COleWindow(CWindowObject& window) : m_window(window) {}
  virtual ~COleWindow() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return m_window.QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return m_window.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return m_window.Release(); }
  STDMETHODIMP GetWindow(HWND* window) override {
    if (window == nullptr) return E_POINTER;
    *window = m_window.IsOpen() ? m_window.Window() : nullptr;
    return *window != nullptr ? S_OK : E_FAIL;
  }
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

 private:
  CWindowObject& m_window;
};

CWindowObject::CWindowObject(CSession& session, const CMemberTable& members,
                             const EventTable& events, ObjectClass objectClass)
    : COutlookObject(session, members, events, objectClass),
      m_oleWindow(std::make_unique<COleWindow>(*this)) {}

CWindowObject::~CWindowObject() = default;

const CMemberTable& CWindowObject::WindowMembers() {
  static const CMemberTable table = [] {
    std::vector<Member> members = {Get<&CWindowObject::Caption>(L"Caption", 0x2111)};
    const std::pair<const wchar_t*, DISPID> places[] = {{L"WindowState", 0x2112},
                                                        {L"Height", kHeight},
                                                        {L"Left", kLeft},
                                                        {L"Top", kTop},
                                                        {L"Width", kWidth}};
    for (const auto& [name, id] : places) {
      members.push_back(Get<&CWindowObject::GetPlace>(name, id));
      members.push_back(Put<&CWindowObject::PutPlace>(name, id));
    }
    return CMemberTable("Window", {}, &CommonMembers(), std::move(members));
  }();
  return table;
}

void* CWindowObject::OtherInterface(REFIID iid) {
  if (iid == IID_IOleWindow) return m_oleWindow.get();
  return COutlookObject::OtherInterface(iid);
}

void CWindowObject::CheckOpen() const {
  if (!m_open) throw CModelError(kObjectDeleted, "The window has been closed.");
}

CValue CWindowObject::Caption() {
  CheckOpen();
  return CValue(CaptionText());
}

CValue CWindowObject::GetPlace(const CArguments& arguments) {
  CheckOpen();
  switch (arguments.Member()) {
    case kHeight:
      return m_place.height;
    case kLeft:
      return m_place.left;
    case kTop:
      return m_place.top;
    case kWidth:
      return m_place.width;
    default:
      return m_place.state;
  }
}

void CWindowObject::PutPlace(const CArguments& arguments) {
  CheckOpen();
  const long value = arguments.Long(0);
  switch (arguments.Member()) {
    case kHeight:
      m_place.height = value;
      break;
    case kLeft:
      m_place.left = value;
      break;
    case kTop:
      m_place.top = value;
      break;
    case kWidth:
      m_place.width = value;
      break;
    default:
      m_place.state = value;
  }
  Session().Face().OnChanged();
}

CExplorer::CExplorer(CSession& session, FolderNode& folder)
    : CWindowObject(session, Members(), Events(), ObjectClass::Explorer), m_folder(&folder) {
  if (!folder.items.empty()) m_selected = {folder.items.front()};
}

const CMemberTable& CExplorer::Members() {
  static const CMemberTable table(
      "Explorer", {kExplorerId}, &WindowMembers(),
      {Get<&CExplorer::CommandBars>(L"CommandBars", 0x2100),
       Get<&CExplorer::CurrentFolder>(L"CurrentFolder", 0x2101),
       Put<&CExplorer::SetCurrentFolder>(L"CurrentFolder", 0x2101),
       Method<&CExplorer::Close>(L"Close", 0x2103), Method<&CExplorer::Display>(L"Display", 0x2104),
       Method<&CExplorer::Activate>(L"Activate", 0x2113),
       Get<&CExplorer::Selection>(L"Selection", 0x2202)});
  return table;
}

const EventTable& CExplorer::Events() {
  static const EventTable table = {
      {{kExplorerEventsId, "ExplorerEvents"}, {kExplorerEvents10Id, "ExplorerEvents_10"}},
      {{kActivate, "Activate"},
       {kFolderSwitch, "FolderSwitch"},
       {kBeforeFolderSwitch, "BeforeFolderSwitch"},
       {kDeactivate, "Deactivate"},
       {kSelectionChange, "SelectionChange"},
       {kClose, "Close"}}};
  return table;
}

std::string CExplorer::ObjectName() const {
  return m_folder != nullptr ? Utf8FromWide(m_folder->name) : "closed";
}

HWND CExplorer::Window() {
  return Session().Face().WindowOf(*this);
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
  if (FireCancellable(kBeforeFolderSwitch, {CValue(object.get())})) return false;
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
  Fire(kFolderSwitch);
  if (m_folder != &folder) return;  // a sink switched to another folder
  Select(folder.items.empty() ? std::vector<StoredItemPtr>()
                              : std::vector<StoredItemPtr>{folder.items.front()});
}

void CExplorer::Select(std::vector<StoredItemPtr> items) {
  m_selected = std::move(items);
  Session().Face().OnChanged();
  Fire(kSelectionChange);
}

void CExplorer::Deselect(const StoredItemPtr& item) {
  if (std::erase(m_selected, item) == 0) return;
  if (m_selected.empty() && m_folder != nullptr && !m_folder->items.empty()) {
    m_selected = {m_folder->items.front()};
  }
  Session().Face().OnChanged();
  Fire(kSelectionChange);
}

void CExplorer::RaiseActivate(bool active) {
  Fire(active ? kActivate : kDeactivate);
}

void CExplorer::RaiseClose() {
  Fire(kClose);
}

CValue CExplorer::CommandBars() {
  CheckOpen();
  return CValue(Session().Face().CommandBarsOf(*this));
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

void CExplorer::Activate() {
  CheckOpen();
  Session().ActivateWindow(*this);
}

CInspector::CInspector(CSession& session, CItem& item)
    : CWindowObject(session, Members(), Events(), ObjectClass::Inspector), m_item(&item) {}

const CMemberTable& CInspector::Members() {
  static const CMemberTable table("Inspector", {kInspectorId}, &WindowMembers(),
                                  {Get<&CInspector::CommandBars>(L"CommandBars", 0x2100),
                                   Get<&CInspector::CurrentItem>(L"CurrentItem", 0x2102),
                                   Get<&CInspector::EditorType>(L"EditorType", 0x2110),
                                   Method<&CInspector::Close>(L"Close", 0x2103, 1),
                                   Method<&CInspector::Display>(L"Display", 0x2104, 0, 1),
                                   Method<&CInspector::Activate>(L"Activate", 0x2113)});
  return table;
}

const EventTable& CInspector::Events() {
  static const EventTable table = {
      {{kInspectorEventsId, "InspectorEvents"}, {kInspectorEvents10Id, "InspectorEvents_10"}},
      {{kActivate, "Activate"}, {kDeactivate, "Deactivate"}, {kClose, "Close"}}};
  return table;
}

std::string CInspector::ObjectName() const {
  return m_item ? m_item->ObjectName() : "closed";
}

HWND CInspector::Window() {
  return Session().Face().WindowOf(*this);
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

void CInspector::RaiseActivate(bool active) {
  Fire(active ? kActivate : kDeactivate);
}

void CInspector::RaiseClose() {
  Fire(kClose);
}

CValue CInspector::CommandBars() {
  CheckOpen();
  return CValue(Session().Face().CommandBarsOf(*this));
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

void CInspector::Activate() {
  CheckOpen();
  Session().ActivateWindow(*this);
}

CSelection::CSelection(CSession& session, CExplorer& explorer)
    : COutlookObject(session, Members(), NoEvents(), ObjectClass::Selection),
      m_explorer(&explorer),
      m_items(explorer.SelectedItems()) {}

const CMemberTable& CSelection::Members() {
  static const CMemberTable table(
      "Selection", {kSelectionId}, &CommonMembers(),
      {Get<&CSelection::Count>(L"Count", 0x50), Method<&CSelection::Item>(L"Item", 0x51, 1)});
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

long CSelection::Count() {
  return static_cast<long>(m_items.size());
}

CModelPtr<CItem> CSelection::Item(const CArguments& arguments) {
  return Session().ItemObject(m_items[PositionFromIndex(arguments.Long(0), m_items.size())]);
}

CExplorers::CExplorers(CSession& session)
    : COutlookObject(session, Members(), Events(), ObjectClass::Explorers) {}

const CMemberTable& CExplorers::Members() {
  static const CMemberTable table(
      "Explorers", {kExplorersId}, &CommonMembers(),
      {Get<&CExplorers::Count>(L"Count", 0x50), Method<&CExplorers::Item>(L"Item", 0x51, 1)});
  return table;
}

const EventTable& CExplorers::Events() {
  static const EventTable table = {{{kExplorersEventsId, "ExplorersEvents"}},
                                   {{kNewWindow, "NewExplorer"}}};
  return table;
}

void CExplorers::RaiseNewExplorer(CExplorer& explorer) {
  Fire(kNewWindow, {CValue(&explorer)});
}

long CExplorers::Count() {
  return static_cast<long>(Session().ExplorerWindows().size());
}

CModelPtr<CExplorer> CExplorers::Item(const CArguments& arguments) {
  return WindowByIndex(Session().ExplorerWindows(), arguments);
}

CInspectors::CInspectors(CSession& session)
    : COutlookObject(session, Members(), Events(), ObjectClass::Inspectors) {}

const CMemberTable& CInspectors::Members() {
  static const CMemberTable table(
      "Inspectors", {kInspectorsId}, &CommonMembers(),
      {Get<&CInspectors::Count>(L"Count", 0x50), Method<&CInspectors::Item>(L"Item", 0x51, 1),
       Method<&CInspectors::Add>(L"Add", 0x5F, 1)});
  return table;
}

const EventTable& CInspectors::Events() {
  static const EventTable table = {{{kInspectorsEventsId, "InspectorsEvents"}},
                                   {{kNewWindow, "NewInspector"}}};
  return table;
}

void CInspectors::RaiseNewInspector(CInspector& inspector) {
  Fire(kNewWindow, {CValue(&inspector)});
}

long CInspectors::Count() {
  return static_cast<long>(Session().InspectorWindows().size());
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
