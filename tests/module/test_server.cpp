// A COM server of two classes with the product's identifiers. Its add-in class only allows a
// connection; its options page class fails to create an object.
#include <new>

#include "com/class_table.h"
#include "com/com_object.h"
#include "com/type_info_dispatch.h"
#include "module/identifiers.h"
#include "module/quor_telephone_toolbar.h"

namespace quor {
namespace {

class CTestAddin final
    : public CComObject<CDispatchPart<ITelephoneAddin>, CDispatchPart<IDTExtensibility2>,
                        CDispatchPart<IRibbonExtensibility>> {
 public:
  static HRESULT Create(IUnknown* outer, REFIID iid, void** object) {
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    const IUnknownPtr addin(static_cast<ITelephoneAddin*>(new CTestAddin), false);
    return addin->QueryInterface(iid, object);
  }

  STDMETHODIMP OnConnection(IDispatch*, ext_ConnectMode mode, IDispatch*, SAFEARRAY**) override {
    return mode == ext_cm_External ? S_OK : E_ACCESSDENIED;
  }
  STDMETHODIMP OnDisconnection(ext_DisconnectMode, SAFEARRAY**) override { return S_OK; }
  STDMETHODIMP OnAddInsUpdate(SAFEARRAY**) override { return S_OK; }
  STDMETHODIMP OnStartupComplete(SAFEARRAY**) override { return S_OK; }
  STDMETHODIMP OnBeginShutdown(SAFEARRAY**) override { return S_OK; }

  STDMETHODIMP GetCustomUI(BSTR, BSTR*) override { return E_NOTIMPL; }

  STDMETHODIMP RibbonLoadMain(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP RibbonLoadContact(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP GetLabel(IDispatch*, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetEnabled(IDispatch*, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP GetVisible(IDispatch*, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP GetImage(IDispatch*, IDispatch**) override { return E_NOTIMPL; }
  STDMETHODIMP GetItemCount(IDispatch*, long*) override { return E_NOTIMPL; }
  STDMETHODIMP GetItemLabel(IDispatch*, long, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTextComboBox(IDispatch*, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP ChangeComboBox(IDispatch*, BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP Line1Clicked(IDispatch*) override { return S_OK; }
  STDMETHODIMP Line2Clicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP CellClicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP CallerListClicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP SpeedDialClicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP OptionsClicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP ContactDialNClicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP ContactLine1Clicked(IDispatch*) override { return E_NOTIMPL; }
  STDMETHODIMP ContactLine2Clicked(IDispatch*) override { return E_NOTIMPL; }

 private:
  void* FindInterface(REFIID iid) noexcept override {
    if (iid == __uuidof(IDTExtensibility2)) return static_cast<IDTExtensibility2*>(this);
    if (iid == __uuidof(IRibbonExtensibility)) return static_cast<IRibbonExtensibility*>(this);
    const bool own =
        iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(ITelephoneAddin);
    return own ? static_cast<ITelephoneAddin*>(this) : nullptr;
  }
};

HRESULT FailToCreate(IUnknown*, REFIID iid, void**) {
  if (iid == IID_IUnknown) throw std::bad_alloc();
  throw 1;
}

constexpr ClassEntry kClasses[] = {{kAddinClsid, CTestAddin::Create},
                                   {kPropertyPageClsid, FailToCreate}};

}  // namespace

std::span<const ClassEntry> ClassTable() {
  return kClasses;
}

}  // namespace quor
