#include "workbench/office/item_objects.h"

#include <algorithm>
#include <utility>

#include "workbench/office/folder_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {
namespace {

constexpr long kSaveOnClose = 0;

struct TextProperty {
  const wchar_t* name;
  DISPID id;
};

constexpr TextProperty kTextProperties[] = {
    {L"FullName", field::kFullName}, {L"FirstName", field::kFirstName},
    {L"LastName", field::kLastName}, {L"CompanyName", field::kCompanyName},
    {L"FileAs", field::kFileAs},     {L"Subject", field::kSubject},
    {L"Body", field::kBody},         {L"MessageClass", field::kMessageClass},
};

const wchar_t* DefaultMessageClass(ItemType type) {
  switch (type) {
    case ItemType::Contact:
      return L"IPM.Contact";
    case ItemType::DistributionList:
      return L"IPM.DistList";
    case ItemType::Journal:
      return L"IPM.Activity";
    default:
      return L"IPM.Note";
  }
}

}  // namespace

DISPID TextPropertyByName(std::wstring_view name) {
  for (const TextProperty& property : kTextProperties) {
    if (SameText(property.name, name)) return property.id;
  }
  for (const NumberProperty& property : kNumberProperties) {
    if (SameText(property.name, name)) return property.id;
  }
  throw CModelError(E_INVALIDARG, "There is no such property.");
}

std::wstring DefaultFileAs(const CFieldSet& fields) {
  const std::wstring first = fields.Get(field::kFirstName);
  const std::wstring last = fields.Get(field::kLastName);
  if (!first.empty() && !last.empty()) return last + L", " + first;
  if (!first.empty() || !last.empty()) return first + last;
  const std::wstring company = fields.Get(field::kCompanyName);
  return !company.empty() ? company : fields.Get(field::kFullName);
}

CItem::CItem(CSession& session, StoredItemPtr item, FolderNode* home, const CMemberTable& members,
             ObjectClass objectClass)
    : COutlookObject(session, members, objectClass),
      m_item(std::move(item)),
      m_homeId(home != nullptr ? home->entryId : std::wstring()),
      m_new(home != nullptr) {
  m_item->object = this;
}

const CMemberTable& CItem::ItemMembers() {
  static const CMemberTable table(
      "Item", nullptr, &CommonMembers(),
      {Get<&CItem::EntryId>(L"EntryID"), Get<&CItem::GetInspector>(L"GetInspector"),
       Get<&CItem::Saved>(L"Saved"), Method<&CItem::Save>(L"Save"),
       Method<&CItem::Delete>(L"Delete"), Method<&CItem::Close>(L"Close"),
       Method<&CItem::Display>(L"Display", 0), Get<&CItem::GetText>(L"Body"),
       Put<&CItem::PutText>(L"Body"), Get<&CItem::GetText>(L"Subject"),
       Put<&CItem::PutText>(L"Subject"), Get<&CItem::GetText>(L"MessageClass"),
       Put<&CItem::PutText>(L"MessageClass")},
      {L"ItemEvents"});
  return table;
}

std::string CItem::ObjectName() const {
  const std::wstring name = Text(field::kFileAs);
  return Utf8FromWide(name.empty() ? Text(field::kSubject) : name);
}

std::wstring CItem::Text(DISPID property) const {
  if (const std::wstring* changed = m_changes.Find(property)) return *changed;
  if (const std::wstring* stored = m_item->fields.Find(property)) return *stored;
  if (property == field::kMessageClass) return DefaultMessageClass(m_item->type);
  return DerivedText(property);
}

void CItem::SetText(DISPID property, const std::wstring& text) {
  m_changes.Set(property, text);
  OnTextSet(property, text);
  const Member* member = MemberTable().Find(property, DISPATCH_PROPERTYPUT);
  if (member != nullptr && SinkCount() != 0) Fire(L"PropertyChange", {CValue(member->name)});
}

void CItem::SaveChanges() {
  if (!m_new && m_item->folder == nullptr) {
    throw CModelError(kObjectDeleted, "The item has been moved or deleted.");
  }
  if (FireCancellable(L"Write")) throw CModelError(kCancelled, "The operation was cancelled.");
  const bool changed = !m_changes.All().empty();
  for (const auto& [property, text] : m_changes.All())
    m_item->fields.Set(property, text);
  m_changes.Clear();
  if (m_new) {
    FolderNode* home = Session().Mailbox().FolderById(m_homeId, {});
    if (home == nullptr) throw CModelError(kNotFound, "The folder has been deleted.");
    m_new = false;
    Session().SaveNewItem(m_item, *home);
  } else if (changed) {
    Session().NoteItemChange(m_item);
  }
}

bool CItem::RaiseOpen() {
  return !FireCancellable(L"Open");
}

bool CItem::RaiseClose() {
  return !FireCancellable(L"Close");
}

void CItem::OnGone() noexcept {
  if (m_item->object == this) m_item->object = nullptr;
  COutlookObject::OnGone();
}

CValue CItem::Parent() {
  FolderNode* folder = m_item->folder;
  if (m_new) folder = Session().Mailbox().FolderById(m_homeId, {});
  if (folder == nullptr) throw CModelError(kObjectDeleted, "The item has been deleted.");
  return CValue(Session().FolderObject(*folder).get());
}

CModelPtr<CInspector> CItem::GetInspector() {
  return Session().InspectorFor(*this);
}

CModelPtr<CInspector> CItem::OpenInspector() const {
  for (const auto& inspector : Session().InspectorWindows()) {
    if (inspector->Item() == this) return inspector;
  }
  return {};
}

