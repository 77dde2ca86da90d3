#include "dialogs/property_page.h"

#include "com/com_boundary.h"
#include "com/dispatch_object.h"
#include "module/identifiers.h"
#include "resources/resource_ids.h"

namespace quor {
namespace {

// Outlook's PropertyPageSite and its only method.
constexpr IID kPropertyPageSite = OfficeId(0x0006307F);
constexpr DISPID kOnStatusChange = 0x2100;

// The panel's 217 x 174 dialog units in Segoe UI 9, 380 x 326 pixels at 96 dpi, in HIMETRIC (0.01
// mm). Outlook's space for a page is hardly larger.
constexpr SIZEL kExtent = {10054, 8625};
constexpr uint16_t kPoints = 9;

}  // namespace

CPropPage::CPropPage(const OptionsPageParts& parts)
    : CComObject(kPropertyPageClsid, kExtent, parts.log),
      m_addin(&parts.addin),
      m_store(parts.store),
      m_resources(parts.resources),
      m_log(parts.log),
      m_panel({Identity(), parts.resources, parts.log}, *this, kPoints) {
  m_panel.Load(m_store.Reload());
}

HRESULT CPropPage::Create(const OptionsPageParts& parts, REFIID iid, void** object) {
  *object = nullptr;
  const IUnknownPtr page(&(new CPropPage(parts))->Identity(), false);
  return page->QueryInterface(iid, object);
}

void* CPropPage::FindInterface(REFIID iid) noexcept {
  if (iid == IID_IUnknown) return &Identity();
  if (iid == IID_IDispatch || iid == __uuidof(ITelephonePropertyPage)) {
    return static_cast<ITelephonePropertyPage*>(this);
  }
  if (iid == __uuidof(PropertyPage)) return static_cast<PropertyPage*>(this);
  return FindControlInterface(iid);
}

STDMETHODIMP CPropPage::GetPageInfo(BSTR*, long*) {
  return E_NOTIMPL;  // there is no help file
}

STDMETHODIMP CPropPage::get_Dirty(VARIANT_BOOL* dirty) {
  if (dirty == nullptr) return E_POINTER;
  *dirty = m_panel.IsDirty() ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

STDMETHODIMP CPropPage::Apply() {
  const IUnknownPtr alive = &Identity();
  return GuardComCall(m_log, "options page", [&]() -> HRESULT {
    if (!m_panel.IsDirty()) return S_OK;
    const OptionValues values = m_panel.ValuesOver(m_store.Load());
    m_store.Apply(values);
    m_panel.Load(values);
    return S_OK;
  });
}

STDMETHODIMP CPropPage::get_Caption(BSTR* caption) {
  if (caption == nullptr) return E_POINTER;
  *caption = nullptr;
  return GuardComCall(m_log, "options page", [&]() -> HRESULT {
    *caption = BstrFromText(m_resources.Text(IDS_PRODUCT_NAME)).Detach();
    return S_OK;
  });
}

void CPropPage::OnClientSite(IOleClientSite* site) {
  IDispatchPtr found;
  if (site != nullptr) site->QueryInterface(kPropertyPageSite, reinterpret_cast<void**>(&found));
  m_pageSite = found;
}

void CPropPage::OnOptionsChanged() {
  const IUnknownPtr alive = &Identity();
  const IDispatchPtr site = m_pageSite;
  if (site == nullptr) return;
  DISPPARAMS none = {};
  const HRESULT result = site->Invoke(kOnStatusChange, IID_NULL, LOCALE_USER_DEFAULT,
                                      DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
  if (FAILED(result)) _com_issue_error(result);
}

void CPropPage::OnAboutPressed() {
  m_store.ShowAbout(GetAncestor(m_panel.Window(), GA_ROOT));
}

}  // namespace quor
