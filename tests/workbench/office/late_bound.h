#ifndef QUOR_TESTS_WORKBENCH_OFFICE_LATE_BOUND_H
#define QUOR_TESTS_WORKBENCH_OFFICE_LATE_BOUND_H

#include <comdef.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/com_double.h"
#include "workbench/office/value.h"

_COM_SMARTPTR_TYPEDEF(IDispatch, IID_IDispatch);

namespace quor::workbench {

// An object as an add-in sees it: called by name through IDispatch.
class CRemote {
 public:
  CRemote() = default;
  explicit CRemote(IDispatch* object) : m_object(object) {}
  explicit CRemote(const CValue& value);

  IDispatch* Raw() const noexcept { return m_object; }

  // Calls a method or reads a property. LastCode returns the result of a failure.
  CValue Call(const wchar_t* member, const std::vector<CValue>& arguments = {}) const;
  CValue Get(const wchar_t* member) const;
  void Put(const wchar_t* member, CValue value) const;

  CRemote Object(const wchar_t* member, const std::vector<CValue>& arguments = {}) const {
    return CRemote(Call(member, arguments));
  }
  std::wstring Text(const wchar_t* member) const {
    return WideFromBstr(V_BSTR(&Get(member).Get()));
  }
  long Number(const wchar_t* member) const { return V_I4(&Get(member).Get()); }

  // The last call's result and the error in its exception record, for any object.
  static HRESULT lastCode;
  static HRESULT lastException;

 private:
  DISPID IdOf(const wchar_t* member) const;
  CValue Invoke(DISPID id, WORD flags, const std::vector<CValue>& arguments) const;

  IDispatchPtr m_object;
};

// A sink that records its events, such as "F001(object)", and can run an action inside them.
class CTestSink final : public CDispatchDouble {
 public:
  explicit CTestSink(REFIID events) : m_events(events) {}
  std::vector<std::string> heard;
  std::function<void(const DISPPARAMS&)> during;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return CDispatchDouble::QueryInterface(iid == m_events ? IID_IDispatch : iid, object);
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) override;

 private:
  const IID m_events;
};

// Connects the sink to the source; returns the error, or sets the cookie.
HRESULT Advise(const CRemote& source, REFIID events, IUnknown& sink, DWORD& cookie);
HRESULT Unadvise(const CRemote& source, REFIID events, DWORD cookie);

}  // namespace quor::workbench

#endif
