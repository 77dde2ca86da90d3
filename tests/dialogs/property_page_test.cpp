#include "dialogs/property_page.h"

#include <gtest/gtest.h>

#include "module/identifiers.h"
#include "resources/resource_ids.h"
#include "tests/dialogs/dialog_stage.h"
#include "tests/dialogs/options_desk.h"
#include "tests/dialogs/page_container.h"

_COM_SMARTPTR_TYPEDEF(IOleObject, IID_IOleObject);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceObject, IID_IOleInPlaceObject);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceActiveObject, IID_IOleInPlaceActiveObject);
_COM_SMARTPTR_TYPEDEF(IOleControl, IID_IOleControl);
_COM_SMARTPTR_TYPEDEF(IProvideClassInfo, IID_IProvideClassInfo);

namespace quor {
namespace {

class OptionsPage : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(OleInitialize(nullptr), S_OK);
    IDispatch* made = nullptr;
    ASSERT_EQ(Make(&made), S_OK);
    m_page.Attach(made);
    m_object = m_page;
    m_inPlace = m_page;
    m_keys = m_page;
  }
  void TearDown() override {
    ReleasePage();
    EXPECT_EQ(m_container.references, 1u);
    EXPECT_EQ(m_stage.addin.references, 1u);
    EXPECT_EQ(ModuleLockCount(), 0);
    OleUninitialize();
  }

  HRESULT Make(IDispatch** page) {
    const OptionsPageParts parts = {m_stage.addin, m_desk, m_stage.resources, m_stage.log};
    return CPropPage::Create(parts, IID_IDispatch, reinterpret_cast<void**>(page));
  }
  void Activate(LONG verb = OLEIVERB_INPLACEACTIVATE) {
    m_object->SetClientSite(&m_container);
    ASSERT_EQ(m_object->DoVerb(verb, nullptr, &m_container, 0, m_stage.outlook, nullptr), S_OK);
  }
  void ReleasePage() {
    if (m_object != nullptr) m_object->SetClientSite(nullptr);
    m_keys = nullptr;
    m_inPlace = nullptr;
    m_object = nullptr;
    m_page = nullptr;
  }
  HWND Window() {
    HWND window = nullptr;
    m_inPlace->GetWindow(&window);
    return window;
  }
  HWND Control(int id) { return FindControl(Window(), id); }
  // Whether the page uses the key that its focused control is about to receive.
  bool Uses(UINT message, WPARAM key) {
    MSG typed = {GetFocus(), message, key, 1, 0, {}};
    return m_keys->TranslateAccelerator(&typed) == S_OK;
  }
  // Calls by the published id, as Outlook does.
  HRESULT Ask(DISPID id, WORD flags, _variant_t& result) {
    DISPPARAMS none = {};
    return m_page->Invoke(id, IID_NULL, 0, flags, &none, &result, nullptr, nullptr);
  }
  bool IsDirty() {
    _variant_t dirty;
    EXPECT_EQ(Ask(0x2101, DISPATCH_PROPERTYGET, dirty), S_OK);
    return dirty.boolVal != VARIANT_FALSE;
  }

  CDialogStage m_stage;
  COptionsDesk m_desk;
  CPageContainer m_container{m_stage.outlook};
  IDispatchPtr m_page;
  IOleObjectPtr m_object;
  IOleInPlaceObjectPtr m_inPlace;
  IOleInPlaceActiveObjectPtr m_keys;
};

TEST_F(OptionsPage, AnswersOutlookByIdAndByVtable) {
  m_stage.Speak(kLanguages[2]);
  _variant_t caption;
  ASSERT_EQ(Ask(-518, DISPATCH_PROPERTYGET, caption), S_OK);
  EXPECT_STREQ(caption.bstrVal, L"Complemento telefónico");
  _variant_t nothing;
  EXPECT_EQ(Ask(0x2102, DISPATCH_METHOD, nothing), S_OK);

  Activate();
  Choose(Control(IDC_OPTIONS_LANGUAGE), kFrench);
  PropertyPage* page = nullptr;
  ASSERT_EQ(m_page->QueryInterface(__uuidof(PropertyPage), reinterpret_cast<void**>(&page)), S_OK);
  void** const slots = *reinterpret_cast<void***>(page);
  VARIANT_BOOL dirty = VARIANT_FALSE;
  reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT_BOOL*)>(slots[8])(page, &dirty);
  EXPECT_EQ(dirty, VARIANT_TRUE);
  reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*)>(slots[9])(page);
  EXPECT_EQ(m_desk.applied.size(), 1u);
  long context = 0;
  EXPECT_EQ(page->GetPageInfo(nullptr, &context), E_NOTIMPL);
  page->Release();
}

