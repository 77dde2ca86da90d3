#include "dialogs/property_page.h"

#include <gtest/gtest.h>

#include <set>

#include "resources/resource_ids.h"
#include "tests/dialogs/dialog_stage.h"
#include "workbench/host/page_site.h"
#include "workbench/office/outlook.h"

_COM_SMARTPTR_TYPEDEF(IOleObject, IID_IOleObject);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceObject, IID_IOleInPlaceObject);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceActiveObject, IID_IOleInPlaceActiveObject);
_COM_SMARTPTR_TYPEDEF(IOleControl, IID_IOleControl);

namespace quor {
namespace {

class OptionsPage : public testing::Test {
 protected:
  OptionsPage() { OleInitialize(nullptr); }
  ~OptionsPage() override {
    EXPECT_EQ(m_stage.addin.references, 1u);
    EXPECT_EQ(ModuleLockCount(), 0);
    OleUninitialize();
  }

  IDispatchPtr Make() {
    const OptionsPageParts parts = {m_stage.addin, m_desk, m_stage.resources, m_stage.log};
    IDispatchPtr page;
    EXPECT_EQ(CPropPage::Create(parts, IID_IDispatch, reinterpret_cast<void**>(&page)), S_OK);
    return page;
  }
  static HWND PageWindow(const IDispatchPtr& page) {
    HWND window = nullptr;
    IOleInPlaceObjectPtr(page)->GetWindow(&window);
    return window;
  }
  static HWND ControlOf(const IDispatchPtr& page, int id) {
    return FindControl(PageWindow(page), id);
  }
  // Calls by the published id, as Outlook does.
  static HRESULT Ask(const IDispatchPtr& page, DISPID id, WORD flags, _variant_t& result) {
    DISPPARAMS none = {};
    return page->Invoke(id, IID_NULL, 0, flags, &none, &result, nullptr, nullptr);
  }
  static HRESULT Apply(const IDispatchPtr& page) {
    _variant_t nothing;
    return Ask(page, 0x2102, DISPATCH_METHOD, nothing);
  }
  static bool IsDirty(const IDispatchPtr& page) {
    _variant_t dirty;
    EXPECT_EQ(Ask(page, 0x2101, DISPATCH_PROPERTYGET, dirty), S_OK);
    return dirty.boolVal != VARIANT_FALSE;
  }

  CDialogStage m_stage;
  COptionsDesk m_desk;
};

// The stand-in's dialog calls by the published ids.
TEST_F(OptionsPage, AnswersThroughItsVtable) {
  PropertyPage* page = nullptr;
  ASSERT_EQ(Make()->QueryInterface(__uuidof(PropertyPage), reinterpret_cast<void**>(&page)), S_OK);
  void** const slots = *reinterpret_cast<void***>(page);
  VARIANT_BOOL dirty = VARIANT_TRUE;
  reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT_BOOL*)>(slots[8])(page, &dirty);
  EXPECT_EQ(dirty, VARIANT_FALSE);
  EXPECT_EQ(reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*)>(slots[9])(page), S_OK);
  long context = 0;
  EXPECT_EQ(page->GetPageInfo(nullptr, &context), E_NOTIMPL);
  page->Release();
}

