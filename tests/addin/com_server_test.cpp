// The DLL as COM uses it.

#include "com/com_pointers.h"
#include "module/identifiers.h"
#include "tests/addin/shipped_addin.h"

_COM_SMARTPTR_TYPEDEF(IClassFactory, IID_IClassFactory);
_COM_SMARTPTR_TYPEDEF(ITypeLib, IID_ITypeLib);

namespace quor {
namespace {

class CComServerTest : public CShippedAddinTest {
 protected:
  template <typename Interface>
  Interface* Query() const {
    void* found = nullptr;
    EXPECT_EQ(Callbacks()->QueryInterface(__uuidof(Interface), &found), S_OK);
    return static_cast<Interface*>(found);
  }
  static DISPID IdOf(IDispatch* object, const wchar_t* name) {
    auto* text = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
    return id;
  }
};

TEST_F(CComServerTest, MakesItsClassAndLivesAsLongAsAnObject) {
  const auto canUnloadNow = Export<HRESULT WINAPI()>("DllCanUnloadNow");
  EXPECT_EQ(canUnloadNow(), S_FALSE);
  IClassFactoryPtr factory;
  using GetClassObject = HRESULT WINAPI(REFCLSID, REFIID, void**);
  ASSERT_EQ(Export<GetClassObject>("DllGetClassObject")(kAddinClsid, IID_IClassFactory,
                                                        reinterpret_cast<void**>(&factory)),
            S_OK);
  void* object = this;
  EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
}

TEST_F(CComServerTest, GivesEachInterfaceItsOwnDispatch) {
  auto* addin = Query<IDTExtensibility2>();
  EXPECT_EQ(IdOf(addin, L"OnConnection"), 1);
  EXPECT_EQ(IdOf(addin, L"OnBeginShutdown"), 5);
  EXPECT_EQ(IdOf(addin, L"GetLabel"), DISPID_UNKNOWN);
  addin->Release();

  auto* ribbon = Query<IRibbonExtensibility>();
  EXPECT_EQ(IdOf(ribbon, L"GetCustomUI"), 1);
  EXPECT_EQ(IdOf(ribbon, L"OnConnection"), DISPID_UNKNOWN);
  ribbon->Release();
}

TEST_F(CComServerTest, DescribesItselfUnderItsIdentifiers) {
  ITypeInfoPtr info;
  ASSERT_EQ(Callbacks()->GetTypeInfo(0, 0, &info), S_OK);
  ITypeLibPtr library;
  UINT index = 0;
  ASSERT_EQ(info->GetContainingTypeLib(&library, &index), S_OK);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(attributes->guid == kTypeLibraryId);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library->ReleaseTLibAttr(attributes);
  for (const GUID& clsid : {kAddinClsid, kPropertyPageClsid}) {
    ITypeInfoPtr coclass;
    EXPECT_EQ(library->GetTypeInfoOfGuid(clsid, &coclass), S_OK);
  }
  library = nullptr;
  EXPECT_GT(info.Detach()->Release(), 0u) << "the add-in's own reference is gone";
}

TEST_F(CComServerTest, InstallsForTheUserOnlyWhenAskedTo) {
  using Install = HRESULT WINAPI(BOOL, LPCWSTR);
  EXPECT_EQ(Export<Install>("DllInstall")(TRUE, L"everybody"), E_INVALIDARG);
}

}  // namespace
}  // namespace quor
