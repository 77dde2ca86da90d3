#ifndef QUOR_COM_TYPE_INFO_DISPATCH_H
#define QUOR_COM_TYPE_INFO_DISPATCH_H

#include <windows.h>

#include <oaidl.h>

#include "com/com_pointers.h"

namespace quor {

// Implements the four IDispatch methods of one dual interface from the type library embedded in
// this module, which need not be registered. Loads the type description on first use. Never throws.
class CTypeInfoDispatch {
 public:
  // The id must outlive this object.
  explicit CTypeInfoDispatch(REFIID iid) noexcept : m_iid(iid) {}
  CTypeInfoDispatch(const CTypeInfoDispatch&) = delete;
  CTypeInfoDispatch& operator=(const CTypeInfoDispatch&) = delete;

  HRESULT GetTypeInfoCount(UINT* count) noexcept;
  HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept;
  HRESULT GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept;
  // `object` is the dual interface pointer that the type description refers to.
  HRESULT Invoke(void* object, DISPID id, REFIID iid, LCID locale, WORD flags,
                 DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                 UINT* badArgument) noexcept;

 private:
  HRESULT Load() noexcept;

  const IID& m_iid;
  ITypeInfoPtr m_info;
};

// Base of an object that implements a dual interface of our type library; supplies the IDispatch
// methods. An object with several dual interfaces derives from one of these per interface; each
// serves its own interface. QueryInterface chooses the object's IDispatch.
template <typename Interface>
class CDispatchPart : public Interface {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return m_dispatch.GetTypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return m_dispatch.GetTypeInfo(index, locale, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override {
    return m_dispatch.GetIDsOfNames(iid, names, count, locale, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
    // Hold the object: the caller may release it inside a call that the method makes.
    const IUnknownPtr alive = static_cast<Interface*>(this);
    return m_dispatch.Invoke(static_cast<Interface*>(this), id, iid, locale, flags, arguments,
                             result, exception, badArgument);
  }

 protected:
  ~CDispatchPart() = default;

 private:
  CTypeInfoDispatch m_dispatch{__uuidof(Interface)};
};

}  // namespace quor

#endif
