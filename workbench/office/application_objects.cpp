#include "workbench/office/application_objects.h"

#include <utility>

#include "workbench/office/folder_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {

CApplication::CApplication(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::Application) {}

const CMemberTable& CApplication::Members() {
  using Self = CApplication;
  static const CMemberTable table(
      "Application", L"_Application", &CommonMembers(),
      {Get(L"Name", [](Self&) { return L"Outlook"; }),
       Get(L"Version", [](Self& self) { return self.Session().VersionText(); }),
       Method(L"ActiveExplorer", [](Self& self) { return self.Session().ActiveExplorer(); }),
       Method(L"ActiveWindow", [](Self& self) { return self.Session().ActiveWindow(); }),
       Method<&Self::CreateItem>(L"CreateItem"),
       Method(L"GetNamespace",
              [](Self& self, const CArguments& arguments) {
                if (!SameText(arguments.Text(0), L"MAPI")) throw CModelError(E_INVALIDARG);
                return &self.Session().NameSpace();
              }),
       Get(L"COMAddIns", [](Self& self) { return &self.Session().ComAddIns(); }),
       Get(L"Explorers", [](Self& self) { return &self.Session().Explorers(); }),
       Get(L"Inspectors", [](Self& self) { return &self.Session().Inspectors(); })},
      {L"ApplicationEvents", L"ApplicationEvents_10", L"ApplicationEvents_11"});
  return table;
}

CModelPtr<CItem> CApplication::CreateItem(const CArguments& arguments) {
  const auto type = static_cast<ItemType>(arguments.Long(0));
  constexpr long kContacts = 10;
  constexpr long kJournal = 11;
  const long home = type == ItemType::Journal ? kJournal : kContacts;
  return Session().NewItem(type, *Session().Mailbox().DefaultFolder(home));
}

CNameSpace::CNameSpace(CSession& session)
    : COutlookObject(session, Members(), ObjectClass::Namespace) {}

const CMemberTable& CNameSpace::Members() {
  using Self = CNameSpace;
  static const CMemberTable table(
      "NameSpace", L"_NameSpace", &CommonMembers(),
      {Get(L"Folders", [](Self& self) { return MakeObject<CFolders>(self.Session(), nullptr); }),
       Method<&Self::GetDefaultFolder>(L"GetDefaultFolder"),
       Method<&Self::GetFolderFromId>(L"GetFolderFromID", 1),
       Method<&Self::GetItemFromId>(L"GetItemFromID", 1),
       Method(L"CompareEntryIDs",
              [](Self&, const CArguments& arguments) {
                return SameText(arguments.Text(0), arguments.Text(1));
              })},
      {L"NameSpaceEvents"});
  return table;
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

CPropertyPages::CPropertyPages(CSession& session)
    : CCollection(session, Members(), ObjectClass::PropertyPages) {}

const CMemberTable& CPropertyPages::Members() {
  using Self = CPropertyPages;
  static const CMemberTable table("PropertyPages", L"PropertyPages", &CollectionMembers(),
                                  {Method<&Self::Add>(L"Add", 1)});
  return table;
}

void CPropertyPages::OnGone() noexcept {
  m_pages.clear();
  COutlookObject::OnGone();
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

CComAddIn::CComAddIn(CSession& session, ComAddInInfo info, std::function<bool()> isConnected)
    : CAutomation(session.Model(), Members()),
      m_session(session),
      m_info(std::move(info)),
      m_isConnected(std::move(isConnected)) {}

const CMemberTable& CComAddIn::Members() {
  using Self = CComAddIn;
  static const CMemberTable table(
      "COMAddIn", L"COMAddIn", nullptr,
      {Get(L"Description", [](Self& self) { return self.m_info.description; }),
       Get(L"ProgId", [](Self& self) { return self.m_info.progId; }),
       Get(L"Guid", [](Self& self) { return self.m_info.classId; }),
       Get(L"Connect", [](Self& self) { return self.m_isConnected(); }),
       Get(L"Parent", [](Self& self) { return &self.m_session.ComAddIns(); })});
  return table;
}

CComAddIns::CComAddIns(CSession& session)
    : CAutomation(session.Model(), Members()), m_session(session) {}

const CMemberTable& CComAddIns::Members() {
  using Self = CComAddIns;
  static const CMemberTable table(
      "COMAddIns", L"COMAddIns", nullptr,
      {Method<&Self::Item>(L"Item"), Get(L"Count", [](Self& self) { return self.m_addIns.size(); }),
       Get(L"Parent", [](Self& self) { return &self.m_session.Application(); })});
  return table;
}

CModelPtr<CComAddIn> CComAddIns::AddAddIn(ComAddInInfo info, std::function<bool()> isConnected) {
  m_addIns.push_back(MakeObject<CComAddIn>(m_session, std::move(info), std::move(isConnected)));
  return m_addIns.back();
}

CModelPtr<CComAddIn> CComAddIns::Item(const CArguments& arguments) {
  if (!arguments.IsText(0)) return m_addIns[PositionFromIndex(arguments.Long(0), m_addIns.size())];
  for (const auto& addIn : m_addIns) {
    if (SameText(addIn->ProgIdText(), arguments.Text(0))) return addIn;
  }
  throw CModelError(kNotFound, "There is no such add-in.");
}

}  // namespace quor::workbench
