#ifndef QUOR_DIALOGS_WINDOWED_CONTROL_H
#define QUOR_DIALOGS_WINDOWED_CONTROL_H

#include "com/com_pointers.h"
#include "com/type_info_dispatch.h"
#include "module/diagnostic_log.h"

// ocidl.h requires windows.h first.
#include <ocidl.h>

_COM_SMARTPTR_TYPEDEF(IOleAdviseHolder, IID_IOleAdviseHolder);
_COM_SMARTPTR_TYPEDEF(IOleClientSite, IID_IOleClientSite);
_COM_SMARTPTR_TYPEDEF(IOleControlSite, IID_IOleControlSite);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceFrame, IID_IOleInPlaceFrame);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceSite, IID_IOleInPlaceSite);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceUIWindow, IID_IOleInPlaceUIWindow);

namespace quor {

// The part of an ActiveX control that a container needs to show one of our windows in a dialog:
// active while visible, draws nothing otherwise, has nothing to store. The derived class is the COM
// object.
class CWindowedControl : public IOleObject,
                         public IOleInPlaceObject,
                         public IOleInPlaceActiveObject,
                         public IOleControl,
                         public IPersistStreamInit,
                         public IViewObject2,
                         public IProvideClassInfo {
 public:
  CWindowedControl(const CWindowedControl&) = delete;
  CWindowedControl& operator=(const CWindowedControl&) = delete;

  // IOleObject
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) override;
  STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) override;
  STDMETHODIMP Close(DWORD saveOption) override;
  STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
  STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
  STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
  STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                      LPCRECT place) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
  STDMETHODIMP Update() override;
  STDMETHODIMP IsUpToDate() override;
  STDMETHODIMP GetUserClassID(CLSID* clsid) override;
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
  STDMETHODIMP Unadvise(DWORD connection) override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;

  // IOleWindow, of both in-place interfaces
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;

  // IOleInPlaceObject
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override;
  STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
  STDMETHODIMP ReactivateAndUndo() override;

  // IOleInPlaceActiveObject
  STDMETHODIMP TranslateAccelerator(LPMSG message) override;
  STDMETHODIMP OnFrameWindowActivate(BOOL active) override;
  STDMETHODIMP OnDocWindowActivate(BOOL active) override;
  STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) override;
  STDMETHODIMP EnableModeless(BOOL enable) override;

  // IOleControl
  STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
  STDMETHODIMP OnMnemonic(MSG* message) override;
  STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
  STDMETHODIMP FreezeEvents(BOOL freeze) override;

  // IPersistStreamInit
  STDMETHODIMP GetClassID(CLSID* clsid) override;
  STDMETHODIMP IsDirty() override;
  STDMETHODIMP Load(IStream* stream) override;
  STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
  STDMETHODIMP InitNew() override;

  // IViewObject2
  STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                    HDC targetContext, HDC drawContext, LPCRECTL bounds, LPCRECTL windowBounds,
                    BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR goOnParameter) override;
  STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                           HDC targetContext, LOGPALETTE** colors) override;
  STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* freeze) override;
  STDMETHODIMP Unfreeze(DWORD freeze) override;
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) override;

  // IProvideClassInfo
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;

 protected:
  // `clsid` is the registered class and must outlive the control; `extent` is the window's design
  // size in HIMETRIC (2540 per inch).
  CWindowedControl(REFCLSID clsid, SIZEL extent, CDiagnosticLog& log) noexcept
      : m_clsid(clsid), m_extent(extent), m_log(log), m_classInfo(clsid) {}
  ~CWindowedControl() = default;

  // One of the interfaces above without a reference; null for any other.
  void* FindControlInterface(REFIID iid) noexcept;

  // Call when the window has or should take the focus. The container then passes its keyboard
  // messages.
  void UiActivate();

  // Called inside a boundary: exceptions are allowed.
  virtual void OpenWindow(HWND parent) = 0;
  virtual void CloseWindow() noexcept = 0;
  // Null if there is no window; it may be destroyed with its parent.
  virtual HWND ControlWindow() const noexcept = 0;
  virtual void TakeFocus() noexcept = 0;
  // True if the window used the keyboard message.
  virtual bool TranslateKey(MSG& message) noexcept = 0;
  // Called when the site changes; `site` is null when the container releases the control.
  virtual void OnClientSite(IOleClientSite* site) = 0;

 private:
  void Activate(HWND parent, const RECT* place);
  RECT EnterSite(HWND& parent, const RECT* place);
  HRESULT RequireAdviseHolder() noexcept;

  const CLSID& m_clsid;
  SIZEL m_extent;
  CDiagnosticLog& m_log;
  CTypeInfoDispatch m_classInfo;
  IOleClientSitePtr m_clientSite;
  IOleInPlaceSitePtr m_inPlaceSite;  // while active
  IOleInPlaceFramePtr m_frame;       // while active
  IOleAdviseHolderPtr m_advises;
  bool m_uiActive = false;
};

}  // namespace quor

#endif
