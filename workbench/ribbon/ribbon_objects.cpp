#include "workbench/ribbon/ribbon_objects.h"

#include "workbench/ribbon/ribbon_host.h"

namespace quor::workbench {
namespace {

constexpr DISPID kId = 1;
constexpr DISPID kContext = 2;
constexpr DISPID kTag = 3;
constexpr DISPID kInvalidate = 1;
constexpr DISPID kInvalidateControl = 2;
constexpr DISPID kInvalidateControlMso = 3;
constexpr DISPID kActivateTab = 4;
constexpr DISPID kActivateTabMso = 5;
constexpr DISPID kActivateTabQ = 6;

// A dual interface whose methods call the object behind it late-bound.
template <class Dual>
class CDualFace : public Dual {
 public:
  explicit CDualFace(CAutomation& object) : m_object(object) {}
  virtual ~CDualFace() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return m_object.QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return m_object.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return m_object.Release(); }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return m_object.GetTypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return m_object.GetTypeInfo(index, locale, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override {
    return m_object.GetIDsOfNames(iid, names, count, locale, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
    return m_object.Invoke(id, iid, locale, flags, parameters, result, exception, badArgument);
  }

 protected:
  // Through the vtable the error is the result itself; late-bound it is in EXCEPINFO.
  HRESULT Get(DISPID id, VARIANT* result) noexcept {
    return InvokeLate(m_object, id, DISPATCH_PROPERTYGET, {}, result);
  }
  HRESULT CallWithText(DISPID id, std::initializer_list<BSTR> texts) noexcept {
    try {
      std::vector<CValue> arguments;
      for (BSTR text : texts)
        arguments.emplace_back(WideFromBstr(text));
      return InvokeLate(m_object, id, DISPATCH_METHOD, arguments, nullptr);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  CAutomation& m_object;
};

}  // namespace

// --- RibbonUI ---

class CRibbonUi::CFace final : public CDualFace<IRibbonUI> {
 public:
  using CDualFace::CDualFace;

  STDMETHODIMP Invalidate() override { return CallWithText(kInvalidate, {}); }
  STDMETHODIMP InvalidateControl(BSTR id) override {
    return CallWithText(kInvalidateControl, {id});
  }
  STDMETHODIMP InvalidateControlMso(BSTR id) override {
    return CallWithText(kInvalidateControlMso, {id});
  }
  STDMETHODIMP ActivateTab(BSTR id) override { return CallWithText(kActivateTab, {id}); }
  STDMETHODIMP ActivateTabMso(BSTR id) override { return CallWithText(kActivateTabMso, {id}); }
  STDMETHODIMP ActivateTabQ(BSTR id, BSTR space) override {
    return CallWithText(kActivateTabQ, {id, space});
  }
};

CRibbonUi::CRibbonUi(CModel& model, CRibbonHost& host)
    : CAutomation(model, Members()), m_host(&host), m_face(std::make_unique<CFace>(*this)) {}

CRibbonUi::~CRibbonUi() = default;

IDispatch* CRibbonUi::Dispatch() noexcept {
  return m_face.get();
}

CRibbonHost& CRibbonUi::Host() const {
  if (m_host == nullptr) throw CModelError(E_FAIL, "The ribbon is no longer loaded.");
  return *m_host;
}

void CRibbonUi::Invalidate() {
  Host().InvalidateAll();
}

void CRibbonUi::InvalidateControl(const CArguments& arguments) {
  Host().InvalidateOne(arguments.Text(0));
}

// The documents override no built-in control, so there is nothing to query again.
void CRibbonUi::InvalidateBuiltIn(const CArguments&) {
  Host();
}

void CRibbonUi::ActivateTab(const CArguments& arguments) {
  if (!Host().ActivateTab(arguments.Text(0))) throw CModelError(E_INVALIDARG, "No such tab.");
}

const CMemberTable& CRibbonUi::Members() {
  using Self = CRibbonUi;
  static const CMemberTable table(
      "RibbonUI", L"IRibbonUI", nullptr,
      {Method<&Self::Invalidate>(L"Invalidate"),
       Method<&Self::InvalidateControl>(L"InvalidateControl"),
       Method<&Self::InvalidateBuiltIn>(L"InvalidateControlMso"),
       Method<&Self::ActivateTab>(L"ActivateTab"), Method<&Self::ActivateTab>(L"ActivateTabMso"),
       Method<&Self::ActivateTab>(L"ActivateTabQ")});
  return table;
}

// --- RibbonControl ---

class CRibbonControl::CFace final : public CDualFace<IRibbonControl> {
 public:
  using CDualFace::CDualFace;

  STDMETHODIMP get_Id(BSTR* id) override { return GetText(kId, id); }
  STDMETHODIMP get_Tag(BSTR* tag) override { return GetText(kTag, tag); }
  STDMETHODIMP get_Context(IDispatch** context) override {
    if (context == nullptr) return E_POINTER;
    *context = nullptr;
    VARIANT value;
    VariantInit(&value);
    const HRESULT code = Get(kContext, &value);
    if (SUCCEEDED(code) && V_VT(&value) == VT_DISPATCH) *context = V_DISPATCH(&value);
    return code;
  }

 private:
  HRESULT GetText(DISPID id, BSTR* text) noexcept {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    VARIANT value;
    VariantInit(&value);
    const HRESULT code = Get(id, &value);
    if (SUCCEEDED(code) && V_VT(&value) == VT_BSTR) *text = V_BSTR(&value);
    return code;
  }
};

CRibbonControl::CRibbonControl(CModel& model, std::wstring id, std::wstring tag,
                               CModelPtr<CAutomation> context)
    : CAutomation(model, Members()),
      m_id(std::move(id)),
      m_tag(std::move(tag)),
      m_context(std::move(context)),
      m_face(std::make_unique<CFace>(*this)) {}

CRibbonControl::~CRibbonControl() = default;

IDispatch* CRibbonControl::Dispatch() noexcept {
  return m_face.get();
}

const CMemberTable& CRibbonControl::Members() {
  using Self = CRibbonControl;
  static const CMemberTable table(
      "RibbonControl", L"IRibbonControl", nullptr,
      {Get<&Self::Id>(L"Id"), Get<&Self::Context>(L"Context"), Get<&Self::Tag>(L"Tag")});
  return table;
}

}  // namespace quor::workbench
