#include "com/type_info_dispatch.h"

#include <exception>

#include "module/module.h"

namespace quor {
namespace {

_COM_SMARTPTR_TYPEDEF(ITypeLib, IID_ITypeLib);

}  // namespace

HRESULT CTypeInfoDispatch::Load() noexcept {
  if (m_info != nullptr) return S_OK;
  try {
    ITypeLibPtr library;
    const HRESULT result = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library);
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(m_iid, &m_info);
  } catch (const std::exception&) {
    return E_OUTOFMEMORY;
  }
}

HRESULT CTypeInfoDispatch::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT CTypeInfoDispatch::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  const HRESULT result = Load();
  if (FAILED(result)) return result;
  *info = ITypeInfoPtr(m_info).Detach();
  return S_OK;
}

HRESULT CTypeInfoDispatch::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID /*locale*/,
                                         DISPID* ids) noexcept {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  const HRESULT result = Load();
  return FAILED(result) ? result : DispGetIDsOfNames(m_info, names, count, ids);
}

HRESULT CTypeInfoDispatch::Invoke(void* object, DISPID id, REFIID iid, LCID /*locale*/, WORD flags,
                                  DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                  UINT* badArgument) noexcept {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (arguments == nullptr) return E_POINTER;
  const HRESULT loaded = Load();
  if (FAILED(loaded)) return loaded;
  return DispInvoke(object, m_info, id, flags, arguments, result, exception, badArgument);
}

}  // namespace quor
