// A COM server of two classes with the product's identifiers. Its add-in class only allows a
// connection; its options page class fails to create an object.
#include <new>

#include "com/class_table.h"
#include "com/type_info_dispatch.h"
#include "module/identifiers.h"
#include "module/module.h"
#include "module/quor_telephone_toolbar.h"

namespace quor {
namespace {

class CTestAddin final : public CDispatchPart<ITelephoneAddin>,
                         public CDispatchPart<IDTExtensibility2>,
                         public CDispatchPart<IRibbonExtensibility> {
 public:
  static HRESULT Create(IUnknown* outer, REFIID iid, void** object) {
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    auto* addin = new CTestAddin;
    const HRESULT result = addin->QueryInterface(iid, object);
    addin->Release();
    return result;
  }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(ITelephoneAddin)) {
      *object = static_cast<ITelephoneAddin*>(this);
    } else if (iid == __uuidof(IDTExtensibility2)) {
      *object = static_cast<IDTExtensibility2*>(this);
    } else if (iid == __uuidof(IRibbonExtensibility)) {
      *object = static_cast<IRibbonExtensibility*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG references = --m_references;
    if (references == 0) delete this;
    return references;
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
  ULONG m_references = 1;
  CModuleLock m_lock;
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
