#ifndef QUOR_WORKBENCH_OFFICE_OUTLOOK_IDS_H
#define QUOR_WORKBENCH_OFFICE_OUTLOOK_IDS_H

#include "workbench/office/value.h"

// Values from Outlook's type library: interface ids, dispatch ids, enumeration values.

namespace quor::workbench {

// Interface ids of Outlook and Office differ only in their first part.
constexpr IID OfficeId(unsigned long head) noexcept {
  return {head, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
}

inline constexpr IID kApplicationId = OfficeId(0x00063001);
inline constexpr IID kNameSpaceId = OfficeId(0x00063002);
inline constexpr IID kExplorerId = OfficeId(0x00063003);
inline constexpr IID kInspectorId = OfficeId(0x00063005);
inline constexpr IID kFolderId = OfficeId(0x00063006);
inline constexpr IID kInspectorsId = OfficeId(0x00063008);
inline constexpr IID kExplorersId = OfficeId(0x0006300A);
inline constexpr IID kContactItemId = OfficeId(0x00063021);
inline constexpr IID kMailItemId = OfficeId(0x00063034);
inline constexpr IID kJournalItemId = OfficeId(0x00063022);
inline constexpr IID kFoldersId = OfficeId(0x00063040);
inline constexpr IID kItemsId = OfficeId(0x00063041);
inline constexpr IID kPropertyPageId = OfficeId(0x0006307E);
inline constexpr IID kPropertyPageSiteId = OfficeId(0x0006307F);
inline constexpr IID kPropertyPagesId = OfficeId(0x00063080);
inline constexpr IID kDistListItemId = OfficeId(0x00063081);
inline constexpr IID kSelectionId = OfficeId(0x00063087);
inline constexpr IID kComAddInsId = OfficeId(0x000C0339);
inline constexpr IID kComAddInId = OfficeId(0x000C033A);

inline constexpr IID kInspectorEvents10Id = OfficeId(0x0006302A);
inline constexpr IID kApplicationEvents11Id = OfficeId(0x0006302C);
inline constexpr IID kApplicationEvents10Id = OfficeId(0x0006300E);
inline constexpr IID kExplorerEvents10Id = OfficeId(0x0006300F);
inline constexpr IID kItemEventsId = OfficeId(0x0006303A);
inline constexpr IID kApplicationEventsId = OfficeId(0x0006304E);
inline constexpr IID kExplorerEventsId = OfficeId(0x0006304F);
inline constexpr IID kFoldersEventsId = OfficeId(0x00063076);
inline constexpr IID kItemsEventsId = OfficeId(0x00063077);
inline constexpr IID kExplorersEventsId = OfficeId(0x00063078);
inline constexpr IID kInspectorsEventsId = OfficeId(0x00063079);
inline constexpr IID kInspectorEventsId = OfficeId(0x0006307D);
inline constexpr IID kNameSpaceEventsId = OfficeId(0x0006308C);

enum class ObjectClass : long {
  Application = 0,
  Namespace = 1,
  Folder = 2,
  Folders = 15,
  Items = 16,
  Explorer = 34,
  Inspector = 35,
  Contact = 40,
  Mail = 43,
  Explorers = 60,
  Inspectors = 61,
  Journal = 42,
  DistributionList = 69,
  PropertyPageSite = 70,
  PropertyPages = 71,
  Selection = 74,
  Links = 75,
};

// Text properties of items; the dispatch ids are the MAPI property ids.
namespace field {
inline constexpr DISPID kMessageClass = 0x001A;
inline constexpr DISPID kSubject = 0x0037;
inline constexpr DISPID kFullName = 0x3001;
inline constexpr DISPID kFirstName = 0x3A06;
inline constexpr DISPID kLastName = 0x3A11;
inline constexpr DISPID kCompanyName = 0x3A16;
inline constexpr DISPID kFileAs = 0x8005;
inline constexpr DISPID kJournalType = 0x8700;
inline constexpr DISPID kJournalStart = 0x8706;
inline constexpr DISPID kJournalDuration = 0x8707;
inline constexpr DISPID kBody = 0x9100;
}  // namespace field

// The nineteen number properties of a contact.
struct NumberProperty {
  const wchar_t* name;
  DISPID id;
};
inline constexpr NumberProperty kNumberProperties[] = {
    {L"AssistantTelephoneNumber", 0x3A2E},
    {L"BusinessTelephoneNumber", 0x3A08},
    {L"Business2TelephoneNumber", 0x3A1B},
    {L"CallbackTelephoneNumber", 0x3A02},
    {L"CarTelephoneNumber", 0x3A1E},
    {L"CompanyMainTelephoneNumber", 0x3A57},
    {L"HomeTelephoneNumber", 0x3A09},
    {L"Home2TelephoneNumber", 0x3A2F},
    {L"ISDNNumber", 0x3A2D},
    {L"MobileTelephoneNumber", 0x3A1C},
    {L"OtherTelephoneNumber", 0x3A1F},
    {L"PrimaryTelephoneNumber", 0x3A1A},
    {L"BusinessFaxNumber", 0x3A24},
    {L"HomeFaxNumber", 0x3A25},
    {L"OtherFaxNumber", 0x3A23},
    {L"PagerNumber", 0x3A21},
    {L"RadioTelephoneNumber", 0x3A1D},
    {L"TelexNumber", 0x3A2C},
    {L"TTYTDDTelephoneNumber", 0x3A4B},
};

// Errors that Outlook returns.
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x8004010FL);  // MAPI_E_NOT_FOUND
inline constexpr HRESULT kObjectDeleted =
    static_cast<HRESULT>(0x8004010AL);  // MAPI_E_OBJECT_DELETED
inline constexpr HRESULT kCancelled = E_ABORT;

}  // namespace quor::workbench

#endif
