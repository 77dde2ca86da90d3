#include "contacts/outlook_contact_directory.h"

#include "text/ansi.h"

namespace quor {
namespace {

constexpr int kBusinessNumber = 2;

constexpr const char* kOpeningLine = "CAddin::FindContactFileAs\n";

}  // namespace

bool COutlookContactDirectory::FindContactFileAs(std::string_view entryId, std::string& fileAs) {
  std::shared_ptr<const OpenContact> contact = OpenTracked(entryId);
  if (!contact) return false;
  fileAs = AnsiFromWide(contact->fileAs);
  m_opened = std::move(contact);
  return true;
}

std::optional<std::wstring> COutlookContactDirectory::FileAs(std::string_view entryId,
                                                             const OpenContact* opened) {
  if (opened != nullptr) {
    m_log.Write(kOpeningLine);
    return opened->fileAs;
  }
  const std::shared_ptr<const OpenContact> contact = OpenTracked(entryId);
  return contact ? std::optional(contact->fileAs) : std::nullopt;
}

std::shared_ptr<const OpenContact> COutlookContactDirectory::OpenTracked(std::string_view entryId) {
  m_log.Write(kOpeningLine);
  try {
    return ReadTracked(entryId);
  } catch (const _com_error&) {
    return nullptr;
  }
}

std::shared_ptr<const OpenContact> COutlookContactDirectory::ReadTracked(std::string_view entryId) {
  // A copy, because a shutdown inside a call releases m_application.
  const COutlookApplication application = m_application;
  const CNameSpace nameSpace = application.GetNamespace();
  const std::wstring store = nameSpace.GetDefaultFolder(kFolderContacts).StoreId();
  if (entryId.empty()) {
    m_log.Write("CAddin::entry ID is empty\n");
    return nullptr;
  }
  IDispatchPtr item;
  try {
    item = nameSpace.GetItemFromId(WideFromAnsi(entryId), store);
  } catch (const _com_error&) {
    m_log.Write("CAddin::GetItemFromID is failed\n");
    return nullptr;
  }
  const auto contact = QueryObject<CContactItem>(item);
  if (!contact) {
    m_log.Write("CAddin::spContactItem is NULL\n");
    return nullptr;
  }
  std::wstring fileAs;
  try {
    fileAs = contact.FileAs();
  } catch (const _com_error&) {
    m_log.Write("CAddin::get_FileAs is failed\n");
    return nullptr;
  }
  if (!m_tracked.IsTracked(contact.Parent())) {
    m_log.Write("CAddin::CheckContactsFolder check is failed\n");
    return nullptr;
  }
  return std::make_shared<OpenContact>(OpenContact{contact, std::move(fileAs)});
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
    return {};
  }
}

std::optional<std::wstring> COutlookContactDirectory::PhoneNumber(std::string_view entryId,
                                                                  int telNumberType,
                                                                  const OpenContact* opened) {
  try {
    const CContactItem contact = opened != nullptr ? opened->item : Open(entryId);
    if (!contact) return std::nullopt;
    return contact.TelephoneNumber(telNumberType);
  } catch (const _com_error&) {
    return std::nullopt;
  }
}

CContactItem COutlookContactDirectory::Create(std::wstring_view number) {
  try {
    const COutlookApplication application = m_application;
    auto contact = QueryObject<CContactItem>(application.CreateItem(kItemTypeContact));
    if (contact) contact.SetTelephoneNumber(kBusinessNumber, number);
    return contact;
  } catch (const _com_error&) {
    return {};
  }
}

}  // namespace quor
