#include "workbench/office/arranged_arguments.h"

#include <algorithm>

#include "workbench/office/automation.h"

namespace quor::workbench {
namespace {

VARIANT Missing() noexcept {
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  return missing;
}

bool IsMissing(const VARIANT& value) noexcept {
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

// The published type of the argument at a place; the value of a property write comes last.
VARTYPE TypeAt(const Member& member, size_t place) noexcept {
  const auto arguments = member.published->arguments;
  const VARTYPE type = place < arguments.size() ? arguments[place].type : member.published->result;
  return static_cast<VARTYPE>(type & ~VT_BYREF);
}

bool IsObject(VARTYPE type) noexcept {
  return type == VT_DISPATCH || type == VT_UNKNOWN;
}

}  // namespace

HRESULT CArrangedArguments::Arrange(const Member& member, const DISPPARAMS& given) {
  if (const HRESULT filled = FillPlaces(member, given); FAILED(filled)) return filled;
  while (!m_places.empty() && m_places.back().value == nullptr)
    m_places.pop_back();
  m_converted.reserve(m_places.size());
  for (size_t at = m_places.size(); at-- > 0;) {
    const Place& place = m_places[at];
    const VARTYPE type = TypeAt(member, at);
    VARIANT arranged = Missing();
    if (place.value != nullptr) {
      if (IsMissing(*place.value) && type != VT_VARIANT && at < member.least) {
        return Refuse(DISP_E_PARAMNOTOPTIONAL, place.givenIndex);
      }
      if (const HRESULT fit = Convert(type, place, arranged); FAILED(fit)) return fit;
    }
    m_arranged.push_back(arranged);
  }
  return S_OK;
}

HRESULT CArrangedArguments::FillPlaces(const Member& member, const DISPPARAMS& given) {
  const bool put = member.kind == MemberKind::Put;
  if (given.cNamedArgs > given.cArgs || (given.cArgs != 0 && given.rgvarg == nullptr) ||
      (given.cNamedArgs != 0 && given.rgdispidNamedArgs == nullptr)) {
    return E_INVALIDARG;
  }
  if (put && (given.cNamedArgs == 0 || given.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
    return Refuse(DISP_E_PARAMNOTFOUND, 0);
  }
  if (given.cArgs > member.most) return DISP_E_BADPARAMCOUNT;
  m_places.resize(member.most);
  const UINT unnamed = given.cArgs - given.cNamedArgs;
  for (UINT place = 0; place < unnamed; ++place) {
    const UINT index = given.cArgs - 1 - place;
    m_places[place] = {&given.rgvarg[index], index};
  }
  for (UINT index = 0; index < given.cNamedArgs; ++index) {
    const DISPID name = given.rgdispidNamedArgs[index];
    const size_t place =
        put && name == DISPID_PROPERTYPUT ? member.most - 1 : static_cast<size_t>(name);
    if (place >= m_places.size() || m_places[place].value != nullptr) {
      return Refuse(DISP_E_PARAMNOTFOUND, index);
    }
    m_places[place] = {&given.rgvarg[index], index};
  }
  const bool complete = std::all_of(m_places.begin(), m_places.begin() + member.least,
                                    [](const Place& place) { return place.value != nullptr; });
  if (complete) return S_OK;
  return given.cArgs < member.least ? DISP_E_BADPARAMCOUNT : DISP_E_PARAMNOTOPTIONAL;
}

HRESULT CArrangedArguments::Convert(VARTYPE type, const Place& place, VARIANT& arranged) {
  const VARIANT& source =
      V_VT(place.value) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(place.value) : *place.value;
  arranged = source;  // borrowed
  if (type == VT_VARIANT || V_VT(&source) == type || IsMissing(source)) return S_OK;
  // An object would be asked for its default member; no argument here means that.
  const auto plain = static_cast<VARTYPE>(V_VT(&source) & ~VT_BYREF);
  if (IsObject(plain) && !IsObject(type)) return Refuse(DISP_E_TYPEMISMATCH, place.givenIndex);
  VARIANT converted;
  VariantInit(&converted);
  const HRESULT code = VariantChangeType(&converted, const_cast<VARIANT*>(&source), 0, type);
  if (FAILED(code)) return Refuse(code, place.givenIndex);
  m_converted.push_back(CValue::Adopt(converted));
  arranged = m_converted.back().Get();
  return S_OK;
}

HRESULT CArrangedArguments::Refuse(HRESULT code, UINT givenIndex) noexcept {
  m_refused = givenIndex;
  return code;
}

DISPPARAMS CArrangedArguments::Parameters() noexcept {
  return {m_arranged.data(), nullptr, static_cast<UINT>(m_arranged.size()), 0};
}

UINT CArrangedArguments::GivenIndex(UINT arranged) const noexcept {
  return arranged < m_places.size() ? m_places[m_places.size() - 1 - arranged].givenIndex : 0;
}

}  // namespace quor::workbench
