#include "com/dispatch_object.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace quor {
namespace {

// The object's own error code: for DISP_E_EXCEPTION it is in the exception record.
HRESULT FailureFrom(HRESULT result, EXCEPINFO& exception) {
  if (result != DISP_E_EXCEPTION) return result;
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return FAILED(exception.scode) ? exception.scode : result;
}

}  // namespace

DISPID CMemberId::Resolve(IDispatch& object, REFIID iid) {
  if (m_id == DISPID_UNKNOWN) {
    auto* name = const_cast<LPOLESTR>(m_name);  // the interface is not const-correct
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result)) _com_issue_errorex(result, &object, iid);
    m_id = id;
  }
  return m_id;
}

CText::CText(VARIANT& value) {
  if (V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL) return;
  if (V_VT(&value) != VT_BSTR) {
    const HRESULT result = VariantChangeType(&value, &value, 0, VT_BSTR);
    if (FAILED(result)) {
      VariantClear(&value);
      _com_issue_error(result);
    }
  }
  m_text = V_BSTR(&value);
}

std::wstring_view CText::View() const noexcept {
  if (m_text == nullptr) return {};
  return {m_text, SysStringLen(m_text)};
}

void CDispatchObject::InvokeInto(VARIANT* value, CMemberId& member, WORD flags,
                                 std::span<const VARIANT> arguments) const {
  if (m_object == nullptr) _com_issue_error(E_POINTER);
  // Hold our own reference: the owner of this wrapper may release it while the call pumps messages.
  const IDispatchPtr object = m_object;
  const DISPID id = member.Resolve(*object, *m_iid);

  constexpr size_t kMostArguments = 5;
  VARIANT reversed[kMostArguments];
  if (arguments.size() > kMostArguments) _com_issue_error(E_INVALIDARG);
  std::reverse_copy(arguments.begin(), arguments.end(), reversed);
  DISPPARAMS parameters = {reversed, nullptr, static_cast<UINT>(arguments.size()), 0};
  DISPID putId = DISPID_PROPERTYPUT;
  if ((flags & DISPATCH_PROPERTYPUT) != 0) {
    parameters.rgdispidNamedArgs = &putId;
    parameters.cNamedArgs = 1;
  }
  EXCEPINFO exception = {};
  const HRESULT result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                        value, &exception, nullptr);
  if (SUCCEEDED(result)) return;
  if (value != nullptr) VariantClear(value);
  _com_issue_errorex(FailureFrom(result, exception), object, *m_iid);
}

_variant_t CDispatchObject::Invoke(CMemberId& member, WORD flags,
                                   std::span<const VARIANT> arguments) const {
  _variant_t value;
  InvokeInto(&value, member, flags, arguments);
  return value;
}

_variant_t CDispatchObject::GetProperty(CMemberId& member) const {
  return Invoke(member, DISPATCH_PROPERTYGET, std::span<const VARIANT>());
}

_variant_t CDispatchObject::GetIndexed(CMemberId& member, const _variant_t& index) const {
  return Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                std::span<const VARIANT>(static_cast<const VARIANT*>(&index), 1));
}

void CDispatchObject::PutProperty(CMemberId& member, const _variant_t& value) const {
  InvokeInto(nullptr, member, DISPATCH_PROPERTYPUT,
             std::span<const VARIANT>(static_cast<const VARIANT*>(&value), 1));
}

CText CDispatchObject::GetText(CMemberId& member) const {
  VARIANT value = {};
  InvokeInto(&value, member, DISPATCH_PROPERTYGET, std::span<const VARIANT>());
  return CText(value);
}

int32_t CDispatchObject::GetLong(CMemberId& member) const {
  _variant_t value = GetProperty(member);
  value.ChangeType(VT_I4);
  return V_I4(&value);
}

bool CDispatchObject::GetBool(CMemberId& member) const {
  _variant_t value = GetProperty(member);
  value.ChangeType(VT_BOOL);
  return V_BOOL(&value) != VARIANT_FALSE;
}

void CDispatchObject::PutText(CMemberId& member, std::wstring_view value) const {
  PutProperty(member, VariantFromText(value));
}

void CDispatchObject::PutLong(CMemberId& member, int32_t value) const {
  PutProperty(member, _variant_t(static_cast<long>(value)));
}

void CDispatchObject::PutBool(CMemberId& member, bool value) const {
  PutProperty(member, _variant_t(value));
}

IDispatchPtr CDispatchObject::ObjectFrom(const _variant_t& result) const {
  switch (V_VT(&result)) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_DISPATCH:
      return V_DISPATCH(&result);
    case VT_UNKNOWN: {
      IDispatchPtr object;
      IUnknown* unknown = V_UNKNOWN(&result);
      if (unknown == nullptr) return {};
      const HRESULT found =
          unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object));
      if (FAILED(found)) _com_issue_errorex(found, unknown, *m_iid);
      return object;
    }
    default:
      _com_issue_errorex(DISP_E_TYPEMISMATCH, m_object, *m_iid);
      return {};
  }
}

}  // namespace quor
