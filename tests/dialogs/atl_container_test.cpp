// The options page in a container that nobody here wrote: the system's ATL library.

#include <gtest/gtest.h>

#include <set>

#include "dialogs/property_page.h"
#include "resources/resource_ids.h"
#include "tests/dialogs/dialog_stage.h"
#include "tests/dialogs/options_desk.h"

_COM_SMARTPTR_TYPEDEF(IOleObject, IID_IOleObject);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceObject, IID_IOleInPlaceObject);

namespace quor {
namespace {

constexpr wchar_t kAtlWindow[] = L"AtlAxWin";

class AtlContainer : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_atl = LoadLibraryW(L"atl.dll");
    ASSERT_NE(s_atl, nullptr);
    ASSERT_TRUE(Export<BOOL WINAPI()>("AtlAxWinInit")());
    // Wine's initializes OLE, too, and leaves it so.
    if (OleInitialize(nullptr) == S_FALSE) OleUninitialize();
    OleUninitialize();
  }
  void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }
  void TearDown() override {
    EXPECT_EQ(m_stage.addin.references, 1u);
    EXPECT_EQ(ModuleLockCount(), 0);
    OleUninitialize();
  }

  template <typename Function>
  static Function* Export(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(s_atl, name)));
  }

  // A window of ATL's with a page of its own in it.
  HWND Open(IDispatchPtr& page) {
    const OptionsPageParts parts = {m_stage.addin, m_desk, m_stage.resources, m_stage.log};
    IDispatch* made = nullptr;
    EXPECT_EQ(CPropPage::Create(parts, IID_IDispatch, reinterpret_cast<void**>(&made)), S_OK);
    page.Attach(made);
    const HWND host =
        CreateWindowExW(WS_EX_CONTROLPARENT, kAtlWindow, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 380,
                        330, m_stage.outlook, nullptr, GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(host, nullptr);
    using Attach = HRESULT WINAPI(IUnknown*, HWND, IUnknown**);
    IUnknown* container = nullptr;  // without being asked for it Wine makes none
    EXPECT_EQ(Export<Attach>("AtlAxAttachControl")(page, host, &container), S_OK);
    if (container != nullptr) container->Release();
    return host;
  }
  static HWND WindowOf(const IDispatchPtr& page) {
    HWND window = nullptr;
    IOleInPlaceObjectPtr(page)->GetWindow(&window);
    return window;
  }
  static bool IsDirty(const IDispatchPtr& page) {
    VARIANT_BOOL dirty = VARIANT_FALSE;
    PropertyPage* asked = nullptr;
    page->QueryInterface(__uuidof(PropertyPage), reinterpret_cast<void**>(&asked));
    asked->get_Dirty(&dirty);
    asked->Release();
    return dirty != VARIANT_FALSE;
  }

  CDialogStage m_stage;
  COptionsDesk m_desk;
  static inline HMODULE s_atl = nullptr;
};

TEST_F(AtlContainer, ShowsThePageAndMovesItWithTheWindow) {
  IDispatchPtr page;
  const HWND host = Open(page);
  ASSERT_TRUE(IsWindowVisible(WindowOf(page)));
  EXPECT_EQ(GetParent(WindowOf(page)), host);
  for (const SIZE size : {SIZE{300, 200}, SIZE{0, 0}, SIZE{400, 340}}) {
    SetWindowPos(host, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    RECT place = {};
    GetClientRect(WindowOf(page), &place);
    EXPECT_EQ(place.right, size.cx);
    EXPECT_EQ(place.bottom, size.cy);
  }
  DestroyWindow(host);
  EXPECT_EQ(WindowOf(page), nullptr);
}

TEST_F(AtlContainer, TabGoesThroughAllControlsAndRoundAgain) {
  IDispatchPtr page;
  const HWND host = Open(page);
  const HWND first = FindControl(WindowOf(page), IDC_OPTIONS_LANGUAGE);
  SetFocus(first);
  std::set<HWND> visited;
  do {
    MSG tab = {GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
    ASSERT_TRUE(IsDialogMessageW(m_stage.outlook, &tab));
    ASSERT_TRUE(IsChild(WindowOf(page), GetFocus()));
    ASSERT_TRUE(visited.insert(GetFocus()).second) << "the way round misses where it began";
  } while (GetFocus() != first);
  for (const int id : {IDC_OPTIONS_POP_UP, IDC_OPTIONS_POP_UP + 5, IDC_OPTIONS_ABOUT})
    EXPECT_TRUE(visited.contains(FindControl(WindowOf(page), id))) << id;
  DestroyWindow(host);
}

TEST_F(AtlContainer, AClosedWindowAppliesNothing) {
  IDispatchPtr page;
  const HWND host = Open(page);
  Choose(FindControl(WindowOf(page), IDC_OPTIONS_LANGUAGE), kFrench);
  EXPECT_TRUE(IsDirty(page));
  DestroyWindow(host);
  EXPECT_TRUE(m_desk.applied.empty());
  EXPECT_TRUE(IsDirty(page));
}

TEST_F(AtlContainer, OpensTwiceAtOnceAndAgainAfterwards) {
  IDispatchPtr page;
  IDispatchPtr other;
  const HWND host = Open(page);
  const HWND second = Open(other);
  Choose(FindControl(WindowOf(page), IDC_OPTIONS_LANGUAGE), kFrench);
  EXPECT_TRUE(IsDirty(page));
  EXPECT_FALSE(IsDirty(other));
  DestroyWindow(host);
  page = nullptr;
  EXPECT_TRUE(IsWindowVisible(FindControl(WindowOf(other), IDC_OPTIONS_LANGUAGE)));
  const HWND third = Open(page);
  EXPECT_FALSE(IsDirty(page));
  DestroyWindow(second);
  EXPECT_TRUE(IsWindowVisible(WindowOf(page)));
  DestroyWindow(third);
}

}  // namespace
}  // namespace quor
