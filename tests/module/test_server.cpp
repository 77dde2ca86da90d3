// A COM server of two classes under the product's identifiers. Its add-in answers every callback
// with something the tests can recognise; its options page cannot be made.
#include <new>

#include "module/class_table.h"
#include "module/identifiers.h"
#include "module/module.h"
#include "module/quor_telephone_toolbar.h"
#include "module/type_info_dispatch.h"

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

  STDMETHODIMP GetCustomUI(BSTR id, BSTR* document) override { return Copy(id, document); }

  STDMETHODIMP RibbonLoadMain(IDispatch* ribbon) override { return IsSelf(ribbon); }
  STDMETHODIMP RibbonLoadContact(IDispatch* ribbon) override { return IsSelf(ribbon); }
  STDMETHODIMP GetLabel(IDispatch*, BSTR* label) override { return Copy(L"label", label); }
  STDMETHODIMP GetEnabled(IDispatch*, VARIANT_BOOL* enabled) override {
    *enabled = VARIANT_TRUE;
    return S_OK;
  }
  STDMETHODIMP GetVisible(IDispatch*, VARIANT_BOOL*) override { return E_ACCESSDENIED; }
  STDMETHODIMP GetImage(IDispatch* control, IDispatch** picture) override {
    *picture = control;
    control->AddRef();
    return S_OK;
  }
  STDMETHODIMP GetItemCount(IDispatch*, long* count) override {
    *count = 20;
    return S_OK;
  }
  STDMETHODIMP GetItemLabel(IDispatch* control, long index, BSTR* label) override {
    if (IsSelf(control) != S_OK) return E_INVALIDARG;
    const wchar_t text[] = {static_cast<wchar_t>(L'0' + index), L'\0'};
    return Copy(text, label);
  }
  STDMETHODIMP GetTextComboBox(IDispatch*, BSTR* text) override { return Copy(m_text, text); }
  STDMETHODIMP ChangeComboBox(IDispatch* control, BSTR text) override {
    lstrcpynW(m_text, text, ARRAYSIZE(m_text));
    return IsSelf(control);
  }
  STDMETHODIMP Line1Clicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP Line2Clicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP CellClicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP CallerListClicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP SpeedDialClicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP OptionsClicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP ContactDialNClicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP ContactLine1Clicked(IDispatch* control) override { return IsSelf(control); }
  STDMETHODIMP ContactLine2Clicked(IDispatch* control) override { return IsSelf(control); }

 private:
  static HRESULT Copy(const wchar_t* text, BSTR* copy) {
    *copy = SysAllocString(text);
    return S_OK;
  }
  // The tests pass the object itself wherever Office passes one of its own.
  HRESULT IsSelf(IDispatch* object) {
    return object == static_cast<ITelephoneAddin*>(this) ? S_OK : E_INVALIDARG;
  }

  ULONG m_references = 1;
  wchar_t m_text[32] = L"";
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