TEST_F(OptionsPage, IsTheControlThatContainersExpect) {
  IUnknown* identity = nullptr;
  m_page->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity));
  for (const IID& iid :
       {IID_IDispatch, IID_IOleObject, IID_IOleInPlaceObject, IID_IOleInPlaceActiveObject,
        IID_IOleWindow, IID_IOleControl, IID_IPersistStreamInit, IID_IPersist, IID_IViewObject,
        IID_IViewObject2, IID_IProvideClassInfo, __uuidof(PropertyPage)}) {
    IUnknown* part = nullptr;
    ASSERT_EQ(m_page->QueryInterface(iid, reinterpret_cast<void**>(&part)), S_OK);
    IUnknown* whole = nullptr;
    part->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&whole));
    EXPECT_EQ(whole, identity);
    whole->Release();
    part->Release();
  }
  identity->Release();
  void* other = this;
  EXPECT_EQ(m_page->QueryInterface(IID_IDataObject, &other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);

  DWORD status = 0;
  EXPECT_EQ(m_object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473u);
  CONTROLINFO info = {};
  info.cb = sizeof info;
  EXPECT_EQ(IOleControlPtr(m_page)->GetControlInfo(&info), S_OK);
  ITypeInfo* description = nullptr;
  ASSERT_EQ(IProvideClassInfoPtr(m_page)->GetClassInfo(&description), S_OK);
  TYPEATTR* attributes = nullptr;
  description->GetTypeAttr(&attributes);
  EXPECT_TRUE(attributes->guid == kPropertyPageClsid);
  description->ReleaseTypeAttr(attributes);
  description->Release();
}

TEST_F(OptionsPage, ShowsItsPanelWhereTheContainerSays) {
  SIZEL extent = {};
  m_object->GetExtent(DVASPECT_CONTENT, &extent);
  Activate();
  RECT place = {};
  GetWindowRect(Window(), &place);
  MapWindowPoints(nullptr, m_stage.outlook, reinterpret_cast<POINT*>(&place), 2);
  EXPECT_TRUE(EqualRect(&place, &CPageContainer::kPlace));
  EXPECT_EQ(GetParent(Window()), m_stage.outlook);
  EXPECT_TRUE(IsWindowVisible(Control(IDC_OPTIONS_ABOUT)));
  EXPECT_TRUE(GetWindowLongPtrW(Window(), GWL_EXSTYLE) & WS_EX_CONTROLPARENT);

  // The lowest control lies within the size that the page requests.
  RECT lowest = {};
  GetWindowRect(Control(IDC_OPTIONS_ABOUT), &lowest);
  MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&lowest), 2);
  EXPECT_LT(lowest.bottom, MulDiv(extent.cy, 96, 2540));
  EXPECT_LT(lowest.right, MulDiv(extent.cx, 96, 2540));

  const RECT moved = {0, 0, 300, 200};
  EXPECT_EQ(m_inPlace->SetObjectRects(&moved, &moved), S_OK);
  GetClientRect(Window(), &place);
  EXPECT_TRUE(EqualRect(&place, &moved));
}

TEST_F(OptionsPage, StaysDirtyWhenNothingCouldBeKept) {
  Activate();
  m_desk.refuses = true;
  Choose(Control(IDC_OPTIONS_POP_UP + 1), 1);
  EXPECT_EQ(m_container.statusChanges, 1);
  _variant_t nothing;
  EXPECT_TRUE(FAILED(Ask(0x2102, DISPATCH_METHOD, nothing)));
  EXPECT_TRUE(IsDirty());
}

