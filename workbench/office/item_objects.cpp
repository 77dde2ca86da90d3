#include "workbench/office/item_objects.h"

#include <utility>

#include "workbench/office/folder_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {
namespace {

constexpr wchar_t kContactItem[] = L"_ContactItem";

struct ItemKind {
  ItemType type;
  ObjectClass objectClass;
  const wchar_t* messageClass;
};
constexpr ItemKind kKinds[] = {
    {ItemType::Contact, ObjectClass::Contact, L"IPM.Contact"},
    {ItemType::DistributionList, ObjectClass::DistributionList, L"IPM.DistList"},
    {ItemType::Journal, ObjectClass::Journal, L"IPM.Activity"},
};

const ItemKind& KindOf(ItemType type) {
  for (const ItemKind& kind : kKinds) {
    if (kind.type == type) return kind;
  }
  throw CModelError(E_NOTIMPL, "Items of this type are not kept here.");
}

// The members of every item type, with the text properties of this one.
std::vector<Member> MembersWithTexts(const wchar_t* interfaceName) {
  using Self = CItem;
  std::vector<Member> members = {Get(L"EntryID", [](Self& self) { return self.Stored()->entryId; }),
                                 Method(L"Save", [](Self& self) { self.SaveChanges(); }),
                                 Method(L"Display", 0, [](Self& self) { self.Display(); })};
  for (const PublishedMember& one : PublishedMembers()) {
    const bool text = one.result == VT_BSTR && (one.kinds & DISPATCH_PROPERTYPUT) != 0;
    if (one.interfaceName != interfaceName || !text) continue;
    members.push_back(Property(
        one.name,
        [](Self& self, const CArguments& arguments) { return self.Text(arguments.Member()); },
        [](Self& self, const CArguments& arguments) {
          self.SetText(arguments.Member(), arguments.Text(0));
        }));
  }
  return members;
}

// One contact among the links of an item.
class CLink final : public CAutomation {
 public:
  CLink(CModel& model, std::wstring name)
      : CAutomation(model, Members()), m_name(std::move(name)) {}

 private:
  static const CMemberTable& Members() {
    static const CMemberTable table("Link", L"Link", nullptr,
                                    {Get(L"Name", [](CLink& self) { return self.m_name; })});
    return table;
  }

  const std::wstring m_name;
};

}  // namespace

DISPID TextPropertyByName(std::wstring_view name) {
  const PublishedMember* property = FindPublished(kContactItem, name, DISPATCH_PROPERTYPUT);
  if (property == nullptr || property->result != VT_BSTR) {
    throw CModelError(E_INVALIDARG, "There is no such property.");
  }
  return property->id;
}

CItem::CItem(CSession& session, StoredItemPtr item, FolderNode* home)
    : COutlookObject(session, Members(item->type), KindOf(item->type).objectClass),
      m_item(std::move(item)),
      m_homeId(home != nullptr ? home->entryId : std::wstring()),
      m_new(home != nullptr) {
  m_item->object = this;
}

const CMemberTable& CItem::Members(ItemType type) {
  using Self = CItem;
  static const CMemberTable contact("ContactItem", kContactItem, &CommonMembers(),
                                    MembersWithTexts(kContactItem), {L"ItemEvents"});
  static const CMemberTable list("DistListItem", L"_DistListItem", &CommonMembers(),
                                 MembersWithTexts(L"_DistListItem"), {L"ItemEvents"});
  static const CMemberTable journal = [] {
    std::vector<Member> members = MembersWithTexts(L"_JournalItem");
    members.push_back(Property<&Self::Start, &Self::SetStart>(L"Start"));
    members.push_back(Property(
        L"Duration", [](Self& self) { return _wtol(self.Text(field::kJournalDuration).c_str()); },
        [](Self& self, const CArguments& arguments) {
          self.SetText(field::kJournalDuration, std::to_wstring(arguments.Long(0)));
        }));
    members.push_back(
        Get(L"Links", [](Self& self) { return MakeObject<CLinks>(self.Session(), self.m_item); }));
    return CMemberTable("JournalItem", L"_JournalItem", &CommonMembers(), std::move(members),
                        {L"ItemEvents"});
  }();
  return type == ItemType::Contact ? contact : type == ItemType::Journal ? journal : list;
}

std::string CItem::ObjectName() const {
  const std::wstring name = Text(field::kFileAs);
  return Utf8FromWide(name.empty() ? Text(field::kSubject) : name);
}

std::wstring CItem::Text(DISPID property) const {
  if (const std::wstring* changed = m_changes.Find(property)) return *changed;
  if (const std::wstring* stored = m_item->fields.Find(property)) return *stored;
  return property == field::kMessageClass ? KindOf(m_item->type).messageClass : L"";
}

void CItem::SetText(DISPID property, const std::wstring& text) {
  m_changes.Set(property, text);
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

void CItem::OnGone() noexcept {
  if (m_item->object == this) m_item->object = nullptr;
  COutlookObject::OnGone();
}

CValue CItem::Parent() {
  FolderNode* folder = m_item->folder;
  if (m_new) folder = Session().Mailbox().FolderById(m_homeId, {});
  if (folder == nullptr) throw CModelError(kObjectDeleted, "The item has been deleted.");
  return {Session().FolderObject(*folder).get()};
}

CValue CItem::Start() {
  VARIANT date;
  V_VT(&date) = VT_DATE;
  V_DATE(&date) = _wtof(Text(field::kJournalStart).c_str());
  return CValue::Copy(date);
}

void CItem::Display() {
  Session().ShowInspector(*Session().InspectorFor(*this));
}

void CItem::SetStart(const CArguments& arguments) {
  const VARIANT& date = arguments.Variant(0);
  if (V_VT(&date) != VT_DATE) throw CArgumentError(DISP_E_TYPEMISMATCH, 0);
  SetText(field::kJournalStart, std::to_wstring(V_DATE(&date)));
}

CLinks::CLinks(CSession& session, StoredItemPtr item)
    : CCollection(session, Members(), ObjectClass::Links), m_item(std::move(item)) {}

const CMemberTable& CLinks::Members() {
  static const CMemberTable table("Links", L"Links", &CollectionMembers(),
                                  {Method<&CLinks::Add>(L"Add")});
  return table;
}

CValue CLinks::At(size_t position) {
  return {MakeObject<CLink>(Session().Model(), m_item->links[position]).get()};
}

CValue CLinks::Add(const CArguments& arguments) {
  const auto* contact = ObjectBehind<CItem>(arguments.Object(0));
  if (contact == nullptr || contact->Stored()->type != ItemType::Contact || contact->IsNew()) {
    throw CModelError(E_INVALIDARG, "No such contact.");
  }
  m_item->links.push_back(contact->Text(field::kFileAs));
  return At(m_item->links.size() - 1);
}

}  // namespace quor::workbench
