#ifndef QUOR_TESTS_DIALOGS_PAGE_CONTAINER_H
#define QUOR_TESTS_DIALOGS_PAGE_CONTAINER_H

#include "com/com_pointers.h"

// ocidl.h requires windows.h first.
#include <ocidl.h>

namespace quor {

// Outlook's options dialog for a page: client site with PropertyPageSite, in-place site and frame
// in one object. Its position in the window is fixed.
class CPageContainer final : public IOleClientSite,
                             public IOleInPlaceSite,
                             public IOleInPlaceFrame,
                             public IOleControlSite,
                             public IDispatch {
 public:
  explicit CPageContainer(HWND window) : m_window(window) {}

  static constexpr RECT kPlace = {10, 20, 380, 310};
  int statusChanges = 0;
  int keysHandedOn = 0;
  int active = 0;    // OnInPlaceActivate calls minus OnInPlaceDeactivate calls
  int uiActive = 0;  // OnUIActivate calls minus OnUIDeactivate calls
  bool hasActiveObject = false;
  bool permits = true;
  ULONG references = 1;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  STDMETHODIMP SaveObject() override { return S_OK; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
  STDMETHODIMP CanInPlaceActivate() override { return permits ? S_OK : S_FALSE; }
  STDMETHODIMP OnInPlaceActivate() override;
  STDMETHODIMP OnUIActivate() override;
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  STDMETHODIMP Scroll(SIZE) override { return S_OK; }
  STDMETHODIMP OnUIDeactivate(BOOL) override;
  STDMETHODIMP OnInPlaceDeactivate() override;
  STDMETHODIMP DiscardUndoState() override { return S_OK; }
  STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

  STDMETHODIMP GetBorder(LPRECT) override { return E_NOTIMPL; }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return S_OK; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return S_OK; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
  STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
  STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) override;
  STDMETHODIMP OnFocus(BOOL) override { return S_OK; }
  STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                      EXCEPINFO*, UINT*) override;

 private:
  HWND m_window;
};

}  // namespace quor

#endif