TEST_F(OptionsPage, IsTheControlThatContainersExpect) {
  const IDispatchPtr page = Make();
  for (const IID& iid :
       {IID_IDispatch, IID_IOleObject, IID_IOleInPlaceObject, IID_IOleInPlaceActiveObject,
        IID_IOleWindow, IID_IOleControl, IID_IPersistStreamInit, IID_IPersist, IID_IViewObject,
        IID_IViewObject2, IID_IProvideClassInfo, __uuidof(PropertyPage)}) {
    IUnknown* part = nullptr;
    ASSERT_EQ(page->QueryInterface(iid, reinterpret_cast<void**>(&part)), S_OK);
    EXPECT_TRUE(IUnknownPtr(part, false) == page.GetInterfacePtr()) << "another identity";
  }
  void* other = this;
  EXPECT_EQ(page->QueryInterface(IID_IDataObject, &other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);

  DWORD status = 0;
  EXPECT_EQ(IOleObjectPtr(page)->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473u);
  CONTROLINFO info = {};
  info.cb = sizeof info;
  EXPECT_EQ(IOleControlPtr(page)->GetControlInfo(&info), S_OK);
}

// The page in the stand-in's options dialog.
class PageInOutlook : public OptionsPage, public workbench::IPageFrame {
 protected:
  ~PageInOutlook() override {
    m_object->SetClientSite(nullptr);
    EXPECT_TRUE(m_outlook.Model().HeldFromOutside().empty());
    EXPECT_FALSE(m_hasActivePage);
    EXPECT_FALSE(m_site->IsActive());
  }
  HWND FrameWindow() override { return m_stage.outlook; }
  RECT PagePlace() override { return kPlace; }
  void OnPageStatus() override { ++m_statusChanges; }
  void SetActivePage(IOleInPlaceActiveObject* page) override { m_hasActivePage = page != nullptr; }

  HRESULT Activate(LONG verb, HWND parent) {
    return m_object->DoVerb(verb, nullptr, nullptr, 0, parent, nullptr);
  }
  void EnterSite() { m_object->SetClientSite(m_site.get()); }
  HWND Control(int id) { return ControlOf(m_page, id); }
  // Whether the page uses the key that its focused control is about to receive.
  bool Uses(UINT message, WPARAM key) {
    MSG typed = {GetFocus(), message, key, 1, 0, {}};
    return IOleInPlaceActiveObjectPtr(m_page)->TranslateAccelerator(&typed) == S_OK;
  }

  static constexpr RECT kPlace = {10, 20, 380, 310};
  workbench::CNoFace m_face;
  workbench::COutlook m_outlook{{.version = 11}, m_face};
  workbench::CModelPtr<workbench::CPageSite> m_site =
      workbench::MakeObject<workbench::CPageSite>(m_outlook.Session(), *this);
  IDispatchPtr m_page = Make();
  IOleObjectPtr m_object = m_page;
  int m_statusChanges = 0;
  bool m_hasActivePage = false;
};

TEST_F(PageInOutlook, ShowsItsPanelWhereTheContainerSays) {
  // The user has chosen larger text.
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  NONCLIENTMETRICSW larger = metrics;
  larger.lfMessageFont.lfHeight *= 2;
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof larger, &larger, 0);
  SIZEL extent = {};
  m_object->GetExtent(DVASPECT_CONTENT, &extent);
  EnterSite();
  ASSERT_EQ(Activate(OLEIVERB_INPLACEACTIVATE, nullptr), S_OK);
  RECT place = {};
  GetWindowRect(PageWindow(m_page), &place);
  MapWindowPoints(nullptr, m_stage.outlook, reinterpret_cast<POINT*>(&place), 2);
  EXPECT_TRUE(EqualRect(&place, &kPlace));
  EXPECT_TRUE(GetWindowLongPtrW(PageWindow(m_page), GWL_EXSTYLE) & WS_EX_CONTROLPARENT);

  // The lowest control lies within the size that the page requests.
  RECT lowest = {};
  GetWindowRect(Control(IDC_OPTIONS_ABOUT), &lowest);
  MapWindowPoints(nullptr, PageWindow(m_page), reinterpret_cast<POINT*>(&lowest), 2);
  EXPECT_LT(lowest.bottom, MulDiv(extent.cy, 96, 2540));
  EXPECT_LT(lowest.right, MulDiv(extent.cx, 96, 2540));
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
}

TEST_F(PageInOutlook, StaysDirtyWhenNothingCouldBeKept) {
  EnterSite();
  Activate(OLEIVERB_INPLACEACTIVATE, nullptr);
  m_desk.refuses = true;
  Choose(Control(IDC_OPTIONS_POP_UP + 1), 1);
  EXPECT_EQ(m_statusChanges, 1);
  EXPECT_TRUE(FAILED(Apply(m_page)));
  EXPECT_TRUE(IsDirty(m_page));
}

TEST_F(PageInOutlook, KeepsTheKeysThatAreItsOwn) {
  EnterSite();
  Activate(OLEIVERB_UIACTIVATE, nullptr);
  EXPECT_TRUE(m_hasActivePage);
  EXPECT_EQ(GetFocus(), Control(IDC_OPTIONS_LANGUAGE));
  EXPECT_TRUE(Uses(WM_SYSCHAR, L'3'));
  EXPECT_EQ(GetFocus(), Control(IDC_OPTIONS_POP_UP + 4));
  EXPECT_FALSE(Uses(WM_SYSCHAR, L'a'));
  EXPECT_FALSE(Uses(WM_KEYDOWN, VK_RETURN));
  EXPECT_FALSE(Uses(WM_KEYDOWN, VK_ESCAPE));
  SendMessageW(GetFocus(), CB_SHOWDROPDOWN, TRUE, 0);
  EXPECT_TRUE(Uses(WM_KEYDOWN, VK_ESCAPE)) << "closes the list";
  SetFocus(Control(IDC_OPTIONS_ABOUT));
  EXPECT_FALSE(Uses(WM_KEYDOWN, VK_TAB));
  EXPECT_EQ(m_site->UnusedKeys(), 4);

  // The keyboard goes elsewhere and returns.
  IOleInPlaceObjectPtr(m_page)->UIDeactivate();
  EXPECT_FALSE(m_hasActivePage);
  SetFocus(Control(IDC_OPTIONS_LANGUAGE));
  EXPECT_TRUE(m_hasActivePage);
}

