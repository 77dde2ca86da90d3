#ifndef QUOR_COM_CLASS_TABLE_H
#define QUOR_COM_CLASS_TABLE_H

#include <windows.h>

#include <unknwn.h>

#include <span>

namespace quor {

// A class that the DLL can create.
struct ClassEntry {
  const CLSID& clsid;
  // As IClassFactory::CreateInstance: returns the interface with one reference, or a failure and a
  // null pointer; CLASS_E_NOAGGREGATION if `outer` is not supported. May throw: the class factory
  // converts exceptions into failures.
  HRESULT (*create)(IUnknown* outer, REFIID iid, void** object);
};

// All classes that DllGetClassObject serves. Defined where the DLL is put together, so that this
// folder depends on none of them.
std::span<const ClassEntry> ClassTable();

}  // namespace quor

#endif
