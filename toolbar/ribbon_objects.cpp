#include "toolbar/ribbon_objects.h"

namespace quor {
namespace {

constexpr IID kRibbonControlId = {
    0x000C0395, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr IID kRibbonUiId = {
    0x000C03A7, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

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
