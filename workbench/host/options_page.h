#ifndef QUOR_WORKBENCH_HOST_OPTIONS_PAGE_H
#define QUOR_WORKBENCH_HOST_OPTIONS_PAGE_H

// clang-format off
#include <comdef.h>
// clang-format on

#include <string>

#include "workbench/host/page_site.h"
#include "workbench/office/application_objects.h"

namespace quor::workbench {

// Outlook's PropertyPage, {0006307E-0000-0000-C000-000000000046}, by vtable.
struct IPropertyPage : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE GetPageInfo(BSTR* helpFile, long* helpContext) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Dirty(VARIANT_BOOL* dirty) = 0;
  virtual HRESULT STDMETHODCALLTYPE Apply() = 0;
};

_COM_SMARTPTR_TYPEDEF(IUnknown, IID_IUnknown);
_COM_SMARTPTR_TYPEDEF(IPropertyPage, kPropertyPageId);
_COM_SMARTPTR_TYPEDEF(IOleObject, IID_IOleObject);
_COM_SMARTPTR_TYPEDEF(IOleInPlaceObject, IID_IOleInPlaceObject);
_COM_SMARTPTR_TYPEDEF(IPersistStreamInit, IID_IPersistStreamInit);

// An add-in's page in Outlook's options dialog: a control from its first activation to its last
// release. Every member throws CModelError if the page misbehaves.
class COptionsPage {
 public:
  // Creates the page's control if it was handed over by ProgID.
  COptionsPage(CSession& session, IPageFrame& frame, const OptionsPage& page);
  // Removes the site and releases the page.
  ~COptionsPage();
  COptionsPage(const COptionsPage&) = delete;
  COptionsPage& operator=(const COptionsPage&) = delete;

  const std::wstring& Title() const noexcept { return m_title; }
  // Activates the page at the frame's position, or hides it.
  void Show();
  void Hide() noexcept;
  bool IsDirty();
  void Apply();

 private:
  void Load(const OptionsPage& page);
  void Close() noexcept;
  std::wstring Caption();

  IPageFrame& m_frame;
  CModelPtr<CPageSite> m_site;
  std::wstring m_title;
  IUnknownPtr m_object;
  IPropertyPagePtr m_page;
  IOleObjectPtr m_control;
};

}  // namespace quor::workbench

#endif
