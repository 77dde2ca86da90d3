#ifndef QUOR_COM_COM_POINTERS_H
#define QUOR_COM_COM_POINTERS_H

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <comdef.h>
// clang-format on

#include <string>
#include <string_view>

// mingw's headers do not define the usual smart pointer types.
_COM_SMARTPTR_TYPEDEF(IUnknown, IID_IUnknown);
_COM_SMARTPTR_TYPEDEF(IDispatch, IID_IDispatch);
_COM_SMARTPTR_TYPEDEF(ITypeInfo, IID_ITypeInfo);

namespace quor {

// Converts UTF-16 text to a BSTR; embedded NULs are kept. Throws _com_error(E_OUTOFMEMORY).
_bstr_t BstrFromText(std::wstring_view text);
_variant_t VariantFromText(std::wstring_view text);

// The text of a BSTR; empty for a null BSTR.
std::wstring TextFromBstr(BSTR text);

// The value to pass for an omitted optional argument.
_variant_t MissingArgument();

}  // namespace quor

#endif
