#include "outlook/object_model.h"

namespace quor {
namespace {

constexpr IID kApplicationId = OfficeId(0x00063001);
constexpr IID kNameSpaceId = OfficeId(0x00063002);
constexpr IID kExplorerId = OfficeId(0x00063003);
constexpr IID kInspectorId = OfficeId(0x00063005);
constexpr IID kFolderId = OfficeId(0x00063006);
constexpr IID kInspectorsId = OfficeId(0x00063008);
constexpr IID kExplorersId = OfficeId(0x0006300A);
constexpr IID kContactItemId = OfficeId(0x00063021);
constexpr IID kJournalItemId = OfficeId(0x00063022);
constexpr IID kFoldersId = OfficeId(0x00063040);
constexpr IID kItemsId = OfficeId(0x00063041);
constexpr IID kPropertyPagesId = OfficeId(0x00063080);
constexpr IID kSelectionId = OfficeId(0x00063087);

_variant_t Index(int32_t index) {
  return {static_cast<long>(index)};
}

}  // namespace

const IID kApplicationEvents = OfficeId(0x0006304E);
const IID kExplorerEvents = OfficeId(0x0006304F);
const IID kItemEvents = OfficeId(0x0006303A);
const IID kFoldersEvents = OfficeId(0x00063076);
const IID kItemsEvents = OfficeId(0x00063077);
const IID kExplorersEvents = OfficeId(0x00063078);
const IID kInspectorsEvents = OfficeId(0x00063079);
const IID kInspectorEvents = OfficeId(0x0006307D);

CContactItem::CContactItem(const IDispatchPtr& object) : CDispatchObject(object, kContactItemId) {}
REFIID CContactItem::InterfaceId() noexcept {
  return kContactItemId;
}

namespace {

CMemberId& TelephoneMember(int telNumberType) {
  static CMemberId members[kLastTelNumberType] = {CMemberId(L"AssistantTelephoneNumber"),
                                                  CMemberId(L"BusinessTelephoneNumber"),
                                                  CMemberId(L"Business2TelephoneNumber"),
                                                  CMemberId(L"CallbackTelephoneNumber"),
                                                  CMemberId(L"CarTelephoneNumber"),
                                                  CMemberId(L"CompanyMainTelephoneNumber"),
                                                  CMemberId(L"HomeTelephoneNumber"),
                                                  CMemberId(L"Home2TelephoneNumber"),
                                                  CMemberId(L"ISDNNumber"),
                                                  CMemberId(L"MobileTelephoneNumber"),
                                                  CMemberId(L"OtherTelephoneNumber"),
                                                  CMemberId(L"PrimaryTelephoneNumber")};
  if (!IsTelNumberType(telNumberType)) _com_issue_error(E_INVALIDARG);
  return members[telNumberType - kFirstTelNumberType];
}

}  // namespace

int TelNumberTypeOf(std::wstring_view property) {
  for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
    if (property == TelephoneMember(type).Name()) return type;
  }
  return 0;
}

CText CContactItem::EntryId() const {
  static CMemberId member(L"EntryID");
  return GetText(member);
}

CText CContactItem::FileAs() const {
  static CMemberId member(L"FileAs");
  return GetText(member);
}

CText CContactItem::TelephoneNumber(int telNumberType) const {
  return GetText(TelephoneMember(telNumberType));
}

void CContactItem::SetTelephoneNumber(int telNumberType, std::wstring_view number) const {
  PutText(TelephoneMember(telNumberType), number);
}

void CContactItem::SetFullName(std::wstring_view name) const {
  static CMemberId member(L"FullName");
  PutText(member, name);
}

IDispatchPtr CContactItem::Parent() const {
  static CMemberId member(L"Parent");
  return ObjectFrom(GetProperty(member));
}

void CContactItem::Save() const {
  static CMemberId member(L"Save");
  CallMethod(member);
}

void CContactItem::Display() const {
  static CMemberId member(L"Display");
  CallMethod(member);
}

namespace {

class CLinks : public CDispatchObject {
 public:
  explicit CLinks(const IDispatchPtr& object) : CDispatchObject(object, IID_IDispatch) {}

  void Add(const CContactItem& contact) const {
    static CMemberId member(L"Add");
    CallMethod(member, _variant_t(contact.Get()));
  }
};

}  // namespace

