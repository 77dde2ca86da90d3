#include "workbench/office/value.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace quor::workbench {

std::string Utf8FromWide(std::wstring_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
  return result;
}

std::wstring WideFromUtf8(std::string_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring result(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), size);
  return result;
}

std::wstring WideFromBstr(BSTR text) {
  return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
}

bool SameText(std::wstring_view left, std::wstring_view right) noexcept {
  return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

CValue::CValue(std::wstring_view text) : CValue() {
  V_BSTR(&m_value) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (V_BSTR(&m_value) == nullptr) throw std::bad_alloc();
  V_VT(&m_value) = VT_BSTR;
}

CValue::CValue(IDispatch* object) noexcept : CValue() {
  V_VT(&m_value) = VT_DISPATCH;
  V_DISPATCH(&m_value) = object;
  if (object != nullptr) object->AddRef();
}

CValue CValue::Reference(VARIANT_BOOL& flag) noexcept {
  CValue value;
  V_VT(&value.m_value) = VT_BYREF | VT_BOOL;
  V_BOOLREF(&value.m_value) = &flag;
  return value;
}

CValue CValue::Copy(const VARIANT& source) {
  CValue value;
  if (FAILED(VariantCopy(&value.m_value, const_cast<VARIANT*>(&source)))) throw std::bad_alloc();
  return value;
}

CValue CValue::Adopt(const VARIANT& source) noexcept {
  CValue value;
  value.m_value = source;
  return value;
}

CValue& CValue::operator=(CValue&& other) noexcept {
  if (this != &other) {
    VariantClear(&m_value);
    m_value = other.Detach();
  }
  return *this;
}

VARIANT CValue::Detach() noexcept {
  const VARIANT value = m_value;
  VariantInit(&m_value);
  return value;
}

std::vector<VARIANT> ReversedArguments(const std::vector<CValue>& arguments) {
  std::vector<VARIANT> reversed;
  reversed.reserve(arguments.size());
  std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                 [](const CValue& argument) { return argument.Get(); });
  return reversed;
}

HRESULT InvokeLate(IDispatch& object, DISPID id, WORD flags, const std::vector<CValue>& arguments,
                   VARIANT* result) {
  std::vector<VARIANT> reversed = ReversedArguments(arguments);
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  EXCEPINFO exception = {};
  const HRESULT code = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                     &exception, nullptr);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  return code == DISP_E_EXCEPTION && FAILED(exception.scode) ? exception.scode : code;
}

std::string Summary(const VARIANT& value) {
  constexpr size_t kLongestText = 120;
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return {};
    case VT_BSTR: {
      std::wstring text = WideFromBstr(V_BSTR(&value));
      const bool cut = text.size() > kLongestText;
      if (cut) text.resize(kLongestText);
      return '"' + Utf8FromWide(text) + (cut ? "...\"" : "\"");
    }
    case VT_BOOL:
      return V_BOOL(&value) != VARIANT_FALSE ? "True" : "False";
    case VT_I2:
      return std::to_string(V_I2(&value));
    case VT_I4:
      return std::to_string(V_I4(&value));
    case VT_ERROR:
      return "missing";
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return V_UNKNOWN(&value) == nullptr ? "nothing" : "object";
    case VT_BYREF | VT_VARIANT:
      return Summary(*V_VARIANTREF(&value));
    case VT_BYREF | VT_BOOL:
      return *V_BOOLREF(&value) != VARIANT_FALSE ? "ref True" : "ref False";
    default:
      return "type " + std::to_string(V_VT(&value));
  }
}

UINT CArguments::PositionOf(UINT index) const {
  if (index >= m_parameters.cArgs) throw CArgumentError(DISP_E_PARAMNOTOPTIONAL, 0);
  return m_parameters.cArgs - 1 - index;
}

const VARIANT& CArguments::Variant(UINT index) const {
  const VARIANT& value = m_parameters.rgvarg[PositionOf(index)];
  return V_VT(&value) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&value) : value;
}

bool CArguments::IsMissing(UINT index) const noexcept {
  if (index >= m_parameters.cArgs) return true;
  const VARIANT& value = m_parameters.rgvarg[m_parameters.cArgs - 1 - index];
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

CValue CArguments::Converted(UINT index, VARTYPE type) const {
  if (IsMissing(index)) throw CArgumentError(DISP_E_PARAMNOTOPTIONAL, 0);
  const VARIANT& source = Variant(index);
  const VARTYPE plain = V_VT(&source) & VT_TYPEMASK;
  VARIANT target;
  VariantInit(&target);
  // VariantChangeType would ask an object for its default member, which no member here accepts.
  if (plain == VT_DISPATCH || plain == VT_UNKNOWN ||
      FAILED(VariantChangeType(&target, const_cast<VARIANT*>(&source), 0, type))) {
    throw CArgumentError(DISP_E_TYPEMISMATCH, PositionOf(index));
  }
  CValue value = CValue::Copy(target);
  VariantClear(&target);
  return value;
}

std::wstring CArguments::Text(UINT index) const {
  return WideFromBstr(V_BSTR(&Converted(index, VT_BSTR).Get()));
}

bool CArguments::IsText(UINT index) const {
  return !IsMissing(index) && (V_VT(&Variant(index)) & VT_TYPEMASK) == VT_BSTR;
}

IDispatch* CArguments::Object(UINT index) const {
  const VARIANT& value = Variant(index);
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return nullptr;
    case VT_DISPATCH:
      return V_DISPATCH(&value);
    case VT_BYREF | VT_DISPATCH:
      return *V_DISPATCHREF(&value);
    default:
      throw CArgumentError(DISP_E_TYPEMISMATCH, PositionOf(index));
  }
}

std::string CArguments::Summary() const {
  std::string summary;
  for (UINT index = 0; index < Count(); ++index) {
    if (index != 0) summary += ", ";
    summary += workbench::Summary(Variant(index));
  }
  return summary;
}

}  // namespace quor::workbench
