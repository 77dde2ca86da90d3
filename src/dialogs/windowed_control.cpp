#include "dialogs/windowed_control.h"

#include <utility>

#include "com/com_boundary.h"
#include "resources/system_resolution.h"

namespace quor {
namespace {

// Equals MiscStatus 131473 in the registration script.
constexpr DWORD kMiscStatus = OLEMISC_SETCLIENTSITEFIRST | OLEMISC_ACTIVATEWHENVISIBLE |
                              OLEMISC_INSIDEOUT | OLEMISC_CANTLINKINSIDE |
                              OLEMISC_RECOMPOSEONRESIZE;

constexpr int kHimetricPerInch = 2540;

RECT PixelsFrom(const SIZEL& extent) noexcept {
  const int dots = SystemDotsPerInch();
  return {0, 0, MulDiv(extent.cx, dots, kHimetricPerInch),
          MulDiv(extent.cy, dots, kHimetricPerInch)};
}

// In the format of IOleControlSite: bit 0 Shift, bit 1 Ctrl, bit 2 Alt.
DWORD KeyModifiers() noexcept {
  DWORD modifiers = 0;
  if (GetKeyState(VK_SHIFT) < 0) modifiers |= 1;
  if (GetKeyState(VK_CONTROL) < 0) modifiers |= 2;
  if (GetKeyState(VK_MENU) < 0) modifiers |= 4;
  return modifiers;
}

}  // namespace

void* CWindowedControl::FindControlInterface(REFIID iid) noexcept {
  if (iid == IID_IOleObject) return static_cast<IOleObject*>(this);
  if (iid == IID_IOleInPlaceObject || iid == IID_IOleWindow) {
    return static_cast<IOleInPlaceObject*>(this);
  }
  if (iid == IID_IOleInPlaceActiveObject) return static_cast<IOleInPlaceActiveObject*>(this);
  if (iid == IID_IOleControl) return static_cast<IOleControl*>(this);
  if (iid == IID_IPersistStreamInit || iid == IID_IPersist) {
    return static_cast<IPersistStreamInit*>(this);
  }
  if (iid == IID_IViewObject || iid == IID_IViewObject2) return static_cast<IViewObject2*>(this);
  if (iid == IID_IProvideClassInfo) return static_cast<IProvideClassInfo*>(this);
  return nullptr;
}

STDMETHODIMP CWindowedControl::SetClientSite(IOleClientSite* site) {
  const IUnknownPtr alive = static_cast<IOleObject*>(this);
  return GuardComCall(m_log, "SetClientSite", [&]() -> HRESULT {
    if (site == nullptr) InPlaceDeactivate();
    m_clientSite = site;
    OnClientSite(site);
    return S_OK;
  });
}

STDMETHODIMP CWindowedControl::GetClientSite(IOleClientSite** site) {
  if (site == nullptr) return E_POINTER;
  *site = IOleClientSitePtr(m_clientSite).Detach();
  return S_OK;
}

STDMETHODIMP CWindowedControl::SetHostNames(LPCOLESTR, LPCOLESTR) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::Close(DWORD) {
  const IUnknownPtr alive = static_cast<IOleObject*>(this);
  InPlaceDeactivate();
  if (m_advises != nullptr) m_advises->SendOnClose();
  return S_OK;
}

STDMETHODIMP CWindowedControl::SetMoniker(DWORD, IMoniker*) {
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker == nullptr) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::InitFromData(IDataObject*, BOOL, DWORD) {
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::GetClipboardData(DWORD, IDataObject** data) {
  if (data == nullptr) return E_POINTER;
  *data = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent,
                                      LPCRECT place) {
  const IUnknownPtr alive = static_cast<IOleObject*>(this);
  switch (verb) {
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
    case OLEIVERB_PRIMARY:
    case OLEIVERB_UIACTIVATE:
      break;
    case OLEIVERB_HIDE:
      return InPlaceDeactivate();
    default:
      if (verb < 0) return E_NOTIMPL;
      break;
  }
  const HRESULT result = GuardComCall(m_log, "DoVerb", [&]() -> HRESULT {
    Activate(parent, place);
    if (verb == OLEIVERB_PRIMARY || verb == OLEIVERB_UIACTIVATE) UiActivate();
    return verb > 0 ? OLEOBJ_S_INVALIDVERB : S_OK;
  });
  if (FAILED(result)) InPlaceDeactivate();
  return result;
}

void CWindowedControl::Activate(HWND parent, const RECT* place) {
  if (ControlWindow() != nullptr) return;
  const RECT area = EnterSite(parent, place);
  if (parent == nullptr) _com_issue_error(E_FAIL);
  OpenWindow(parent);
  SetWindowPos(ControlWindow(), nullptr, area.left, area.top, area.right - area.left,
               area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  const IOleClientSitePtr site = m_clientSite;
  if (site != nullptr) site->ShowObject();
}

// Returns the window's position and sets its parent, from the container's in-place site if it
// supplies them, otherwise from the verb's arguments.
RECT CWindowedControl::EnterSite(HWND& parent, const RECT* place) {
  RECT area = place != nullptr ? *place : PixelsFrom(m_extent);
  IOleInPlaceSitePtr site = m_clientSite;
  if (site == nullptr) return area;
  if (site->CanInPlaceActivate() != S_OK) _com_issue_error(E_FAIL);
  const HRESULT entered = site->OnInPlaceActivate();
  if (FAILED(entered)) _com_issue_error(entered);
  m_inPlaceSite = site;

  HWND own = nullptr;
  if (SUCCEEDED(site->GetWindow(&own)) && own != nullptr) parent = own;
  IOleInPlaceUIWindowPtr document;
  RECT position = {};
  RECT clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  if (SUCCEEDED(site->GetWindowContext(&m_frame, &document, &position, &clip, &info)) &&
      !IsRectEmpty(&position)) {
    area = position;
  }
  return area;
}

void CWindowedControl::UiActivate() {
  if (!m_uiActive && m_inPlaceSite != nullptr) {
    // Hold the site: the container may deactivate the control inside either call.
    const IOleInPlaceSitePtr site = m_inPlaceSite;
    m_uiActive = true;
    site->OnUIActivate();
    const IOleInPlaceFramePtr frame = m_frame;
    if (frame != nullptr) frame->SetActiveObject(this, nullptr);
  }
  if (ControlWindow() != nullptr && !IsChild(ControlWindow(), GetFocus())) TakeFocus();
}

STDMETHODIMP CWindowedControl::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs == nullptr) return E_POINTER;
  *verbs = nullptr;
  return OLE_S_USEREG;
}

STDMETHODIMP CWindowedControl::Update() {
  return S_OK;
}

STDMETHODIMP CWindowedControl::IsUpToDate() {
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetUserClassID(CLSID* clsid) {
  return GetClassID(clsid);
}

STDMETHODIMP CWindowedControl::GetUserType(DWORD, LPOLESTR* type) {
  if (type == nullptr) return E_POINTER;
  *type = nullptr;
  return OLE_S_USEREG;
}

STDMETHODIMP CWindowedControl::SetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  m_extent = *size;
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = m_extent;
  return S_OK;
}

HRESULT CWindowedControl::RequireAdviseHolder() noexcept {
  return m_advises != nullptr ? S_OK : CreateOleAdviseHolder(&m_advises);
}

STDMETHODIMP CWindowedControl::Advise(IAdviseSink* sink, DWORD* connection) {
  const HRESULT result = RequireAdviseHolder();
  return FAILED(result) ? result : m_advises->Advise(sink, connection);
}

STDMETHODIMP CWindowedControl::Unadvise(DWORD connection) {
  return m_advises != nullptr ? m_advises->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP CWindowedControl::EnumAdvise(IEnumSTATDATA** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return m_advises != nullptr ? m_advises->EnumAdvise(connections) : S_OK;
}

STDMETHODIMP CWindowedControl::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

STDMETHODIMP CWindowedControl::SetColorScheme(LOGPALETTE*) {
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = ControlWindow();
  return *window != nullptr ? S_OK : E_FAIL;
}

STDMETHODIMP CWindowedControl::ContextSensitiveHelp(BOOL) {
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::InPlaceDeactivate() {
  const IUnknownPtr alive = static_cast<IOleObject*>(this);
  UIDeactivate();
  CloseWindow();
  m_frame = nullptr;
  // Call the site last: it may release the control.
  const IOleInPlaceSitePtr site(m_inPlaceSite.Detach(), false);
  if (site != nullptr) site->OnInPlaceDeactivate();
  return S_OK;
}

STDMETHODIMP CWindowedControl::UIDeactivate() {
  const IUnknownPtr alive = static_cast<IOleObject*>(this);
  if (!std::exchange(m_uiActive, false)) return S_OK;
  // Hold both: the container may deactivate the control inside either call.
  const IOleInPlaceFramePtr frame = m_frame;
  const IOleInPlaceSitePtr site = m_inPlaceSite;
  if (frame != nullptr) frame->SetActiveObject(nullptr, nullptr);
  if (site != nullptr) site->OnUIDeactivate(FALSE);
  return S_OK;
}

STDMETHODIMP CWindowedControl::SetObjectRects(LPCRECT place, LPCRECT) {
  if (place == nullptr) return E_POINTER;
  if (ControlWindow() == nullptr) return E_UNEXPECTED;
  SetWindowPos(ControlWindow(), nullptr, place->left, place->top, place->right - place->left,
               place->bottom - place->top, SWP_NOZORDER | SWP_NOACTIVATE);
  return S_OK;
}

STDMETHODIMP CWindowedControl::ReactivateAndUndo() {
  return INPLACE_E_NOTUNDOABLE;
}

STDMETHODIMP CWindowedControl::TranslateAccelerator(LPMSG message) {
  if (message == nullptr) return E_POINTER;
  const IUnknownPtr alive = static_cast<IOleObject*>(this);
  if (TranslateKey(*message)) return S_OK;
  HRESULT result = S_FALSE;
  GuardCall(m_log, "TranslateAccelerator", [&] {
    const IOleControlSitePtr site = m_clientSite;
    if (site != nullptr) result = site->TranslateAccelerator(message, KeyModifiers());
  });
  return result == S_OK ? S_OK : S_FALSE;
}

STDMETHODIMP CWindowedControl::OnFrameWindowActivate(BOOL) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::OnDocWindowActivate(BOOL) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::EnableModeless(BOOL) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetControlInfo(CONTROLINFO* info) {
  if (info == nullptr) return E_POINTER;
  // TranslateAccelerator, or the dialog around the window, handles its access keys.
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = 0;
  return S_OK;
}

STDMETHODIMP CWindowedControl::OnMnemonic(MSG*) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::OnAmbientPropertyChange(DISPID) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::FreezeEvents(BOOL) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetClassID(CLSID* clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = m_clsid;
  return S_OK;
}

STDMETHODIMP CWindowedControl::IsDirty() {
  return S_FALSE;
}

STDMETHODIMP CWindowedControl::Load(IStream*) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::Save(IStream*, BOOL) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

STDMETHODIMP CWindowedControl::InitNew() {
  return S_OK;
}

STDMETHODIMP CWindowedControl::Draw(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECTL,
                                    LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                           LOGPALETTE** colors) {
  if (colors == nullptr) return E_POINTER;
  *colors = nullptr;
  return S_FALSE;
}

STDMETHODIMP CWindowedControl::Freeze(DWORD, LONG, void*, DWORD*) {
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::Unfreeze(DWORD) {
  return E_NOTIMPL;
}

STDMETHODIMP CWindowedControl::SetAdvise(DWORD, DWORD, IAdviseSink*) {
  return OLE_E_ADVISENOTSUPPORTED;
}

STDMETHODIMP CWindowedControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (aspects != nullptr) *aspects = 0;
  if (flags != nullptr) *flags = 0;
  if (sink != nullptr) *sink = nullptr;
  return S_OK;
}

STDMETHODIMP CWindowedControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
  return GetExtent(aspect, size);
}

STDMETHODIMP CWindowedControl::GetClassInfo(ITypeInfo** info) {
  return m_classInfo.GetTypeInfo(0, LOCALE_NEUTRAL, info);
}

}  // namespace quor
