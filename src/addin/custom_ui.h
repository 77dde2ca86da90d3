#ifndef QUOR_ADDIN_CUSTOM_UI_H
#define QUOR_ADDIN_CUSTOM_UI_H

#include <string_view>

#include "com/com_pointers.h"
#include "resources/resource_loader.h"

namespace quor {

// The resource that holds the document of a ribbon; 0 for ribbons that get none. Ids are compared
// exactly, case included.
int RibbonDocumentResource(std::wstring_view ribbonId) noexcept;

// The document's text. Throws _com_error when the module lacks it.
_bstr_t RibbonDocument(const CResourceLoader& resources, int resource);

}  // namespace quor

#endif
