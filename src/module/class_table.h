#ifndef QUOR_MODULE_CLASS_TABLE_H
#define QUOR_MODULE_CLASS_TABLE_H

#include <windows.h>

#include <unknwn.h>

#include <span>

namespace quor {

// One class the DLL can create.
struct ClassEntry {
  const CLSID& clsid;
  // As IClassFactory::CreateInstance: gives the interface asked for with one reference, or a
  // failure and a null pointer; CLASS_E_NOAGGREGATION for an outer object it does not support. It
  // may throw: the class factory turns what is thrown into a failure.
  HRESULT (*create)(IUnknown* outer, REFIID iid, void** object);
};

// Everything DllGetClassObject knows. Defined by whoever composes the DLL, so that the module needs
// none of its classes.
std::span<const ClassEntry> ClassTable();

}  // namespace quor

#endif
