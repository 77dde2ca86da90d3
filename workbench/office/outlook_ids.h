#ifndef QUOR_WORKBENCH_OFFICE_OUTLOOK_IDS_H
#define QUOR_WORKBENCH_OFFICE_OUTLOOK_IDS_H

#include "workbench/office/value.h"

// Values from Outlook's type library beside its members: enumerations, ids of fields, errors.

namespace quor::workbench {

// Not in the published members.
inline constexpr IID kPropertyPageId = {
    0x0006307E, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

enum class ObjectClass : long {
  Application = 0,
  Namespace = 1,
  Folder = 2,
  Folders = 15,
  Items = 16,
  Explorer = 34,
  Inspector = 35,
  Contact = 40,
  Explorers = 60,
  Inspectors = 61,
  Journal = 42,
  DistributionList = 69,
  PropertyPageSite = 70,
  PropertyPages = 71,
  Selection = 74,
  Links = 76,
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
inline constexpr const wchar_t* kNumberProperties[] = {
    L"AssistantTelephoneNumber",
    L"BusinessTelephoneNumber",
    L"Business2TelephoneNumber",
    L"CallbackTelephoneNumber",
    L"CarTelephoneNumber",
    L"CompanyMainTelephoneNumber",
    L"HomeTelephoneNumber",
    L"Home2TelephoneNumber",
    L"ISDNNumber",
    L"MobileTelephoneNumber",
    L"OtherTelephoneNumber",
    L"PrimaryTelephoneNumber",
    L"BusinessFaxNumber",
    L"HomeFaxNumber",
    L"OtherFaxNumber",
    L"PagerNumber",
    L"RadioTelephoneNumber",
    L"TelexNumber",
    L"TTYTDDTelephoneNumber",
};

// Errors that Outlook returns.
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x8004010FL);  // MAPI_E_NOT_FOUND
inline constexpr HRESULT kObjectDeleted =
    static_cast<HRESULT>(0x8004010AL);  // MAPI_E_OBJECT_DELETED
inline constexpr HRESULT kCancelled = E_ABORT;

}  // namespace quor::workbench

#endif
