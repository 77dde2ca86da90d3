#include "tests/workbench/office/late_bound.h"

#include <cstdio>
#include <utility>

_COM_SMARTPTR_TYPEDEF(IConnectionPoint, IID_IConnectionPoint);
_COM_SMARTPTR_TYPEDEF(IConnectionPointContainer, IID_IConnectionPointContainer);

namespace quor::workbench {

HRESULT CRemote::lastCode = S_OK;
HRESULT CRemote::lastException = S_OK;

CRemote::CRemote(const CValue& value)
    : CRemote(V_VT(&value.Get()) == VT_DISPATCH ? V_DISPATCH(&value.Get()) : nullptr) {}

DISPID CRemote::IdOf(const wchar_t* member) const {
  auto name = const_cast<LPOLESTR>(member);
  DISPID id = DISPID_UNKNOWN;
  lastCode = m_object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

CValue CRemote::Invoke(DISPID id, WORD flags, const std::vector<CValue>& arguments) const {
  std::vector<VARIANT> reversed = ReversedArguments(arguments);
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  DISPID put = DISPID_PROPERTYPUT;
  if (flags == DISPATCH_PROPERTYPUT) {
    parameters.rgdispidNamedArgs = &put;
    parameters.cNamedArgs = 1;
  }
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception = {};
  lastCode = m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &result,
                              &exception, nullptr);
  lastException = exception.scode;
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  CValue value = CValue::Copy(result);
  VariantClear(&result);
  return value;
}

CValue CRemote::Call(const wchar_t* member, const std::vector<CValue>& arguments) const {
  const DISPID id = IdOf(member);
  if (FAILED(lastCode)) return {};
  return Invoke(id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

CValue CRemote::Get(const wchar_t* member) const {
  const DISPID id = IdOf(member);
  return FAILED(lastCode) ? CValue() : Invoke(id, DISPATCH_PROPERTYGET, {});
}

void CRemote::Put(const wchar_t* member, CValue value) const {
  const DISPID id = IdOf(member);
  if (SUCCEEDED(lastCode)) Invoke(id, DISPATCH_PROPERTYPUT, {std::move(value)});
}

STDMETHODIMP CTestSink::Invoke(DISPID event, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                               VARIANT*, EXCEPINFO*, UINT*) {
  char id[16];
  std::snprintf(id, sizeof id, "%04lX", event);
  std::string note = id;
  if (iid != IID_NULL || flags != DISPATCH_METHOD) note += " called wrongly";
  for (UINT i = parameters->cArgs; i-- > 0;)
    note += ' ' + Summary(parameters->rgvarg[i]);
  heard.push_back(note);
  if (during) during(*parameters);
  return S_OK;
}

namespace {

HRESULT FindPoint(const CRemote& source, REFIID events, IConnectionPointPtr& point) {
  IConnectionPointContainerPtr container;
  const HRESULT found = source.Raw()->QueryInterface(IID_IConnectionPointContainer,
                                                     reinterpret_cast<void**>(&container));
  return FAILED(found) ? found : container->FindConnectionPoint(events, &point);
}

}  // namespace

HRESULT Advise(const CRemote& source, REFIID events, IUnknown& sink, DWORD& cookie) {
  IConnectionPointPtr point;
  const HRESULT found = FindPoint(source, events, point);
  return FAILED(found) ? found : point->Advise(&sink, &cookie);
}

HRESULT Unadvise(const CRemote& source, REFIID events, DWORD cookie) {
  IConnectionPointPtr point;
  const HRESULT found = FindPoint(source, events, point);
  return FAILED(found) ? found : point->Unadvise(cookie);
}

}  // namespace quor::workbench
