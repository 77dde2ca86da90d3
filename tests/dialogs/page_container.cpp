#include "tests/dialogs/page_container.h"

namespace quor {
namespace {

constexpr IID kPropertyPageSite = {
    0x0006307F, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr DISPID kOnStatusChange = 0x2100;

}  // namespace

STDMETHODIMP CPageContainer::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
    *object = static_cast<IOleClientSite*>(this);
  } else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
    *object = static_cast<IOleInPlaceSite*>(this);
  } else if (iid == IID_IOleControlSite) {
    *object = static_cast<IOleControlSite*>(this);
  } else if (iid == kPropertyPageSite || iid == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

STDMETHODIMP CPageContainer::GetWindow(HWND* window) {
  *window = m_window;
  return S_OK;
}

STDMETHODIMP CPageContainer::OnInPlaceActivate() {
  ++active;
  return S_OK;
}

STDMETHODIMP CPageContainer::OnInPlaceDeactivate() {
  --active;
  return S_OK;
}

STDMETHODIMP CPageContainer::OnUIActivate() {
  ++uiActive;
  return S_OK;
}

STDMETHODIMP CPageContainer::OnUIDeactivate(BOOL) {
  --uiActive;
  return S_OK;
}

STDMETHODIMP CPageContainer::GetWindowContext(IOleInPlaceFrame** frame,
                                              IOleInPlaceUIWindow** document, LPRECT place,
                                              LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *frame = this;
  AddRef();
  *document = nullptr;
  *place = kPlace;
  *clip = kPlace;
  *info = {sizeof *info, FALSE, m_window, nullptr, 0};
  return S_OK;
}

STDMETHODIMP CPageContainer::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
  hasActiveObject = object != nullptr;
  return S_OK;
}

STDMETHODIMP CPageContainer::TranslateAccelerator(LPMSG, DWORD) {
  ++keysHandedOn;
  return S_FALSE;
}

STDMETHODIMP CPageContainer::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                    VARIANT*, EXCEPINFO*, UINT*) {
  if (id != kOnStatusChange || flags != DISPATCH_METHOD || arguments->cArgs != 0) {
    return DISP_E_MEMBERNOTFOUND;
  }
  ++statusChanges;
  return S_OK;
}

}  // namespace quor
