#include "toolbar/ribbon_objects.h"

namespace quor {
namespace {

constexpr IID kRibbonControlId = OfficeId(0x000C0395);
constexpr IID kRibbonUiId = OfficeId(0x000C03A7);

}  // namespace

CRibbonControl::CRibbonControl(IDispatch* control) : CDispatchObject(control, kRibbonControlId) {}

std::wstring CRibbonControl::Id() const {
  CMemberId member(L"Id");
  return GetText(member);
}

IDispatchPtr CRibbonControl::Context() const {
  CMemberId member(L"Context");
  return ObjectFrom(GetProperty(member));
}

CRibbonUi::CRibbonUi(IDispatch* ribbon) : CDispatchObject(ribbon, kRibbonUiId) {}

void CRibbonUi::Invalidate() const {
  CMemberId member(L"Invalidate");
  CallMethod(member);
}

}  // namespace quor
