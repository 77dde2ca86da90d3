// The ribbon's callbacks; each calls the ribbon.
#include "addin/addin.h"

namespace quor {

STDMETHODIMP CAddin::RibbonLoadMain(IDispatch* ribbon) {
  return LoadRibbon(ribbon, RibbonWindow::Explorer);
}

STDMETHODIMP CAddin::RibbonLoadContact(IDispatch* ribbon) {
  return LoadRibbon(ribbon, RibbonWindow::Contact);
}

HRESULT CAddin::LoadRibbon(IDispatch* ribbon, RibbonWindow window) {
  // A ribbon loaded after the disconnection would never be released.
  return m_disconnected ? S_OK : m_controls.Ribbon().Load(ribbon, window);
}

STDMETHODIMP CAddin::GetLabel(IDispatch* control, BSTR* label) {
  return m_controls.Ribbon().GetLabel(control, label);
}

STDMETHODIMP CAddin::GetEnabled(IDispatch* control, VARIANT_BOOL* enabled) {
  return m_controls.Ribbon().GetEnabled(control, enabled);
}

STDMETHODIMP CAddin::GetVisible(IDispatch* control, VARIANT_BOOL* visible) {
  return m_controls.Ribbon().GetVisible(control, visible);
}

STDMETHODIMP CAddin::GetImage(IDispatch* control, IDispatch** picture) {
  return m_controls.Ribbon().GetImage(control, picture);
}

STDMETHODIMP CAddin::GetItemCount(IDispatch* control, long* count) {
  return m_controls.Ribbon().GetItemCount(control, count);
}

STDMETHODIMP CAddin::GetItemLabel(IDispatch* control, long index, BSTR* label) {
  return m_controls.Ribbon().GetItemLabel(control, index, label);
}

STDMETHODIMP CAddin::GetTextComboBox(IDispatch* control, BSTR* text) {
  return m_controls.Ribbon().GetTextComboBox(control, text);
}

STDMETHODIMP CAddin::ChangeComboBox(IDispatch* control, BSTR text) {
  return m_controls.Ribbon().ChangeComboBox(control, text);
}

// The control's id selects the action, so every onAction is the same callback.
STDMETHODIMP CAddin::Line1Clicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::Line2Clicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::CellClicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::CallerListClicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::SpeedDialClicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::OptionsClicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::ContactDialNClicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::ContactLine1Clicked(IDispatch* control) {
  return RibbonClicked(control);
}
STDMETHODIMP CAddin::ContactLine2Clicked(IDispatch* control) {
  return RibbonClicked(control);
}

HRESULT CAddin::RibbonClicked(IDispatch* control) {
  if (m_disconnected) return S_OK;
  return m_controls.Ribbon().Clicked(control);
}

}  // namespace quor
