#include "com/class_factory.h"

#include <new>

#include "com/class_table.h"
#include "com/com_object.h"

namespace quor {
namespace {

class CClassFactory final : public CComObject<IClassFactory> {
 public:
  explicit CClassFactory(const ClassEntry& entry) noexcept : m_entry(entry) {}

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
  void* FindInterface(REFIID iid) noexcept override {
    const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
    return known ? static_cast<IClassFactory*>(this) : nullptr;
  }

  const ClassEntry& m_entry;
};

}  // namespace

HRESULT GetClassFactory(REFCLSID clsid, REFIID iid, void** factory) noexcept {
  if (factory == nullptr) return E_POINTER;
  *factory = nullptr;
  for (const ClassEntry& entry : ClassTable()) {
    if (entry.clsid != clsid) continue;
    const IUnknownPtr created(new (std::nothrow) CClassFactory(entry), false);
    return created != nullptr ? created->QueryInterface(iid, factory) : E_OUTOFMEMORY;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace quor
