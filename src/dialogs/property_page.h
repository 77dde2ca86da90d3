#ifndef QUOR_DIALOGS_PROPERTY_PAGE_H
#define QUOR_DIALOGS_PROPERTY_PAGE_H

#include "com/com_object.h"
#include "com/type_info_dispatch.h"
#include "dialogs/options_panel.h"
#include "dialogs/windowed_control.h"
#include "module/quor_telephone_toolbar.h"

namespace quor {

// What an options page needs from its add-in. The page holds `addin`, so all of it must live as
// long as `addin` does.
struct OptionsPageParts {
  IUnknown& addin;
  IOptionsStore& store;
  const CResourceLoader& resources;
  CDiagnosticLog& log;
};

// The options as a page of Outlook's options dialog: the panel as an ActiveX control.
class CPropPage final : public CComObject<CWindowedControl, CDispatchPart<ITelephonePropertyPage>,
                                          CDispatchPart<PropertyPage>>,
                        private IOptionsPanelOwner {
 public:
  // Creates a page that shows the stored values. Returns the interface with one reference, or a
  // failure and a null pointer. May throw.
  static HRESULT Create(const OptionsPageParts& parts, REFIID iid, void** object);

  // PropertyPage. Outlook calls get_Dirty after OnStatusChange, and Apply on OK and Apply.
  STDMETHODIMP GetPageInfo(BSTR* helpFile, long* helpContext) override;
  STDMETHODIMP get_Dirty(VARIANT_BOOL* dirty) override;
  STDMETHODIMP Apply() override;

  // ITelephonePropertyPage adds the title of the tab.
  STDMETHODIMP get_Caption(BSTR* caption) override;

 private:
  explicit CPropPage(const OptionsPageParts& parts);
  ~CPropPage() override = default;
  IUnknown& Identity() noexcept { return static_cast<IOleObject&>(*this); }
  void* FindInterface(REFIID iid) noexcept override;

  // CWindowedControl
  void OpenWindow(HWND parent) override { m_panel.Create(parent); }
  void CloseWindow() noexcept override { m_panel.Destroy(); }
  HWND ControlWindow() const noexcept override { return m_panel.Window(); }
  void TakeFocus() noexcept override { m_panel.FocusFirst(); }
  bool TranslateKey(MSG& message) noexcept override { return m_panel.TranslateKey(message); }
  void OnClientSite(IOleClientSite* site) override;

  // IOptionsPanelOwner
  void OnOptionsChanged() override;
  void OnAboutPressed() override;
  void OnPanelFocus() override { UiActivate(); }

  IUnknownPtr m_addin;
  IOptionsStore& m_store;
  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;
  COptionsPanel m_panel;
  IDispatchPtr m_pageSite;  // Outlook's PropertyPageSite, null without a client site
};

}  // namespace quor

#endif
