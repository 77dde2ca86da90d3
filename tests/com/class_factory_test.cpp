#include "com/class_factory.h"

#include <gtest/gtest.h>

#include <new>

#include "com/class_table.h"
#include "com/com_pointers.h"
#include "module/module.h"

_COM_SMARTPTR_TYPEDEF(IClassFactory, IID_IClassFactory);

namespace quor {
namespace {

constexpr CLSID kFailing = {0x12345678, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

HRESULT FailToCreate(IUnknown*, REFIID iid, void**) {
  if (iid == IID_IUnknown) throw std::bad_alloc();
  throw 1;
}

constexpr ClassEntry kClasses[] = {{kFailing, FailToCreate}};

TEST(ClassFactory, LetsNoExceptionOut) {
  IClassFactoryPtr factory;
  EXPECT_EQ(GetClassFactory(IID_IUnknown, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
            CLASS_E_CLASSNOTAVAILABLE);
  ASSERT_EQ(GetClassFactory(kFailing, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
  void* object = this;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, &object), E_OUTOFMEMORY);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &object), E_UNEXPECTED);
  factory->LockServer(TRUE);
  factory = nullptr;
  EXPECT_EQ(ModuleLockCount(), 1);
  UnlockModule();
}

}  // namespace

std::span<const ClassEntry> ClassTable() {
  return kClasses;
}

}  // namespace quor
