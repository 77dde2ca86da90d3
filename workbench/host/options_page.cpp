#include "workbench/host/options_page.h"

namespace quor::workbench {

namespace {

void Check(HRESULT result, const char* what) {
  if (FAILED(result)) throw CModelError(result, what);
}

IUnknownPtr MakeByProgId(const std::wstring& progId) {
  CLSID classId = {};
  Check(CLSIDFromProgID(progId.c_str(), &classId), "The page's ProgID names no class.");
  IUnknownPtr object;
  Check(object.CreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER),
        "The page cannot be created.");
  return object;
}

// Another interface of the object; null if it has none.
template <typename Pointer>
Pointer Ask(IUnknown* object) noexcept {
  Pointer found;
  object->QueryInterface(Pointer::GetIID(), reinterpret_cast<void**>(&found));
  return found;
}

}  // namespace

COptionsPage::COptionsPage(CSession& session, IPageFrame& frame, const OptionsPage& page)
    : m_frame(frame), m_site(MakeObject<CPageSite>(session, frame)), m_title(page.title) {
  try {
    Load(page);
  } catch (...) {
    Close();
    throw;
  }
}

COptionsPage::~COptionsPage() {
  Close();
}

void COptionsPage::Load(const OptionsPage& page) {
  m_object =
      page.progId.empty() ? IUnknownPtr(V_DISPATCH(&page.object.Get())) : MakeByProgId(page.progId);
  m_page = Ask<IPropertyPagePtr>(m_object);
  m_control = Ask<IOleObjectPtr>(m_object);
  if (m_page == nullptr || m_control == nullptr) {
    throw CModelError(E_NOINTERFACE, "The page lacks PropertyPage or IOleObject.");
  }
  // The site is set first because the control has OLEMISC_SETCLIENTSITEFIRST.
  Check(m_control->SetClientSite(m_site.get()), "The page rejects its site.");
  if (const auto stored = Ask<IPersistStreamInitPtr>(m_object)) {
    Check(stored->InitNew(), "The page's InitNew failed.");
  }
  m_control->SetHostNames(L"Outlook", m_title.c_str());
  BSTR helpFile = nullptr;
  long helpContext = 0;
  m_page->GetPageInfo(&helpFile, &helpContext);
  SysFreeString(helpFile);
  if (m_title.empty()) m_title = Caption();
}

void COptionsPage::Close() noexcept {
  if (m_control != nullptr) {
    m_control->Close(OLECLOSE_NOSAVE);
    m_control->SetClientSite(nullptr);
  }
  m_site->Leave();
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
  if (const auto inPlace = Ask<IOleInPlaceObjectPtr>(m_object)) {
    inPlace->SetObjectRects(&place, &place);
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