void CItem::Delete() {
  if (const CModelPtr<CInspector> inspector = OpenInspector()) Session().CloseInspector(*inspector);
  if (m_new) return;
  if (m_item->folder == nullptr) throw CModelError(kObjectDeleted, "The item has been deleted.");
  Session().DeleteItems({m_item});
}

void CItem::Close(const CArguments& arguments) {
  if (arguments.Long(0) == kSaveOnClose) {
    SaveChanges();
  } else {
    DiscardChanges();
  }
  if (const CModelPtr<CInspector> inspector = OpenInspector()) Session().CloseInspector(*inspector);
}

void CItem::Display() {
  Session().ShowInspector(*Session().InspectorFor(*this));
}

CContactItem::CContactItem(CSession& session, StoredItemPtr item, FolderNode* home)
    : CItem(session, std::move(item), home, Members(), ObjectClass::Contact) {}

const CMemberTable& CContactItem::Members() {
  static const CMemberTable table = [] {
    std::vector<Member> members;
    const auto add = [&members](const auto& property) {
      members.push_back(Get<&CContactItem::GetText>(property.name));
      members.push_back(Put<&CContactItem::PutText>(property.name));
    };
    std::ranges::for_each(kTextProperties, add);
    std::ranges::for_each(kNumberProperties, add);
    return CMemberTable("ContactItem", L"_ContactItem", &ItemMembers(), std::move(members));
  }();
  return table;
}

std::wstring CContactItem::DerivedText(DISPID property) const {
  if (property == field::kSubject) return Text(field::kFullName);
  if (property != field::kFileAs) return {};
  CFieldSet names;
  for (const DISPID part :
       {field::kFirstName, field::kLastName, field::kCompanyName, field::kFullName}) {
    names.Set(part, Text(part));
  }
  return DefaultFileAs(names);
}

// Splits a full name: the last word is the last name.
void CContactItem::OnTextSet(DISPID property, const std::wstring& text) {
  if (property != field::kFullName) return;
  const size_t blank = text.find_last_of(L' ');
  const bool parts = blank != std::wstring::npos;
  Changes().Set(field::kFirstName, parts ? text.substr(0, blank) : text);
  Changes().Set(field::kLastName, parts ? text.substr(blank + 1) : std::wstring());
}

CDistListItem::CDistListItem(CSession& session, StoredItemPtr item, FolderNode* home)
    : CItem(session, std::move(item), home, Members(), ObjectClass::DistributionList) {}

const CMemberTable& CDistListItem::Members() {
  static const CMemberTable table(
      "DistListItem", L"_DistListItem", &ItemMembers(),
      {Get<&CDistListItem::ListName>(L"DLName"), Put<&CDistListItem::SetListName>(L"DLName"),
       Get<&CDistListItem::MemberCount>(L"MemberCount")});
  return table;
}

long CDistListItem::MemberCount() {
  return static_cast<long>(Stored()->members.size());
}

CJournalItem::CJournalItem(CSession& session, StoredItemPtr item, FolderNode* home)
    : CItem(session, std::move(item), home, Members(), ObjectClass::Journal) {}

const CMemberTable& CJournalItem::Members() {
  static const CMemberTable table(
      "JournalItem", L"_JournalItem", &ItemMembers(),
      {Get<&CJournalItem::GetText>(L"Type"), Put<&CJournalItem::PutText>(L"Type"),
       Get<&CJournalItem::Start>(L"Start"), Put<&CJournalItem::SetStart>(L"Start"),
       Get<&CJournalItem::Duration>(L"Duration"), Put<&CJournalItem::SetDuration>(L"Duration"),
       Get<&CJournalItem::Links>(L"Links")});
  return table;
}

CValue CJournalItem::Start() {
  VARIANT date;
  V_VT(&date) = VT_DATE;
  V_DATE(&date) = _wtof(Text(field::kJournalStart).c_str());
  return CValue::Copy(date);
}

void CJournalItem::SetStart(const CArguments& arguments) {
  const VARIANT& date = arguments.Variant(0);
  if (V_VT(&date) != VT_DATE) throw CArgumentError(DISP_E_TYPEMISMATCH, 0);
  SetText(field::kJournalStart, std::to_wstring(V_DATE(&date)));
}

void CJournalItem::SetDuration(const CArguments& arguments) {
  SetText(field::kJournalDuration, std::to_wstring(arguments.Long(0)));
}

CModelPtr<CLinks> CJournalItem::Links() {
  return MakeObject<CLinks>(Session(), Stored());
}

CLinks::CLinks(CSession& session, StoredItemPtr item)
    : COutlookObject(session, Members(), ObjectClass::Links), m_item(std::move(item)) {}

const CMemberTable& CLinks::Members() {
  static const CMemberTable table("Links", L"Links", &CommonMembers(),
                                  {Get<&CLinks::Count>(L"Count"), Method<&CLinks::Add>(L"Add")});
  return table;
}

void CLinks::Add(const CArguments& arguments) {
  const auto* contact = ObjectBehind<CContactItem>(arguments.Object(0));
  if (contact == nullptr || contact->IsNew()) throw CModelError(E_INVALIDARG, "No such contact.");
  m_item->links.push_back(contact->Text(field::kFileAs));
}

CMailItem::CMailItem(CSession& session, StoredItemPtr item, FolderNode* home)
    : CItem(session, std::move(item), home, Members(), ObjectClass::Mail) {}

const CMemberTable& CMailItem::Members() {
  static const CMemberTable table("MailItem", L"_MailItem", &ItemMembers(), {});
  return table;
}

}  // namespace quor::workbench