CJournalItem::CJournalItem(const IDispatchPtr& object) : CDispatchObject(object, kJournalItemId) {}
REFIID CJournalItem::InterfaceId() noexcept {
  return kJournalItemId;
}

void CJournalItem::SetSubject(std::wstring_view subject) const {
  static CMemberId member(L"Subject");
  PutText(member, subject);
}

void CJournalItem::SetType(std::wstring_view type) const {
  static CMemberId member(L"Type");
  PutText(member, type);
}

void CJournalItem::SetStart(double date) const {
  static CMemberId member(L"Start");
  PutProperty(member, _variant_t(date, VT_DATE));
}

void CJournalItem::SetDuration(int32_t minutes) const {
  static CMemberId member(L"Duration");
  PutLong(member, minutes);
}

void CJournalItem::SetBody(std::wstring_view body) const {
  static CMemberId member(L"Body");
  PutText(member, body);
}

void CJournalItem::AddLink(const CContactItem& contact) const {
  static CMemberId member(L"Links");
  CLinks(ObjectFrom(GetProperty(member))).Add(contact);
}

void CJournalItem::Save() const {
  static CMemberId member(L"Save");
  CallMethod(member);
}

CItems::CItems(const IDispatchPtr& object) : CDispatchObject(object, kItemsId) {}
REFIID CItems::InterfaceId() noexcept {
  return kItemsId;
}

int32_t CItems::Count() const {
  static CMemberId member(L"Count");
  return GetLong(member);
}

IDispatchPtr CItems::Item(int32_t index) const {
  static CMemberId member(L"Item");
  return ObjectFrom(CallMethod(member, Index(index)));
}

CFolders::CFolders(const IDispatchPtr& object) : CDispatchObject(object, kFoldersId) {}
REFIID CFolders::InterfaceId() noexcept {
  return kFoldersId;
}

int32_t CFolders::Count() const {
  static CMemberId member(L"Count");
  return GetLong(member);
}

CFolder CFolders::Item(int32_t index) const {
  static CMemberId member(L"Item");
  return CFolder(ObjectFrom(CallMethod(member, Index(index))));
}

CFolder CFolders::GetLast() const {
  static CMemberId member(L"GetLast");
  return CFolder(ObjectFrom(CallMethod(member)));
}

CFolder CFolders::GetPrevious() const {
  static CMemberId member(L"GetPrevious");
  return CFolder(ObjectFrom(CallMethod(member)));
}

CFolder::CFolder(const IDispatchPtr& object) : CDispatchObject(object, kFolderId) {}
REFIID CFolder::InterfaceId() noexcept {
  return kFolderId;
}

std::wstring CFolder::EntryId() const {
  static CMemberId member(L"EntryID");
  return GetText(member);
}

std::wstring CFolder::Name() const {
  static CMemberId member(L"Name");
  return GetText(member);
}

std::wstring CFolder::StoreId() const {
  static CMemberId member(L"StoreID");
  return GetText(member);
}

int32_t CFolder::DefaultItemType() const {
  static CMemberId member(L"DefaultItemType");
  return GetLong(member);
}

IDispatchPtr CFolder::Parent() const {
  static CMemberId member(L"Parent");
  return ObjectFrom(GetProperty(member));
}

CItems CFolder::Items() const {
  static CMemberId member(L"Items");
  return CItems(ObjectFrom(GetProperty(member)));
}

CFolders CFolder::Folders() const {
  static CMemberId member(L"Folders");
  return CFolders(ObjectFrom(GetProperty(member)));
}

CNameSpace::CNameSpace(const IDispatchPtr& object) : CDispatchObject(object, kNameSpaceId) {}
REFIID CNameSpace::InterfaceId() noexcept {
  return kNameSpaceId;
}

CFolders CNameSpace::Folders() const {
  static CMemberId member(L"Folders");
  return CFolders(ObjectFrom(GetProperty(member)));
}

CFolder CNameSpace::GetDefaultFolder(long folder) const {
  static CMemberId member(L"GetDefaultFolder");
  return CFolder(ObjectFrom(CallMethod(member, _variant_t(folder))));
}

CFolder CNameSpace::GetFolderFromId(std::wstring_view entryId, std::wstring_view storeId) const {
  static CMemberId member(L"GetFolderFromID");
  return CFolder(
      ObjectFrom(CallMethod(member, VariantFromText(entryId), VariantFromText(storeId))));
}

