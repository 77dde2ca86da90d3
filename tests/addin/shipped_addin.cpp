#include "tests/addin/shipped_addin.h"

#include <string>

#include "module/identifiers.h"

namespace quor {
void CShippedAddinTest::SetUp() {
  ASSERT_EQ(OleInitialize(nullptr), S_OK);
  m_model.emplace();
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring program = path;
  const std::wstring tree = program.substr(0, program.rfind(L"\\tests\\addin\\"));
  m_dll = LoadLibraryW((tree + L"\\bin\\QuorTelephoneToolbar.dll").c_str());
  ASSERT_NE(m_dll, nullptr);
  IClassFactory* factory = nullptr;
  using GetClassObject = HRESULT WINAPI(REFCLSID, REFIID, void**);
  ASSERT_EQ(Export<GetClassObject>("DllGetClassObject")(kAddinClsid, IID_IClassFactory,
                                                        reinterpret_cast<void**>(&factory)),
            S_OK);
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&m_callbacks)),
            S_OK);
  factory->Release();
}

void CShippedAddinTest::TearDown() {
  const ULONG left = m_callbacks != nullptr ? m_callbacks->Release() : 0;
  EXPECT_EQ(left, 0u);
  EXPECT_TRUE(m_model->HeldFromOutside().empty());
  EXPECT_TRUE(Misuses().empty());
  EXPECT_EQ(Export<HRESULT WINAPI()>("DllCanUnloadNow")(), S_OK);
  FreeLibrary(m_dll);
  m_controls.clear();
  m_model.reset();
  OleUninitialize();
}

IDispatch* CShippedAddinTest::Control(const wchar_t* id) {
  m_controls.push_back(workbench::MakeObject<workbench::CRibbonControl>(
      *m_model, id, L"", workbench::CModelPtr<workbench::CAutomation>()));
  return m_controls.back().get();
}

}  // namespace quor
