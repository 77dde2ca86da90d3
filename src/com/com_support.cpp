// The functions of comdef.h that mingw declares but does not implement, and the text conversions.
#include "com/com_pointers.h"
#include "text/ansi.h"

_COM_SMARTPTR_TYPEDEF(ISupportErrorInfo, IID_ISupportErrorInfo);

namespace _com_util {

BSTR WINAPI ConvertStringToBSTR(const char* text) {
  if (text == nullptr) return nullptr;
  return quor::BstrFromText(quor::WideFromAnsi(text)).Detach();
}

char* WINAPI ConvertBSTRToString(BSTR text) {
  if (text == nullptr) return nullptr;
  const std::string ansi = quor::AnsiFromWide(quor::TextFromBstr(text));
  char* result = new char[ansi.size() + 1];
  ansi.copy(result, ansi.size());
  result[ansi.size()] = '\0';
  return result;
}

}  // namespace _com_util

void WINAPI _com_issue_errorex(HRESULT result, IUnknown* object, REFIID iid) {
  IErrorInfo* info = nullptr;
  ISupportErrorInfoPtr support;
  if (object != nullptr && SUCCEEDED(object->QueryInterface(IID_ISupportErrorInfo,
                                                            reinterpret_cast<void**>(&support)))) {
    if (support->InterfaceSupportsErrorInfo(iid) == S_OK) GetErrorInfo(0, &info);
  }
  throw _com_error(result, info, false);
}

namespace quor {

_bstr_t BstrFromText(std::wstring_view text) {
  BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (copy == nullptr) _com_issue_error(E_OUTOFMEMORY);
  return {copy, false};
}

_variant_t VariantFromText(std::wstring_view text) {
  VARIANT value;
  value.vt = VT_BSTR;
  value.bstrVal = BstrFromText(text).Detach();
  return {value, false};
}

std::wstring TextFromBstr(BSTR text) {
  return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
}

_variant_t MissingArgument() {
  return {static_cast<long>(DISP_E_PARAMNOTFOUND), VT_ERROR};
}

}  // namespace quor