IDispatchPtr CNameSpace::GetItemFromId(std::wstring_view entryId, std::wstring_view storeId) const {
  static CMemberId member(L"GetItemFromID");
  if (storeId.empty()) return ObjectFrom(CallMethod(member, VariantFromText(entryId)));
  return ObjectFrom(CallMethod(member, VariantFromText(entryId), VariantFromText(storeId)));
}

CSelection::CSelection(const IDispatchPtr& object) : CDispatchObject(object, kSelectionId) {}
REFIID CSelection::InterfaceId() noexcept {
  return kSelectionId;
}

int32_t CSelection::Count() const {
  static CMemberId member(L"Count");
  return GetLong(member);
}

IDispatchPtr CSelection::Item(int32_t index) const {
  static CMemberId member(L"Item");
  return ObjectFrom(CallMethod(member, Index(index)));
}

CExplorer::CExplorer(const IDispatchPtr& object) : CDispatchObject(object, kExplorerId) {}
REFIID CExplorer::InterfaceId() noexcept {
  return kExplorerId;
}

IDispatchPtr CExplorer::CommandBars() const {
  static CMemberId member(L"CommandBars");
  return ObjectFrom(GetProperty(member));
}

CFolder CExplorer::CurrentFolder() const {
  static CMemberId member(L"CurrentFolder");
  return CFolder(ObjectFrom(GetProperty(member)));
}

CSelection CExplorer::Selection() const {
  static CMemberId member(L"Selection");
  return CSelection(ObjectFrom(GetProperty(member)));
}

CInspector::CInspector(const IDispatchPtr& object) : CDispatchObject(object, kInspectorId) {}
REFIID CInspector::InterfaceId() noexcept {
  return kInspectorId;
}

IDispatchPtr CInspector::CommandBars() const {
  static CMemberId member(L"CommandBars");
  return ObjectFrom(GetProperty(member));
}

IDispatchPtr CInspector::CurrentItem() const {
  static CMemberId member(L"CurrentItem");
  return ObjectFrom(GetProperty(member));
}

CExplorers::CExplorers(const IDispatchPtr& object) : CDispatchObject(object, kExplorersId) {}
REFIID CExplorers::InterfaceId() noexcept {
  return kExplorersId;
}

int32_t CExplorers::Count() const {
  static CMemberId member(L"Count");
  return GetLong(member);
}

CExplorer CExplorers::Item(int32_t index) const {
  static CMemberId member(L"Item");
  return CExplorer(ObjectFrom(CallMethod(member, Index(index))));
}

CInspectors::CInspectors(const IDispatchPtr& object) : CDispatchObject(object, kInspectorsId) {}
REFIID CInspectors::InterfaceId() noexcept {
  return kInspectorsId;
}

int32_t CInspectors::Count() const {
  static CMemberId member(L"Count");
  return GetLong(member);
}

COutlookApplication::COutlookApplication(const IDispatchPtr& object)
    : CDispatchObject(object, kApplicationId) {}
REFIID COutlookApplication::InterfaceId() noexcept {
  return kApplicationId;
}

std::wstring COutlookApplication::Version() const {
  static CMemberId member(L"Version");
  return GetText(member);
}

CNameSpace COutlookApplication::GetNamespace() const {
  static CMemberId member(L"GetNamespace");
  return CNameSpace(ObjectFrom(CallMethod(member, VariantFromText(L"MAPI"))));
}

CExplorers COutlookApplication::Explorers() const {
  static CMemberId member(L"Explorers");
  return CExplorers(ObjectFrom(GetProperty(member)));
}

CInspectors COutlookApplication::Inspectors() const {
  static CMemberId member(L"Inspectors");
  return CInspectors(ObjectFrom(GetProperty(member)));
}

IDispatchPtr COutlookApplication::CreateItem(int32_t itemType) const {
  static CMemberId member(L"CreateItem");
  return ObjectFrom(CallMethod(member, Index(itemType)));
}

CPropertyPages::CPropertyPages(const IDispatchPtr& object)
    : CDispatchObject(object, kPropertyPagesId) {}
REFIID CPropertyPages::InterfaceId() noexcept {
  return kPropertyPagesId;
}

void CPropertyPages::Add(IDispatch* page, std::wstring_view title) const {
  static CMemberId member(L"Add");
  CallMethod(member, _variant_t(page), VariantFromText(title));
}

}  // namespace quor
