#ifndef QUOR_COM_COM_POINTERS_H
#define QUOR_COM_COM_POINTERS_H

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <comdef.h>
// clang-format on

#include <string>
#include <string_view>

// mingw leaves the usual pointer types to their users.
_COM_SMARTPTR_TYPEDEF(IUnknown, IID_IUnknown);
_COM_SMARTPTR_TYPEDEF(IDispatch, IID_IDispatch);

namespace quor {

// UTF-16 text as COM wants it; embedded NULs survive. Throws _com_error(E_OUTOFMEMORY).
_bstr_t BstrFromText(std::wstring_view text);
_variant_t VariantFromText(std::wstring_view text);

// The text of a BSTR, a null one read as empty.
std::wstring TextFromBstr(BSTR text);

// The value for an optional argument that is left out before a given one.
_variant_t MissingArgument();

}  // namespace quor

#endif