TEST_F(PageInOutlook, SurvivesAContainerThatIsGoneFirst) {
  EnterSite();
  Activate(OLEIVERB_INPLACEACTIVATE, nullptr);
  Choose(Control(IDC_OPTIONS_LANGUAGE), kSpanish);
  m_stage.CloseOutlook();
  EXPECT_EQ(PageWindow(m_page), nullptr);
  EXPECT_TRUE(IsDirty(m_page));
  EXPECT_TRUE(FAILED(Activate(OLEIVERB_SHOW, nullptr))) << "no window to open in";
  EXPECT_FALSE(m_site->IsActive());
}

TEST_F(PageInOutlook, ARefusedActivationLeavesNothingOpen) {
  EXPECT_TRUE(FAILED(Activate(OLEIVERB_SHOW, nullptr))) << "neither a site nor a parent";
  EnterSite();
  m_site->Leave();
  EXPECT_TRUE(FAILED(Activate(OLEIVERB_SHOW, m_stage.outlook)));
  EXPECT_EQ(PageWindow(m_page), nullptr);
  m_object->SetClientSite(nullptr);
  EXPECT_EQ(Activate(OLEIVERB_SHOW, m_stage.outlook), S_OK);
  EXPECT_TRUE(IsWindowVisible(PageWindow(m_page)));
  m_object->Close(OLECLOSE_NOSAVE);
}

// The page in a container that nobody here wrote: the system's ATL library.
class PageInAtl : public OptionsPage {
 protected:
  // A window of ATL's with the page in it.
  HWND Open(const IDispatchPtr& page) {
    const HMODULE atl = LoadLibraryW(L"atl.dll");
    const auto find = [atl](const char* name) {
      return reinterpret_cast<void*>(GetProcAddress(atl, name));
    };
    reinterpret_cast<BOOL(WINAPI*)()>(find("AtlAxWinInit"))();
    const HWND host =
        CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 380,
                        330, m_stage.outlook, nullptr, GetModuleHandleW(nullptr), nullptr);
    IUnknownPtr container;  // without being asked for it Wine makes none
    using Attach = HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**);
    EXPECT_EQ(reinterpret_cast<Attach>(find("AtlAxAttachControl"))(page, host, &container), S_OK);
    return host;
  }
};

TEST_F(PageInAtl, MovesWithTheWindowAndAppliesNothingWhenItCloses) {
  const IDispatchPtr page = Make();
  const HWND host = Open(page);
  ASSERT_TRUE(IsWindowVisible(PageWindow(page)));
  for (const SIZE size : {SIZE{300, 200}, SIZE{0, 0}, SIZE{400, 340}}) {
    SetWindowPos(host, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    RECT place = {};
    GetClientRect(PageWindow(page), &place);
    EXPECT_EQ(place.right, size.cx);
    EXPECT_EQ(place.bottom, size.cy);
  }
  Choose(ControlOf(page, IDC_OPTIONS_LANGUAGE), kFrench);
  DestroyWindow(host);
  EXPECT_EQ(PageWindow(page), nullptr);
  EXPECT_TRUE(m_desk.applied.empty());
  EXPECT_TRUE(IsDirty(page));
}

TEST_F(PageInAtl, TabGoesThroughAllControlsAndRoundAgain) {
  const IDispatchPtr page = Make();
  const HWND host = Open(page);
  const HWND first = ControlOf(page, IDC_OPTIONS_LANGUAGE);
  SetFocus(first);
  std::set<HWND> visited;
  do {
    MSG tab = {GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
    ASSERT_TRUE(IsDialogMessageW(m_stage.outlook, &tab));
    ASSERT_TRUE(IsChild(PageWindow(page), GetFocus()));
    ASSERT_TRUE(visited.insert(GetFocus()).second) << "the way round misses where it began";
  } while (GetFocus() != first);
  for (const int id : {IDC_OPTIONS_POP_UP, IDC_OPTIONS_POP_UP + 5, IDC_OPTIONS_ABOUT})
    EXPECT_TRUE(visited.contains(ControlOf(page, id))) << id;
  DestroyWindow(host);
}

}  // namespace
}  // namespace quor