TEST_F(OptionsPage, KeepsTheKeysThatAreItsOwn) {
  Activate(OLEIVERB_UIACTIVATE);
  EXPECT_EQ(m_container.uiActive, 1);
  EXPECT_TRUE(m_container.hasActiveObject);
  EXPECT_EQ(GetFocus(), Control(IDC_OPTIONS_LANGUAGE));

  EXPECT_TRUE(Uses(WM_KEYDOWN, VK_TAB));
  EXPECT_EQ(GetFocus(), Control(IDC_OPTIONS_POP_UP));
  EXPECT_TRUE(Uses(WM_SYSCHAR, L'g'));
  EXPECT_EQ(GetFocus(), Control(IDC_OPTIONS_LANGUAGE));
  EXPECT_EQ(m_container.keysHandedOn, 0);
  EXPECT_FALSE(Uses(WM_SYSCHAR, L'a'));
  EXPECT_FALSE(Uses(WM_KEYDOWN, VK_RETURN));
  EXPECT_FALSE(Uses(WM_KEYDOWN, VK_ESCAPE));
  EXPECT_EQ(m_container.keysHandedOn, 3);

  SetFocus(Control(IDC_OPTIONS_ABOUT));
  EXPECT_FALSE(Uses(WM_KEYDOWN, VK_TAB));
  EXPECT_TRUE(Uses(WM_KEYDOWN, VK_RETURN));
  EXPECT_EQ(m_desk.abouts.size(), 1u);
  SendMessageW(Control(IDC_OPTIONS_LANGUAGE), CB_SHOWDROPDOWN, TRUE, 0);
  SetFocus(Control(IDC_OPTIONS_LANGUAGE));
  EXPECT_TRUE(Uses(WM_KEYDOWN, VK_ESCAPE));
}

TEST_F(OptionsPage, TellsItsContainerThatTheKeyboardHasCome) {
  Activate();
  EXPECT_FALSE(m_container.hasActiveObject);
  SetFocus(Control(IDC_OPTIONS_ABOUT));
  EXPECT_TRUE(m_container.hasActiveObject);
  SetFocus(Control(IDC_OPTIONS_LANGUAGE));
  EXPECT_EQ(m_container.uiActive, 1);
  m_inPlace->UIDeactivate();
  EXPECT_FALSE(m_container.hasActiveObject);
  SetFocus(Control(IDC_OPTIONS_POP_UP));
  EXPECT_TRUE(m_container.hasActiveObject);
}

TEST_F(OptionsPage, LeavesItsSiteWithNothingHeld) {
  Activate(OLEIVERB_UIACTIVATE);
  EXPECT_GT(m_container.references, 1u);
  m_object->SetClientSite(nullptr);
  EXPECT_EQ(m_container.references, 1u);
  EXPECT_EQ(m_container.active, 0);
  EXPECT_EQ(m_container.uiActive, 0);
  EXPECT_FALSE(m_container.hasActiveObject);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(OptionsPage, SurvivesAContainerThatIsGoneFirst) {
  Activate();
  Choose(Control(IDC_OPTIONS_LANGUAGE), kSpanish);
  m_stage.CloseOutlook();
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(IsDirty());
  m_page->AddRef();
  IDispatch* last = m_page;
  ReleasePage();
  EXPECT_EQ(m_stage.addin.references, 2u);  // the page holds what it needs
  last->Release();
}

TEST_F(OptionsPage, ARefusedActivationLeavesNothingOpen) {
  m_container.permits = false;
  m_object->SetClientSite(&m_container);
  EXPECT_TRUE(FAILED(m_object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
  EXPECT_EQ(m_container.active, 0);
  EXPECT_EQ(Window(), nullptr);
  // Without a site it needs a parent.
  m_object->SetClientSite(nullptr);
  EXPECT_TRUE(FAILED(m_object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
  EXPECT_EQ(m_object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, m_stage.outlook, nullptr), S_OK);
  EXPECT_TRUE(IsWindowVisible(Window()));

  m_stage.CloseOutlook();
  m_container.permits = true;
  m_object->SetClientSite(&m_container);
  EXPECT_TRUE(FAILED(m_object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
  EXPECT_EQ(m_container.active, 0);
}

TEST_F(OptionsPage, WithoutValuesThereIsNoPage) {
  m_desk.refuses = true;
  m_desk.loads = false;
  IDispatch* page = nullptr;
  EXPECT_ANY_THROW(Make(&page));
  EXPECT_EQ(page, nullptr);
  EXPECT_EQ(m_stage.addin.references, 2u);  // held by the other page
}

}  // namespace
}  // namespace quor
