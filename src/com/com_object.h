#ifndef QUOR_COM_COM_OBJECT_H
#define QUOR_COM_COM_OBJECT_H

#include <atomic>
#include <utility>

#include "com/com_pointers.h"
#include "module/module.h"

namespace quor {

// Base of all our COM objects: derive from this instead of from the interfaces. Counts the
// references, keeps the module loaded, and implements QueryInterface with the derived class's
// FindInterface. Create objects with "new", which gives one reference; the last Release destroys
// the object, except while the process is exiting. Counting is thread-safe.
template <typename First, typename... Others>
class CComObject : public First, public Others... {
 public:
  CComObject(const CComObject&) = delete;
  CComObject& operator=(const CComObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) final {
    if (object == nullptr) return E_POINTER;
    *object = FindInterface(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() final { return ++m_references; }

  STDMETHODIMP_(ULONG) Release() final {
    const ULONG left = --m_references;
    if (left == 0 && !ProcessIsEnding()) {
      // The destructor may call out, and code called from there may add and release a reference.
      m_references = 1;
      delete this;
    }
    return left;
  }

 protected:
  // The arguments are for the first base's constructor.
  template <typename... Arguments>
  explicit CComObject(Arguments&&... arguments) : First(std::forward<Arguments>(arguments)...) {}
  virtual ~CComObject() = default;

 private:
  // One of the object's interfaces, IUnknown included, without a reference; null for any other.
  virtual void* FindInterface(REFIID iid) noexcept = 0;

  const CModuleLock m_lock;
  std::atomic<ULONG> m_references = 1;
};

}  // namespace quor

#endif
