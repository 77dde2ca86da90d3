#ifndef QUOR_MODULE_CLASS_FACTORY_H
#define QUOR_MODULE_CLASS_FACTORY_H

#include <windows.h>

#include <unknwn.h>

namespace quor {

// The class factory for a class of ClassTable(), as DllGetClassObject returns it: with one
// reference, or CLASS_E_CLASSNOTAVAILABLE, E_NOINTERFACE, E_OUTOFMEMORY and a null pointer.
HRESULT GetClassFactory(REFCLSID clsid, REFIID iid, void** factory) noexcept;

}  // namespace quor

#endif
