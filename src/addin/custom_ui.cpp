#include "addin/custom_ui.h"

#include "resources/resource_ids.h"

namespace quor {

int RibbonDocumentResource(std::wstring_view ribbonId) noexcept {
  if (ribbonId == L"Microsoft.Outlook.Contact") return IDX_RIBBON_CONTACT;
  if (ribbonId == L"Microsoft.Outlook.Explorer") return IDX_RIBBON_EXPLORER;
  return 0;
}

_bstr_t RibbonDocument(const CResourceLoader& resources, int resource) {
  const std::span<const std::byte> bytes = resources.Data(L"XML", resource);
  if (bytes.empty()) _com_issue_error(HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND));
  // The documents are ASCII: they contain identifiers only.
  std::wstring document;
  document.reserve(bytes.size());
  for (const std::byte byte : bytes) {
    document.push_back(static_cast<wchar_t>(byte));
  }
  return BstrFromText(document);
}

}  // namespace quor
