#include <gtest/gtest.h>
#include <windows.h>

#include <ole2.h>

#include <string>

#include "module/identifiers.h"
#include "module/quor_telephone_toolbar.h"

namespace quor {
namespace {

VARIANT Dispatch(IDispatch* object) {
  VARIANT value;
  value.vt = VT_DISPATCH;
  value.pdispVal = object;
  return value;
}

VARIANT Long(LONG number) {
  VARIANT value;
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

// Uses the server DLL as COM does: loads it, gets classes, unloads it.
class CComServerTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    LoadServer();
  }

  void LoadServer() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring folder(path, std::wstring(path).rfind(L'\\') + 1);
    const std::string name = QUOR_TEST_SERVER;
    m_server = LoadLibraryW((folder + std::wstring(name.begin(), name.end())).c_str());
    ASSERT_NE(m_server, nullptr);
  }

  void TearDown() override {
    EXPECT_EQ(CanUnloadNow(), S_OK);
    FreeLibrary(m_server);
    CoUninitialize();
  }

  template <typename Function>
  Function* Export(const char* name) {
    return reinterpret_cast<Function*>(GetProcAddress(m_server, name));
  }

  HRESULT CanUnloadNow() { return Export<HRESULT WINAPI()>("DllCanUnloadNow")(); }

  HRESULT Factory(REFCLSID clsid, IClassFactory** factory) {
    using GetClassObject = HRESULT WINAPI(REFCLSID, REFIID, void**);
    return Export<GetClassObject>("DllGetClassObject")(clsid, IID_IClassFactory,
                                                       reinterpret_cast<void**>(factory));
  }

  template <typename Interface>
  Interface* CreateAddin() {
    IClassFactory* factory = nullptr;
    EXPECT_EQ(Factory(kAddinClsid, &factory), S_OK);
    void* object = nullptr;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface), &object), S_OK);
    factory->Release();
    return static_cast<Interface*>(object);
  }

  static DISPID IdOf(IDispatch* object, const wchar_t* name) {
    auto* text = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
    return id;
  }

  // Calls by name with the arguments in reverse order, as Office does.
  template <typename... Arguments>
  static HRESULT Call(IDispatch* object, const wchar_t* name, VARIANT* result,
                      Arguments... reversed) {
    VARIANT arguments[] = {reversed...};
    DISPPARAMS parameters{arguments, nullptr, sizeof...(reversed), 0};
    EXCEPINFO exception{};
    const HRESULT called =
        object->Invoke(IdOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                       &parameters, result, &exception, nullptr);
    return called == DISP_E_EXCEPTION ? exception.scode : called;
  }

  HMODULE m_server = nullptr;
};

TEST_F(CComServerTest, MakesItsClassesAndNoOthers) {
  IClassFactory* factory = nullptr;
  EXPECT_EQ(Factory(kTypeLibraryId, &factory), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(factory, nullptr);

  ASSERT_EQ(Factory(kAddinClsid, &factory), S_OK);
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  void* object = factory;
  EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  factory->Release();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  ASSERT_EQ(Factory(kPropertyPageClsid, &factory), S_OK);
  factory->LockServer(FALSE);

  // This class's creation throws.
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, &object), E_OUTOFMEMORY);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &object), E_UNEXPECTED);
  factory->Release();
}

TEST_F(CComServerTest, LivesAsLongAsAnObject) {
  auto* addin = CreateAddin<IDTExtensibility2>();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  EXPECT_EQ(addin->Release(), 0u);
}

TEST_F(CComServerTest, RefusesACallbackWithoutAControl) {
  auto* addin = CreateAddin<IDispatch>();
  EXPECT_EQ(Call(addin, L"line1clicked", nullptr, Dispatch(addin)), S_OK);
  EXPECT_TRUE(FAILED(Call(addin, L"Line1Clicked", nullptr, Long(1))));
  addin->Release();
}

TEST_F(CComServerTest, GivesEachInterfaceItsOwnDispatch) {
  auto* addin = CreateAddin<IDTExtensibility2>();
  EXPECT_EQ(IdOf(addin, L"OnConnection"), 1);
  EXPECT_EQ(IdOf(addin, L"OnBeginShutdown"), 5);
  EXPECT_EQ(IdOf(addin, L"GetLabel"), DISPID_UNKNOWN);
  SAFEARRAY* custom = nullptr;
  VARIANT array;
  array.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  array.pparray = &custom;
  EXPECT_EQ(Call(addin, L"OnConnection", nullptr, array, Dispatch(addin), Long(2), Dispatch(addin)),
            S_OK);
  EXPECT_EQ(Call(addin, L"OnConnection", nullptr, array, Dispatch(addin), Long(1), Dispatch(addin)),
            E_ACCESSDENIED);
  addin->Release();

  auto* ribbon = CreateAddin<IRibbonExtensibility>();
  EXPECT_EQ(IdOf(ribbon, L"GetCustomUI"), 1);
  EXPECT_EQ(IdOf(ribbon, L"OnConnection"), DISPID_UNKNOWN);
  ribbon->Release();
}

TEST_F(CComServerTest, DescribesItselfUnderItsIdentifiers) {
  auto* addin = CreateAddin<IDispatch>();
  UINT count = 0;
  EXPECT_EQ(addin->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ITypeInfo* info = nullptr;
  EXPECT_EQ(addin->GetTypeInfo(1, 0, &info), DISP_E_BADINDEX);
  ASSERT_EQ(addin->GetTypeInfo(0, 0, &info), S_OK);
  ITypeLib* library = nullptr;
  UINT index = 0;
  ASSERT_EQ(info->GetContainingTypeLib(&library, &index), S_OK);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(attributes->guid == kTypeLibraryId);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library->ReleaseTLibAttr(attributes);
  for (const GUID& clsid : {kAddinClsid, kPropertyPageClsid}) {
    ITypeInfo* coclass = nullptr;
    EXPECT_EQ(library->GetTypeInfoOfGuid(clsid, &coclass), S_OK);
    if (coclass != nullptr) coclass->Release();
  }
  library->Release();
  EXPECT_GT(info->Release(), 0u) << "the add-in's own reference is gone";
  addin->Release();
}

TEST_F(CComServerTest, InstallsForTheUserOnlyWhenAskedTo) {
  using Install = HRESULT WINAPI(BOOL, LPCWSTR);
  EXPECT_EQ(Export<Install>("DllInstall")(TRUE, L"everybody"), E_INVALIDARG);
}

}  // namespace
}  // namespace quor
