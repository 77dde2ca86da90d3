#include "com/class_factory.h"

#include <new>

#include "com/class_table.h"
#include "module/module.h"

namespace quor {
namespace {

class CClassFactory final : public IClassFactory {
 public:
  explicit CClassFactory(const ClassEntry& entry) noexcept : m_entry(entry) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
  }

  STDMETHODIMP_(ULONG) Release() override {
    const LONG references = InterlockedDecrement(&m_references);
    if (references == 0) delete this;
    return static_cast<ULONG>(references);
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    try {
      return m_entry.create(outer, iid, object);
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    } catch (...) {
      return E_UNEXPECTED;
    }
  }

  STDMETHODIMP LockServer(BOOL lock) override {
    if (lock) {
      LockModule();
    } else {
      UnlockModule();
    }
    return S_OK;
  }

 private:
  const ClassEntry& m_entry;
  LONG m_references = 1;
  CModuleLock m_lock;
};

}  // namespace

HRESULT GetClassFactory(REFCLSID clsid, REFIID iid, void** factory) noexcept {
  if (factory == nullptr) return E_POINTER;
  *factory = nullptr;
  for (const ClassEntry& entry : ClassTable()) {
    if (entry.clsid != clsid) continue;
    auto* created = new (std::nothrow) CClassFactory(entry);
    if (created == nullptr) return E_OUTOFMEMORY;
    const HRESULT result = created->QueryInterface(iid, factory);
    created->Release();
    return result;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace quor
