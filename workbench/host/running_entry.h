#ifndef QUOR_WORKBENCH_HOST_RUNNING_ENTRY_H
#define QUOR_WORKBENCH_HOST_RUNNING_ENTRY_H

// clang-format off
#include <windows.h>
#include <objbase.h>
#include <oaidl.h>
// clang-format on

namespace quor::workbench {

// Outlook's application in the table of running objects, for GetActiveObject. It forwards calls,
// so that other programs hold no reference to the application, where the references that the add-in
// holds are counted.
class CRunningEntry final : public IDispatch {
 public:
  // Throws std::runtime_error. The application outlives the entry.
  explicit CRunningEntry(IDispatch* application);
  ~CRunningEntry();
  CRunningEntry(const CRunningEntry&) = delete;
  CRunningEntry& operator=(const CRunningEntry&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  // Its owner destroys it.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;

 private:
  IDispatch* m_application;
  DWORD m_entry = 0;
};

}  // namespace quor::workbench

#endif
