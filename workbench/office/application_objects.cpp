#include "workbench/office/application_objects.h"

#include <utility>

#include "workbench/office/folder_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {
CApplication::CApplication(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::Application) {}

const CMemberTable& CApplication::Members() {
  static const CMemberTable table(
      "Application", L"_Application", &CommonMembers(),
      {Get<&CApplication::Name>(L"Name"), Get<&CApplication::Version>(L"Version"),
       Method<&CApplication::ActiveExplorer>(L"ActiveExplorer"),
       Method<&CApplication::ActiveInspector>(L"ActiveInspector"),
       Method<&CApplication::ActiveWindow>(L"ActiveWindow"),
       Method<&CApplication::CreateItem>(L"CreateItem"),
       Method<&CApplication::GetNamespace>(L"GetNamespace"),
       Get<&CApplication::ComAddIns>(L"COMAddIns"), Get<&CApplication::Explorers>(L"Explorers"),
       Get<&CApplication::Inspectors>(L"Inspectors"), Get<&CApplication::IsTrusted>(L"IsTrusted")},
      {L"ApplicationEvents", L"ApplicationEvents_10", L"ApplicationEvents_11"});
  return table;
}

CModelPtr<CExplorer> CApplication::ActiveExplorer() {
  return Session().ActiveExplorer();
}

CModelPtr<CInspector> CApplication::ActiveInspector() {
  return Session().ActiveInspector();
}

CValue CApplication::ActiveWindow() {
  return CValue(Session().ActiveWindow().get());
}

CModelPtr<CItem> CApplication::CreateItem(const CArguments& arguments) {
  const auto type = static_cast<ItemType>(arguments.Long(0));
  switch (type) {
    case ItemType::Contact:
    case ItemType::DistributionList:
      return Session().NewItem(type, *Session().Mailbox().DefaultStore().contacts);
    case ItemType::Journal:
      return Session().NewItem(type, *Session().Mailbox().DefaultFolder(11));
    case ItemType::Mail:
      return Session().NewItem(type, *Session().Mailbox().DefaultFolder(16));
    default:
      throw CModelError(E_NOTIMPL, "Items of this type are not kept here.");
  }
}

CValue CApplication::GetNamespace(const CArguments& arguments) {
  if (!SameText(arguments.Text(0), L"MAPI")) throw CModelError(E_INVALIDARG);
  return CValue(&Session().NameSpace());
}

CValue CApplication::ComAddIns() {
  return CValue(&Session().ComAddIns());
}

CValue CApplication::Explorers() {
  return CValue(&Session().Explorers());
}

CValue CApplication::Inspectors() {
  return CValue(&Session().Inspectors());
}

bool CApplication::IsTrusted() {
  return true;
}

void CApplication::RaiseOptionsPagesAdd(CPropertyPages& pages) {
  Fire(L"OptionsPagesAdd", {CValue(&pages)});
}

CNameSpace::CNameSpace(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::Namespace) {}

const CMemberTable& CNameSpace::Members() {
  static const CMemberTable table("NameSpace", L"_NameSpace", &CommonMembers(),
                                  {Get<&CNameSpace::Folders>(L"Folders"),
                                   Method<&CNameSpace::GetDefaultFolder>(L"GetDefaultFolder"),
                                   Method<&CNameSpace::GetFolderFromId>(L"GetFolderFromID", 1),
                                   Method<&CNameSpace::GetItemFromId>(L"GetItemFromID", 1),
                                   Method<&CNameSpace::Logon>(L"Logon", 0),
                                   Method<&CNameSpace::CompareEntryIds>(L"CompareEntryIDs")},
                                  {L"NameSpaceEvents"});
  return table;
}

void CNameSpace::RaiseOptionsPagesAdd(CPropertyPages& pages, FolderNode& folder) {
  const CModelPtr<CFolder> object = Session().FolderObject(folder);
  Fire(L"OptionsPagesAdd", {CValue(&pages), CValue(object.get())});
}

CModelPtr<CFolders> CNameSpace::Folders() {
  return MakeObject<CFolders>(Session(), nullptr);
}

CModelPtr<CFolder> CNameSpace::GetDefaultFolder(const CArguments& arguments) {
  FolderNode* folder = Session().Mailbox().DefaultFolder(arguments.Long(0));
  if (folder == nullptr) throw CModelError(E_INVALIDARG, "There is no such default folder.");
  return Session().FolderObject(*folder);
}

CModelPtr<CFolder> CNameSpace::GetFolderFromId(const CArguments& arguments) {
  FolderNode* folder = Session().Mailbox().FolderById(arguments.Text(0), arguments.TextOr(1, {}));
  if (folder == nullptr) throw CModelError(kNotFound, "The folder was not found.");
  return Session().FolderObject(*folder);
}

