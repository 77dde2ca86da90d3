#include "outlook/command_bars.h"

namespace quor {
namespace {

constexpr IID kCommandBarsId = OfficeId(0x000C0302);
constexpr IID kCommandBarId = OfficeId(0x000C0304);
constexpr IID kControlsId = OfficeId(0x000C0306);
constexpr IID kControlId = OfficeId(0x000C0308);
constexpr IID kPopupId = OfficeId(0x000C030A);
constexpr IID kComboBoxId = OfficeId(0x000C030C);
constexpr IID kButtonId = OfficeId(0x000C030E);

}  // namespace

const IID kCommandBarButtonEvents = OfficeId(0x000C0351);
const IID kCommandBarComboBoxEvents = OfficeId(0x000C0354);

CCommandBarControl::CCommandBarControl(const IDispatchPtr& object)
    : CDispatchObject(object, kControlId) {}
REFIID CCommandBarControl::InterfaceId() noexcept {
  return kControlId;
}

// These members have the same dispatch id in every type of control, so one name object serves all.
void CCommandBarControl::SetCaption(std::wstring_view caption) const {
  static CMemberId member(L"Caption");
  PutText(member, caption);
}

void CCommandBarControl::SetTag(std::wstring_view tag) const {
  static CMemberId member(L"Tag");
  PutText(member, tag);
}

void CCommandBarControl::SetEnabled(bool enabled) const {
  static CMemberId member(L"Enabled");
  PutBool(member, enabled);
}

void CCommandBarControl::SetVisible(bool visible) const {
  static CMemberId member(L"Visible");
  PutBool(member, visible);
}

void CCommandBarControl::SetWidth(int32_t pixels) const {
  static CMemberId member(L"Width");
  PutLong(member, pixels);
}

void CCommandBarControl::Delete() const {
  static CMemberId member(L"Delete");
  CallMethod(member);
}

CCommandBarButton::CCommandBarButton(const IDispatchPtr& object)
    : CCommandBarControl(object, kButtonId) {}
REFIID CCommandBarButton::InterfaceId() noexcept {
  return kButtonId;
}

void CCommandBarButton::SetStyle(int32_t style) const {
  static CMemberId member(L"Style");
  PutLong(member, style);
}

void CCommandBarButton::SetPicture(IDispatch* picture) const {
  static CMemberId member(L"Picture");
  PutProperty(member, _variant_t(picture));
}

void CCommandBarButton::SetMask(IDispatch* mask) const {
  static CMemberId member(L"Mask");
  PutProperty(member, _variant_t(mask));
}

CCommandBarComboBox::CCommandBarComboBox(const IDispatchPtr& object)
    : CCommandBarControl(object, kComboBoxId) {}
REFIID CCommandBarComboBox::InterfaceId() noexcept {
  return kComboBoxId;
}

std::wstring CCommandBarComboBox::Text() const {
  static CMemberId member(L"Text");
  return GetText(member);
}

void CCommandBarComboBox::SetText(std::wstring_view text) const {
  static CMemberId member(L"Text");
  PutText(member, text);
}

int32_t CCommandBarComboBox::ListIndex() const {
  static CMemberId member(L"ListIndex");
  return GetLong(member);
}

void CCommandBarComboBox::AddItem(std::wstring_view text) const {
  static CMemberId member(L"AddItem");
  CallMethod(member, VariantFromText(text));
}

void CCommandBarComboBox::Clear() const {
  static CMemberId member(L"Clear");
  CallMethod(member);
}

void CCommandBarComboBox::SetStyle(int32_t style) const {
  static CMemberId member(L"Style");
  PutLong(member, style);
}

void CCommandBarComboBox::SetDropDownWidth(int32_t width) const {
  static CMemberId member(L"DropDownWidth");
  PutLong(member, width);
}

CCommandBarPopup::CCommandBarPopup(const IDispatchPtr& object)
    : CCommandBarControl(object, kPopupId) {}
REFIID CCommandBarPopup::InterfaceId() noexcept {
  return kPopupId;
}

CCommandBarControls CCommandBarPopup::Controls() const {
  static CMemberId member(L"Controls");
  return CCommandBarControls(ObjectFrom(GetProperty(member)));
}

CCommandBarControls::CCommandBarControls(const IDispatchPtr& object)
    : CDispatchObject(object, kControlsId) {}
REFIID CCommandBarControls::InterfaceId() noexcept {
  return kControlsId;
}

IDispatchPtr CCommandBarControls::Add(long controlType) const {
  static CMemberId member(L"Add");
  const _variant_t missing = MissingArgument();
  return ObjectFrom(
      CallMethod(member, _variant_t(controlType), missing, missing, missing, _variant_t(true)));
}

CCommandBar::CCommandBar(const IDispatchPtr& object) : CDispatchObject(object, kCommandBarId) {}
REFIID CCommandBar::InterfaceId() noexcept {
  return kCommandBarId;
}

CCommandBarControls CCommandBar::Controls() const {
  static CMemberId member(L"Controls");
  return CCommandBarControls(ObjectFrom(GetProperty(member)));
}

void CCommandBar::Delete() const {
  static CMemberId member(L"Delete");
  CallMethod(member);
}

bool CCommandBar::Visible() const {
  static CMemberId member(L"Visible");
  return GetBool(member);
}

void CCommandBar::SetVisible(bool visible) const {
  static CMemberId member(L"Visible");
  PutBool(member, visible);
}

int32_t CCommandBar::Position() const {
  static CMemberId member(L"Position");
  return GetLong(member);
}

void CCommandBar::SetPosition(int32_t position) const {
  static CMemberId member(L"Position");
  PutLong(member, position);
}

int32_t CCommandBar::RowIndex() const {
  static CMemberId member(L"RowIndex");
  return GetLong(member);
}

void CCommandBar::SetRowIndex(int32_t row) const {
  static CMemberId member(L"RowIndex");
  PutLong(member, row);
}

int32_t CCommandBar::Left() const {
  static CMemberId member(L"Left");
  return GetLong(member);
}

void CCommandBar::SetLeft(int32_t pixels) const {
  static CMemberId member(L"Left");
  PutLong(member, pixels);
}

int32_t CCommandBar::Top() const {
  static CMemberId member(L"Top");
  return GetLong(member);
}

void CCommandBar::SetTop(int32_t pixels) const {
  static CMemberId member(L"Top");
  PutLong(member, pixels);
}

int32_t CCommandBar::Width() const {
  static CMemberId member(L"Width");
  return GetLong(member);
}

int32_t CCommandBar::Height() const {
  static CMemberId member(L"Height");
  return GetLong(member);
}

CCommandBars::CCommandBars(const IDispatchPtr& object) : CDispatchObject(object, kCommandBarsId) {}
REFIID CCommandBars::InterfaceId() noexcept {
  return kCommandBarsId;
}

CCommandBar CCommandBars::Add(std::wstring_view name, long position) const {
  static CMemberId member(L"Add");
  return CCommandBar(ObjectFrom(CallMethod(member, VariantFromText(name), _variant_t(position),
                                           MissingArgument(), _variant_t(true))));
}

CCommandBar CCommandBars::Item(std::wstring_view name) const {
  static CMemberId member(L"Item");
  return CCommandBar(ObjectFrom(GetIndexed(member, VariantFromText(name))));
}

IDispatchPtr CCommandBars::FindControl(long controlType, std::wstring_view tag) const {
  static CMemberId member(L"FindControl");
  return ObjectFrom(
      CallMethod(member, _variant_t(controlType), MissingArgument(), VariantFromText(tag)));
}

}  // namespace quor
