#include "workbench/host/ribbon_call.h"

#include <array>
#include <stdexcept>
#include <vector>

#include "workbench/office/value.h"
#include "workbench/ribbon/ribbon_objects.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

std::string AnswerText(const VARIANT& answer) {
  switch (V_VT(&answer)) {
    case VT_BSTR:
      return Utf8FromWide(WideFromBstr(V_BSTR(&answer)));
    case VT_BOOL:
      return V_BOOL(&answer) != VARIANT_FALSE ? "yes" : "no";
    case VT_I4:
      return std::to_string(V_I4(&answer));
    case VT_DISPATCH:
      return V_DISPATCH(&answer) != nullptr ? "object" : "nothing";
    case VT_EMPTY:
      return "nothing";
    default:
      return "a value of type " + std::to_string(V_VT(&answer));
  }
}

// An object with automation, but not of Office: Windows' own empty picture.
CValue ForeignObject() {
  IDispatch* picture = nullptr;
  const HRESULT result =
      OleCreatePictureIndirect(nullptr, IID_IDispatch, TRUE, reinterpret_cast<void**>(&picture));
  if (FAILED(result)) throw std::runtime_error("Windows makes no picture");
  CValue value(picture);
  picture->Release();
  return value;
}

CValue ControlOf(CModel& model, const std::string& id) {
  if (id == "null") return {static_cast<IDispatch*>(nullptr)};
  if (id == "foreign") return ForeignObject();
  const auto control =
      MakeObject<CRibbonControl>(model, WideFromUtf8(id), L"", CModelPtr<CAutomation>());
  return {control.get()};
}

// The arguments in the order of DISPPARAMS, passed in the form that the call requests.
class CCallArguments {
 public:
  CCallArguments(const RibbonCall& call, IDispatch* control) {
    if (call.index) m_values.emplace_back(static_cast<long>(*call.index));
    if (call.text) m_values.emplace_back(WideFromUtf8(*call.text));
    m_values.emplace_back(control);
    for (const CValue& value : m_values) {
      m_plain.push_back(value.Get());
      m_arguments.push_back(value.Get());
    }
    for (size_t i = 0; i < m_values.size(); ++i)
      Refer(m_arguments[i], m_plain[i], call.form);
  }

  DISPPARAMS Parameters() {
    return {m_arguments.data(), nullptr, static_cast<UINT>(m_arguments.size()), 0};
  }

 private:
  static void Refer(VARIANT& argument, VARIANT& plain, RibbonCall::Form form) {
    if (form == RibbonCall::Form::Value) return;
    const bool variant = form == RibbonCall::Form::VariantReference;
    const VARTYPE type = variant ? static_cast<VARTYPE>(VT_VARIANT) : V_VT(&plain);
    V_VT(&argument) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&argument) = variant ? static_cast<void*>(&plain) : &V_BYREF(&plain);
  }

  std::vector<CValue> m_values;
  std::vector<VARIANT> m_plain;
  std::vector<VARIANT> m_arguments;
};

}  // namespace

HRESULT CallRibbonCallback(CModel& model, IUnknown& addIn, const RibbonCall& call,
                           std::string& answer) {
  const CValue control = ControlOf(model, call.control);
  IDispatch* callbacks = nullptr;
  if (FAILED(addIn.QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&callbacks)))) {
    throw CScenarioError("the add-in has no IDispatch");
  }
  std::wstring name = WideFromUtf8(call.callback);
  std::array<LPOLESTR, 1> names = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  HRESULT result = callbacks->GetIDsOfNames(IID_NULL, names.data(), 1, LOCALE_USER_DEFAULT, &id);
  if (SUCCEEDED(result)) {
    CCallArguments arguments(call, V_DISPATCH(&control.Get()));
    DISPPARAMS parameters = arguments.Parameters();
    VARIANT value;
    VariantInit(&value);
    result = callbacks->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                               &value, nullptr, nullptr);
    answer = AnswerText(value);
    VariantClear(&value);
  }
  callbacks->Release();
  return result;
}

}  // namespace quor::workbench
