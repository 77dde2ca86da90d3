#ifndef QUOR_WORKBENCH_OFFICE_ARRANGED_ARGUMENTS_H
#define QUOR_WORKBENCH_OFFICE_ARRANGED_ARGUMENTS_H

#include <vector>

#include "workbench/office/published_members.h"

namespace quor::workbench {

struct Member;

// The arguments of one call as ITypeInfo::Invoke hands them to the member: named ones at their
// places, by-reference ones read, each converted to the published type or refused.
class CArrangedArguments {
 public:
  // S_OK, or what Invoke returns. The given arguments must outlive this.
  HRESULT Arrange(const Member& member, const DISPPARAMS& given);

  DISPPARAMS Parameters() noexcept;  // by place only, the last one first
  bool WasConverted() const noexcept { return !m_converted.empty(); }
  // Index into the given rgvarg of the argument that was refused.
  UINT Refused() const noexcept { return m_refused; }
  // The same of an argument that the member itself refuses, by its index into Parameters().
  UINT GivenIndex(UINT arranged) const noexcept;

 private:
  struct Place {
    const VARIANT* value = nullptr;  // null: left out
    UINT givenIndex = 0;
  };

  HRESULT FillPlaces(const Member& member, const DISPPARAMS& given);
  HRESULT Convert(VARTYPE type, const Place& place, VARIANT& arranged);
  HRESULT Refuse(HRESULT code, UINT givenIndex) noexcept;

  std::vector<Place> m_places;
  std::vector<VARIANT> m_arranged;  // borrowed from the given ones and from m_converted
  std::vector<CValue> m_converted;
  UINT m_refused = 0;
};

}  // namespace quor::workbench

#endif
