#ifndef QUOR_ADDIN_CUSTOM_UI_H
#define QUOR_ADDIN_CUSTOM_UI_H

#include <string_view>

#include "com/com_pointers.h"
#include "resources/resource_loader.h"

namespace quor {

// The resource with the document of a ribbon; 0 if we have none for it. The id's case matters.
int RibbonDocumentResource(std::wstring_view ribbonId) noexcept;

// The document's text. Throws _com_error if the resource is missing.
_bstr_t RibbonDocument(const CResourceLoader& resources, int resource);

}  // namespace quor

#endif
