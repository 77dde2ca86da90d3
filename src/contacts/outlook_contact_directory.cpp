#include "contacts/outlook_contact_directory.h"

#include "text/ansi.h"

namespace quor {
namespace {

constexpr int kBusinessNumber = 2;

}  // namespace

bool COutlookContactDirectory::FindContactFileAs(std::string_view entryId, std::string& fileAs) {
  const std::optional<std::wstring> found = FileAs(entryId);
  if (found) fileAs = AnsiFromWide(*found);
  return found.has_value();
}

std::optional<std::wstring> COutlookContactDirectory::FileAs(std::string_view entryId) {
  m_log.Write("CAddin::FindContactFileAs\n");
  try {
    return ReadFileAs(entryId);
  } catch (const _com_error&) {
    return std::nullopt;
  }
}

std::optional<std::wstring> COutlookContactDirectory::ReadFileAs(std::string_view entryId) {
  // A copy: a shutdown inside a call lets go of the application.
  const COutlookApplication application = m_application;
  const CNameSpace nameSpace = application.GetNamespace();
  const std::wstring store = nameSpace.GetDefaultFolder(kFolderContacts).StoreId();
  if (entryId.empty()) {
    m_log.Write("CAddin::entry ID is empty\n");
    return std::nullopt;
  }
  IDispatchPtr item;
  try {
    item = nameSpace.GetItemFromId(WideFromAnsi(entryId), store);
  } catch (const _com_error&) {
    m_log.Write("CAddin::GetItemFromID is failed\n");
    return std::nullopt;
  }
  const CContactItem contact = QueryObject<CContactItem>(item);
  if (!contact) {
    m_log.Write("CAddin::spContactItem is NULL\n");
    return std::nullopt;
  }
  std::wstring fileAs;
  try {
    fileAs = contact.FileAs();
  } catch (const _com_error&) {
    m_log.Write("CAddin::get_FileAs is failed\n");
    return std::nullopt;
  }
  if (!m_folders.IsTracked(contact.Parent())) {
    m_log.Write("CAddin::CheckContactsFolder check is failed\n");
    return std::nullopt;
  }
  return fileAs;
}

CContactItem COutlookContactDirectory::OpenInStore(const CNameSpace& nameSpace,
                                                   std::string_view entryId,
                                                   std::wstring_view store) {
  return QueryObject<CContactItem>(nameSpace.GetItemFromId(WideFromAnsi(entryId), store));
}

CContactItem COutlookContactDirectory::Open(std::string_view entryId) {
  try {
    const COutlookApplication application = m_application;
    const CNameSpace nameSpace = application.GetNamespace();
    const std::wstring store = nameSpace.GetDefaultFolder(kFolderContacts).StoreId();
    return OpenInStore(nameSpace, entryId, store);
  } catch (const _com_error&) {
    return CContactItem();
  }
}

std::optional<std::wstring> COutlookContactDirectory::PhoneNumber(std::string_view entryId,
                                                                  int telNumberType) {
  try {
    const CContactItem contact = Open(entryId);
    if (!contact) return std::nullopt;
    return contact.TelephoneNumber(telNumberType);
  } catch (const _com_error&) {
    return std::nullopt;
  }
}

CContactItem COutlookContactDirectory::Create(std::wstring_view number) {
  try {
    const COutlookApplication application = m_application;
    const CContactItem contact =
        QueryObject<CContactItem>(application.CreateItem(kItemTypeContact));
    if (contact) contact.SetTelephoneNumber(kBusinessNumber, number);
    return contact;
  } catch (const _com_error&) {
    return CContactItem();
  }
}

}  // namespace quor
