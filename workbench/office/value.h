#ifndef QUOR_WORKBENCH_OFFICE_VALUE_H
#define QUOR_WORKBENCH_OFFICE_VALUE_H

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <ocidl.h>
#include <olectl.h>
// clang-format on

#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

std::string Utf8FromWide(std::wstring_view text);
std::wstring WideFromUtf8(std::string_view text);
std::wstring WideFromBstr(BSTR text);                                     // empty for a null BSTR
bool SameText(std::wstring_view left, std::wstring_view right) noexcept;  // ignores case

// A failed call on the object model, reported as Office does: the caller gets DISP_E_EXCEPTION and
// the error in EXCEPINFO.scode.
class CModelError : public std::runtime_error {
 public:
  explicit CModelError(HRESULT code, const char* description = "The operation failed.")
      : std::runtime_error(description), m_code(code) {}
  HRESULT Code() const noexcept { return m_code; }

 private:
  HRESULT m_code;
};

// An argument that the member does not accept: its error is returned unchanged, with the argument's
// position.
class CArgumentError : public std::runtime_error {
 public:
  CArgumentError(HRESULT code, UINT position)
      : std::runtime_error("bad argument"), m_code(code), m_position(position) {}
  HRESULT Code() const noexcept { return m_code; }
  UINT Position() const noexcept { return m_position; }  // index into rgvarg

 private:
  HRESULT m_code;
  UINT m_position;
};

// The result of a member or an argument of an event: a VARIANT with ownership.
class CValue {
 public:
  CValue() noexcept { VariantInit(&m_value); }  // VT_EMPTY: no result
  CValue(std::same_as<bool> auto flag) noexcept : CValue() {
    V_VT(&m_value) = VT_BOOL;
    V_BOOL(&m_value) = flag ? VARIANT_TRUE : VARIANT_FALSE;
  }
  CValue(int number) noexcept : CValue(static_cast<long>(number)) {}
  CValue(long number) noexcept : CValue() {
    V_VT(&m_value) = VT_I4;
    V_I4(&m_value) = number;
  }
  CValue(std::wstring_view text);
  CValue(const std::wstring& text) : CValue(std::wstring_view(text)) {}
  CValue(const wchar_t* text) : CValue(std::wstring_view(text)) {}
  // Adds a reference. Null is Office's "nothing": VT_DISPATCH, null, S_OK.
  CValue(IDispatch* object) noexcept;
  // A by-reference flag such as Cancel; the sink writes through it.
  static CValue Reference(VARIANT_BOOL& flag) noexcept;
  static CValue Copy(const VARIANT& value);
  static CValue Adopt(const VARIANT& value) noexcept;  // its owner from now on

  CValue(CValue&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
  CValue& operator=(CValue&& other) noexcept;
  CValue(const CValue& other) : CValue(Copy(other.m_value)) {}
  CValue& operator=(const CValue& other) { return *this = CValue(other); }
  ~CValue() { VariantClear(&m_value); }

  const VARIANT& Get() const noexcept { return m_value; }
  VARIANT Detach() noexcept;  // the caller clears it

 private:
  VARIANT m_value;
};

// The arguments as DISPPARAMS has them: the last first. They borrow from `arguments`.
std::vector<VARIANT> ReversedArguments(const std::vector<CValue>& arguments);

// Calls a member late-bound, arguments in the order of declaration. For an exception the result is
// its code; its texts are dropped. `result` may be null.
HRESULT InvokeLate(IDispatch& object, DISPID id, WORD flags, const std::vector<CValue>& arguments,
                   VARIANT* result);

// A value as shown in the transcript: 3, True, "text", nothing, missing, object. Long text is cut.
std::string Summary(const VARIANT& value);

// The arguments of one call in the order of declaration. By-reference arguments are dereferenced. A
// wrong type throws CArgumentError(DISP_E_TYPEMISMATCH).
class CArguments {
 public:
  CArguments(DISPID member, const DISPPARAMS& parameters) noexcept
      : m_member(member), m_parameters(parameters) {}

  DISPID Member() const noexcept {
    return m_member;
  }  // for functions that implement several members
  UINT Count() const noexcept { return m_parameters.cArgs; }
  // Omitted at the end, or passed as VT_ERROR / DISP_E_PARAMNOTFOUND.
  bool IsMissing(UINT index) const noexcept;

  long Long(UINT index) const { return V_I4(&Converted(index, VT_I4).Get()); }
  bool Bool(UINT index) const { return V_BOOL(&Converted(index, VT_BOOL).Get()) != VARIANT_FALSE; }
  std::wstring Text(UINT index) const;  // empty for VT_EMPTY
  IDispatch* Object(UINT index) const;  // borrowed; null for "nothing"
  bool IsText(UINT index) const;
  const VARIANT& Variant(UINT index) const;  // VT_BYREF|VT_VARIANT already dereferenced

  long LongOr(UINT index, long fallback) const { return IsMissing(index) ? fallback : Long(index); }
  bool BoolOr(UINT index, bool fallback) const { return IsMissing(index) ? fallback : Bool(index); }
  std::wstring TextOr(UINT index, std::wstring_view fallback) const {
    return IsMissing(index) ? std::wstring(fallback) : Text(index);
  }

  std::string Summary() const;

 private:
  UINT PositionOf(UINT index) const;  // into rgvarg; throws DISP_E_PARAMNOTOPTIONAL
  CValue Converted(UINT index, VARTYPE type) const;

  DISPID m_member;
  const DISPPARAMS& m_parameters;
};

}  // namespace quor::workbench

#endif
