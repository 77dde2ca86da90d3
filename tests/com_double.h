#ifndef QUOR_TESTS_COM_DOUBLE_H
#define QUOR_TESTS_COM_DOUBLE_H

#include <oaidl.h>

namespace quor {

// A COM object of a test with one interface. It lives on the test's stack and counts references,
// its own included.
template <typename Interface>
class CComDouble : public Interface {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == __uuidof(Interface) ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  ULONG references = 1;
};

// A double with late-bound members and no type information.
class CDispatchDouble : public CComDouble<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
};

}  // namespace quor

#endif
