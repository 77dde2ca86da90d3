#include "workbench/host/options_page.h"

namespace quor::workbench {

namespace {

void Check(HRESULT result, const char* what) {
  if (FAILED(result)) throw CModelError(result, what);
}

IUnknown* MakeByProgId(const std::wstring& progId) {
  CLSID classId = {};
  Check(CLSIDFromProgID(progId.c_str(), &classId), "The page's ProgID names no class.");
  IUnknown* object = nullptr;
  Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                         reinterpret_cast<void**>(&object)),
        "The page cannot be created.");
  return object;
}

template <typename Interface>
Interface* Ask(IUnknown* object, REFIID iid) noexcept {
  Interface* found = nullptr;
  object->QueryInterface(iid, reinterpret_cast<void**>(&found));
  return found;
}

template <typename Interface>
void Drop(Interface*& object) noexcept {
  if (object != nullptr) object->Release();
  object = nullptr;
}

}  // namespace

COptionsPage::COptionsPage(CSession& session, IPageFrame& frame, const OptionsPage& page)
    : m_frame(frame), m_site(MakeObject<CPageSite>(session, frame)), m_title(page.title) {
  try {
    if (page.progId.empty()) {
      m_object = V_DISPATCH(&page.object.Get());
      m_object->AddRef();
    } else {
      m_object = MakeByProgId(page.progId);
    }
    m_page = Ask<IPropertyPage>(m_object, kPropertyPageId);
    m_control = Ask<IOleObject>(m_object, IID_IOleObject);
    if (m_page == nullptr || m_control == nullptr) {
      throw CModelError(E_NOINTERFACE, "The page lacks PropertyPage or IOleObject.");
    }
    // The site is set first because the control has OLEMISC_SETCLIENTSITEFIRST.
    Check(m_control->SetClientSite(m_site.get()), "The page rejects its site.");
    if (auto* stored = Ask<IPersistStreamInit>(m_object, IID_IPersistStreamInit)) {
      const HRESULT made = stored->InitNew();
      stored->Release();
      Check(made, "The page's InitNew failed.");
    }
    m_control->SetHostNames(L"Outlook", m_title.c_str());
    BSTR helpFile = nullptr;
    long helpContext = 0;
    m_page->GetPageInfo(&helpFile, &helpContext);
    SysFreeString(helpFile);
    if (m_title.empty()) m_title = Caption();
  } catch (...) {
    Release();
    throw;
  }
}

COptionsPage::~COptionsPage() {
  Release();
}

void COptionsPage::Release() noexcept {
  if (m_control != nullptr) {
    m_control->Close(OLECLOSE_NOSAVE);
    m_control->SetClientSite(nullptr);
  }
  m_site->Leave();
  Drop(m_control);
  Drop(m_page);
  Drop(m_object);
}

std::wstring COptionsPage::Caption() {
  constexpr DISPID kCaption = -518;
  VARIANT caption;
  VariantInit(&caption);
  DISPPARAMS none = {};
  m_page->Invoke(kCaption, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &caption,
                 nullptr, nullptr);
  std::wstring text;
  if (V_VT(&caption) == VT_BSTR) text = WideFromBstr(V_BSTR(&caption));
  VariantClear(&caption);
  return text;
}

void COptionsPage::Show() {
  const RECT place = m_frame.PagePlace();
  Check(m_control->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, m_site.get(), 0, m_frame.FrameWindow(),
                          &place),
        "The page cannot be shown.");
  if (!m_site->IsActive()) throw CModelError(E_FAIL, "The page did not call OnInPlaceActivate.");
  if (auto* inPlace = Ask<IOleInPlaceObject>(m_object, IID_IOleInPlaceObject)) {
    inPlace->SetObjectRects(&place, &place);
    inPlace->Release();
  }
}

void COptionsPage::Hide() noexcept {
  m_control->DoVerb(OLEIVERB_HIDE, nullptr, m_site.get(), 0, m_frame.FrameWindow(), nullptr);
}

bool COptionsPage::IsDirty() {
  VARIANT_BOOL dirty = VARIANT_FALSE;
  Check(m_page->get_Dirty(&dirty), "The page's Dirty property failed.");
  return dirty != VARIANT_FALSE;
}

void COptionsPage::Apply() {
  Check(m_page->Apply(), "The page could not apply the changes.");
}

}  // namespace quor::workbench
