#include "workbench/host/page_site.h"

namespace quor::workbench {

CPageSite::CPageSite(CSession& session, IPageFrame& frame)
    : COutlookObject(session, Members(), ObjectClass::PropertyPageSite), m_frame(&frame) {}

const CMemberTable& CPageSite::Members() {
  static const CMemberTable table("PropertyPageSite", L"PropertyPageSite", &CommonMembers(),
                                  {Method<&CPageSite::OnStatusChange>(L"OnStatusChange")});
  return table;
}

STDMETHODIMP CPageSite::QueryInterface(REFIID iid, void** object) {
  return COutlookObject::QueryInterface(iid, object);
}

STDMETHODIMP CPageSite::TranslateAccelerator(LPMSG, DWORD) {
  ++m_unusedKeys;
  return S_FALSE;
}

void* CPageSite::OtherInterface(REFIID iid) {
  if (iid == IID_IOleClientSite) return static_cast<IOleClientSite*>(this);
  if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
    return static_cast<IOleInPlaceSite*>(this);
  }
  if (iid == IID_IOleControlSite) return static_cast<IOleControlSite*>(this);
  if (iid == IID_IOleInPlaceFrame || iid == IID_IOleInPlaceUIWindow) {
    return static_cast<IOleInPlaceFrame*>(this);
  }
  return COutlookObject::OtherInterface(iid);
}

STDMETHODIMP CPageSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  *moniker = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP CPageSite::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP CPageSite::GetExtendedControl(IDispatch** control) {
  *control = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP CPageSite::GetWindow(HWND* window) {
  *window = m_frame != nullptr ? m_frame->FrameWindow() : nullptr;
  return *window != nullptr ? S_OK : E_FAIL;
}

STDMETHODIMP CPageSite::OnInPlaceActivate() {
  m_active = true;
  return S_OK;
}

STDMETHODIMP CPageSite::OnInPlaceDeactivate() {
  m_active = false;
  return S_OK;
}

STDMETHODIMP CPageSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                         LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *frame = nullptr;
  *document = nullptr;
  if (m_frame == nullptr) return E_FAIL;
  *frame = this;
  AddRef();
  *place = *clip = m_frame->PagePlace();
  *info = {sizeof *info, FALSE, m_frame->FrameWindow(), nullptr, 0};
  return S_OK;
}

STDMETHODIMP CPageSite::SetActiveObject(IOleInPlaceActiveObject* page, LPCOLESTR) {
  if (m_frame != nullptr) m_frame->SetActivePage(page);
  return S_OK;
}

void CPageSite::OnStatusChange() {
  if (m_frame != nullptr) m_frame->OnPageStatus();
}

}  // namespace quor::workbench
