#include "workbench/host/running_entry.h"

// clang-format off
#include <oleauto.h>
// clang-format on

#include <stdexcept>

namespace quor::workbench {

CRunningEntry::CRunningEntry(IDispatch* application) : m_application(application) {
  CLSID classId;
  if (FAILED(CLSIDFromProgID(L"Outlook.Application", &classId)) ||
      FAILED(RegisterActiveObject(this, classId, ACTIVEOBJECT_STRONG, &m_entry))) {
    throw std::runtime_error("Outlook.Application cannot be entered as running");
  }
}

CRunningEntry::~CRunningEntry() {
  RevokeActiveObject(m_entry, nullptr);
  CoDisconnectObject(this, 0);  // from programs that still use it
}

STDMETHODIMP CRunningEntry::QueryInterface(REFIID iid, void** object) {
  const bool isKnown = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
  *object = isKnown ? this : nullptr;
  return isKnown ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP CRunningEntry::GetTypeInfoCount(UINT* count) {
  return m_application->GetTypeInfoCount(count);
}

STDMETHODIMP CRunningEntry::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) {
  return m_application->GetTypeInfo(index, locale, info);
}

STDMETHODIMP CRunningEntry::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) {
  return m_application->GetIDsOfNames(iid, names, count, locale, ids);
}

STDMETHODIMP CRunningEntry::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrong) {
  return m_application->Invoke(id, iid, locale, flags, arguments, result, exception, wrong);
}

}  // namespace quor::workbench
