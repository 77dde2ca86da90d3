#include "workbench/ribbon/ribbon_host.h"

#include <cstdio>

#include "workbench/office/xml.h"
#include "workbench/ribbon/ribbon_view.h"

namespace quor::workbench {
namespace {

std::string Hexadecimal(HRESULT code) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(code));
  return text;
}

const char* KindOfResult(ResultKind kind) noexcept {
  constexpr const char* kNames[] = {"nothing", "a text", "a Boolean", "a number", "a picture"};
  return kNames[static_cast<size_t>(kind)];
}

bool Fits(ResultKind expected, VARTYPE type) noexcept {
  switch (expected) {
    case ResultKind::Text:
      return type == VT_BSTR;
    case ResultKind::Flag:
      return type == VT_BOOL;
    case ResultKind::Number:
      return type == VT_I4 || type == VT_INT;
    case ResultKind::Picture:
      return type == VT_DISPATCH || type == VT_BSTR;  // a text names a built-in picture of Office
    case ResultKind::None:
      return true;
  }
  return false;
}

}  // namespace

CRibbonHost::CRibbonHost(CModel& model, RibbonWindow window) : m_model(model), m_window(window) {}

CRibbonHost::~CRibbonHost() {
  Unload();
}

bool CRibbonHost::Load(IUnknown* addIn, const std::wstring& document) {
  try {
    m_document = ReadRibbonDocument(document, m_window);
  } catch (const CXmlError& error) {
    Report(std::string("the document is dropped, ") + error.what());
    return false;
  }
  if (FAILED(addIn->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&m_addIn)))) {
    m_addIn = nullptr;
    m_document.reset();
    Report("the document is dropped, the add-in has no IDispatch");
    return false;
  }
  m_ui = MakeObject<CRibbonUi>(m_model, *this);
  if (const std::string onLoad = m_document->Attribute("onLoad"); !onLoad.empty()) {
    Call(onLoad, "customUI", {CValue(m_ui.get())}, ResultKind::None);
  }
  return true;
}

void CRibbonHost::Unload() noexcept {
  if (m_ui) m_ui->Unload();
  m_ui = {};
  m_ids.clear();
  if (IDispatch* addIn = std::exchange(m_addIn, nullptr)) addIn->Release();
}

std::shared_ptr<CRibbonView> CRibbonHost::OpenView(CModelPtr<CAutomation> context) {
  return std::make_shared<CRibbonView>(*this, std::move(context));
}

void CRibbonHost::Report(const std::string& message) {
  m_model.RecordMisuse("ribbon: " + message);
}

void CRibbonHost::InvalidateAll() {
  ++m_figures.invalidations;
  if (m_askingDepth != 0) Report("the ribbon was invalidated from inside a callback");
  for (CRibbonView* view : m_views)
    view->Invalidate();
}

void CRibbonHost::InvalidateOne(const std::wstring& id) {
  ++m_figures.invalidations;
  if (m_askingDepth != 0) Report("a control was invalidated from inside a callback");
  bool known = m_views.empty();
  for (CRibbonView* view : m_views)
    known = view->InvalidateControl(id) || known;
  if (!known) Report("there is no control " + Utf8FromWide(id) + " to invalidate");
}

std::optional<DISPID> CRibbonHost::FindCallback(const std::string& callback,
                                                const std::string& id) {
  const auto known = m_ids.find(callback);
  if (known != m_ids.end()) return known->second;
  std::wstring name = WideFromUtf8(callback);
  LPOLESTR names[] = {name.data()};
  DISPID number = DISPID_UNKNOWN;
  const HRESULT code = m_addIn->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number);
  if (FAILED(code)) {
    Report("callback " + callback + " for " + id + " is missing");
    return std::nullopt;
  }
  m_ids.emplace(callback, number);
  return number;
}

HRESULT CRibbonHost::Invoke(DISPID number, const std::vector<CValue>& arguments, VARIANT* result) {
  LARGE_INTEGER start;
  LARGE_INTEGER end;
  LARGE_INTEGER frequency;
  IDispatch* addIn = m_addIn;  // the callback may unload the document
  addIn->AddRef();
  HRESULT code = S_OK;
  {
    const CModel::CTimeOutside outside(m_model);
    QueryPerformanceCounter(&start);
    code = InvokeLate(*addIn, number, DISPATCH_METHOD, arguments, result);
    QueryPerformanceCounter(&end);
  }
  addIn->Release();
  QueryPerformanceFrequency(&frequency);
  ++m_figures.callbacks;
  m_figures.microseconds += static_cast<double>(end.QuadPart - start.QuadPart) * 1e6 /
                            static_cast<double>(frequency.QuadPart);
  return code;
}

void CRibbonHost::ObserveAction(const std::string& callback, const std::string& id, HRESULT code) {
  if (!m_model.IsObserved()) return;
  CallRecord record;
  record.kind = CallRecord::Kind::Event;
  record.member = "Ribbon!" + callback;
  record.object = id;
  record.code = code;
  m_model.Observe(record);
}

std::optional<CValue> CRibbonHost::Call(const std::string& callback, const std::string& id,
                                        const std::vector<CValue>& arguments, ResultKind expected) {
  if (m_addIn == nullptr) return std::nullopt;
  const std::optional<DISPID> number = FindCallback(callback, id);
  if (!number.has_value()) return std::nullopt;
  const bool asks = expected != ResultKind::None;
  VARIANT result;
  VariantInit(&result);
  if (asks) ++m_askingDepth;
  const HRESULT code = Invoke(*number, arguments, asks ? &result : nullptr);
  if (asks) --m_askingDepth;
  CValue value = CValue::Copy(result);
  VariantClear(&result);
  if (!asks) ObserveAction(callback, id, code);
  if (FAILED(code)) {
    Report("callback " + callback + " for " + id + " failed with " + Hexadecimal(code));
    return std::nullopt;
  }
  if (!Fits(expected, V_VT(&value.Get()))) {
    Report("callback " + callback + " for " + id + " returned type " +
           std::to_string(V_VT(&value.Get())) + " instead of " + KindOfResult(expected));
    return std::nullopt;
  }
  return value;
}

}  // namespace quor::workbench
