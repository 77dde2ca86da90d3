#ifndef QUOR_COM_CLASS_FACTORY_H
#define QUOR_COM_CLASS_FACTORY_H

#include <windows.h>

#include <unknwn.h>

namespace quor {

// The class factory of a class in ClassTable(), for DllGetClassObject. Returns it with one
// reference, or sets a null pointer and returns CLASS_E_CLASSNOTAVAILABLE, E_NOINTERFACE or
// E_OUTOFMEMORY.
HRESULT GetClassFactory(REFCLSID clsid, REFIID iid, void** factory) noexcept;

}  // namespace quor

#endif