CModelPtr<CItem> CNameSpace::GetItemFromId(const CArguments& arguments) {
  const StoredItemPtr item =
      Session().Mailbox().ItemById(arguments.Text(0), arguments.TextOr(1, {}));
  if (item == nullptr) throw CModelError(kNotFound, "The item was not found.");
  return Session().ItemObject(item);
}

bool CNameSpace::CompareEntryIds(const CArguments& arguments) {
  return SameText(arguments.Text(0), arguments.Text(1));
}

CPropertyPages::CPropertyPages(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::PropertyPages) {}

const CMemberTable& CPropertyPages::Members() {
  static const CMemberTable table(
      "PropertyPages", L"PropertyPages", &CommonMembers(),
      {Get<&CPropertyPages::Count>(L"Count"), Method<&CPropertyPages::Item>(L"Item"),
       Method<&CPropertyPages::Add>(L"Add", 1), Method<&CPropertyPages::Remove>(L"Remove")});
  return table;
}

void CPropertyPages::OnGone() noexcept {
  m_pages.clear();
  COutlookObject::OnGone();
}

CValue CPropertyPages::Item(const CArguments& arguments) {
  return m_pages[PositionFromIndex(arguments.Long(0), m_pages.size())].object;
}

void CPropertyPages::Add(const CArguments& arguments) {
  OptionsPage page;
  if (arguments.IsText(0)) {
    page.progId = arguments.Text(0);
  } else {
    IDispatch* object = arguments.Object(0);
    if (object == nullptr) throw CModelError(E_INVALIDARG);
    page.object = CValue(object);
  }
  page.title = arguments.TextOr(1, {});
  m_pages.push_back(std::move(page));
}

void CPropertyPages::Remove(const CArguments& arguments) {
  const size_t position = PositionFromIndex(arguments.Long(0), m_pages.size());
  m_pages.erase(m_pages.begin() + static_cast<std::ptrdiff_t>(position));
}

CComAddIn::CComAddIn(CSession& session, ComAddInInfo info, std::function<bool()> isConnected,
                     std::function<void(bool)> onConnect)
    : CAutomation(session.Model(), Members()),
      m_session(session),
      m_info(std::move(info)),
      m_isConnected(std::move(isConnected)),
      m_onConnect(std::move(onConnect)) {}

const CMemberTable& CComAddIn::Members() {
  static const CMemberTable table(
      "COMAddIn", L"COMAddIn", nullptr,
      {Get<&CComAddIn::Description>(L"Description"),
       Put<&CComAddIn::SetDescription>(L"Description"), Get<&CComAddIn::ProgId>(L"ProgId"),
       Get<&CComAddIn::Guid>(L"Guid"), Get<&CComAddIn::Connect>(L"Connect"),
       Put<&CComAddIn::SetConnect>(L"Connect"), Get<&CComAddIn::Object>(L"Object"),
       Put<&CComAddIn::SetObject>(L"Object"), Get<&CComAddIn::Parent>(L"Parent")});
  return table;
}

IDispatch* CComAddIn::AddInObject() const noexcept {
  return V_VT(&m_object.Get()) == VT_DISPATCH ? V_DISPATCH(&m_object.Get()) : nullptr;
}

void CComAddIn::SetConnect(const CArguments& arguments) {
  m_onConnect(arguments.Bool(0));
}

CValue CComAddIn::Parent() {
  return CValue(&m_session.ComAddIns());
}

CComAddIns::CComAddIns(CSession& session)
    : CAutomation(session.Model(), Members()), m_session(session) {}

const CMemberTable& CComAddIns::Members() {
  static const CMemberTable table(
      "COMAddIns", L"COMAddIns", nullptr,
      {Method<&CComAddIns::Item>(L"Item"), Get<&CComAddIns::Count>(L"Count"),
       Method<&CComAddIns::Update>(L"Update"), Get<&CComAddIns::Parent>(L"Parent")});
  return table;
}

CModelPtr<CComAddIn> CComAddIns::AddAddIn(ComAddInInfo info, std::function<bool()> isConnected,
                                          std::function<void(bool)> onConnect) {
  m_addIns.push_back(MakeObject<CComAddIn>(m_session, std::move(info), std::move(isConnected),
                                           std::move(onConnect)));
  return m_addIns.back();
}

CModelPtr<CComAddIn> CComAddIns::Item(const CArguments& arguments) {
  if (!arguments.IsText(0)) return m_addIns[PositionFromIndex(arguments.Long(0), m_addIns.size())];
  for (const auto& addIn : m_addIns) {
    if (SameText(addIn->ProgIdText(), arguments.Text(0))) return addIn;
  }
  throw CModelError(kNotFound, "There is no such add-in.");
}

CValue CComAddIns::Parent() {
  return CValue(&m_session.Application());
}

}  // namespace quor::workbench
