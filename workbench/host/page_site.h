#ifndef QUOR_WORKBENCH_HOST_PAGE_SITE_H
#define QUOR_WORKBENCH_HOST_PAGE_SITE_H

#include "workbench/office/outlook_object.h"

namespace quor::workbench {

// Receives a page's notifications; the dialog that shows the page.
class IPageFrame {
 public:
  virtual HWND FrameWindow() = 0;
  // The page's position in that window.
  virtual RECT PagePlace() = 0;
  // The page's values changed; query it.
  virtual void OnPageStatus() = 0;
  // The page that wants keyboard input, with a reference counted by the frame; null for none.
  virtual void SetActivePage(IOleInPlaceActiveObject* page) = 0;

 protected:
  ~IPageFrame() = default;
};

// PropertyPageSite and all other parts of a page's container: client site, in-place site, frame and
// control site. References that a page keeps count as held.
class CPageSite final : public COutlookObject,
                        public IOleClientSite,
                        public IOleInPlaceSite,
                        public IOleInPlaceFrame,
                        public IOleControlSite {
 public:
  CPageSite(CSession& session, IPageFrame& frame);

  // The dialog closes: no call reaches it any more.
  void Leave() noexcept { m_frame = nullptr; }
  bool IsActive() const noexcept { return m_active; }
  // How many keys the page has left to the dialog.
  int UnusedKeys() const noexcept { return m_unusedKeys; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return AddOutside(); }
  STDMETHODIMP_(ULONG) Release() override { return ReleaseOutside(); }

  // IOleClientSite
  STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  STDMETHODIMP GetContainer(IOleContainer** container) override;
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow, of site and frame
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  // IOleInPlaceSite
  STDMETHODIMP CanInPlaceActivate() override { return m_frame != nullptr ? S_OK : S_FALSE; }
  STDMETHODIMP OnInPlaceActivate() override;
  STDMETHODIMP OnUIActivate() override { return S_OK; }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  STDMETHODIMP Scroll(SIZE) override { return S_FALSE; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnInPlaceDeactivate() override;
  STDMETHODIMP DiscardUndoState() override { return S_OK; }
  STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

  // IOleInPlaceUIWindow and IOleInPlaceFrame
  STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* page, LPCOLESTR) override;
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // IOleControlSite
  STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
  STDMETHODIMP LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetExtendedControl(IDispatch** control) override;
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) override;
  STDMETHODIMP OnFocus(BOOL) override { return S_OK; }
  STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

 protected:
  void* OtherInterface(REFIID iid) override;

 private:
  static const CMemberTable& Members();
  void OnStatusChange();

  IPageFrame* m_frame;
  bool m_active = false;
  int m_unusedKeys = 0;
};

}  // namespace quor::workbench

#endif
