#include "toolbar/ribbon_faces.h"

#include <algorithm>
#include <array>

#include "resources/resource_ids.h"
#include "telephone/control_rules.h"

namespace quor {
namespace {

constexpr bool kWithAnswer = true;

ItemFace ControlFace(const CControlFaces& faces, int control) {
  return faces.Control(control, kWithAnswer);
}

// Enabled like the dial box. A picked number replaces the contact's name.
ItemFace ContactMenuFace(const CControlFaces& faces, int telNumberType, std::wstring_view picked) {
  ItemFace face = ControlFace(faces, kDialBoxControl);
  if (!picked.empty()) face.caption = faces.ContactNumber(telNumberType, picked).caption;
  return face;
}

// The documents cannot hide an entry.
ItemFace CallerFace(const CControlFaces& faces, size_t entry) {
  ItemFace face = faces.Caller(entry);
  if (!face.visible) face = {faces.Text(IDS_NO_ENTRY), false, true};
  return face;
}

int LinePicture(const CControlFaces& faces, int lineButton, int callPicture) noexcept {
  switch (faces.ActionOf(lineButton, kWithAnswer)) {
    case LineAction::Call:
      return callPicture;
    case LineAction::Answer:
      return IDP_ANSWER;
    case LineAction::Disconnect:
    case LineAction::Cancel:
      break;
  }
  return IDP_HANG_UP;
}

}  // namespace

ItemFace RibbonFace(const CControlFaces& faces, const RibbonControlId& control, int telNumberType,
                    std::wstring_view number) {
  switch (control.function) {
    case RibbonFunction::None:
      return {};
    case RibbonFunction::DialBox:
      return ControlFace(faces, kDialBoxControl);
    case RibbonFunction::Line1:
    case RibbonFunction::ContactLine1:
      return ControlFace(faces, kLine1Control);
    case RibbonFunction::Line2:
    case RibbonFunction::ContactLine2:
      return ControlFace(faces, kLine2Control);
    case RibbonFunction::CellMenu:
      return ControlFace(faces, kCallFromCellControl);
    case RibbonFunction::Cell:
      return faces.Cell(control.index);
    case RibbonFunction::CallerMenu:
      return ControlFace(faces, kCallerListControl);
    case RibbonFunction::Caller:
      return CallerFace(faces, control.index);
    case RibbonFunction::SpeedDialMenu:
      return ControlFace(faces, kSpeedDialControl);
    case RibbonFunction::SpeedDialEntry:
      return faces.SpeedDial(control.index);
    case RibbonFunction::SpeedDialItem:
      return faces.SpeedDial(control.index, control.action);
    case RibbonFunction::Options:
      return ControlFace(faces, kOptionsControl);
    case RibbonFunction::ContactGroup:
      return {faces.Text(IDS_PRODUCT_NAME), true, true};
    case RibbonFunction::ContactMenu:
      return ContactMenuFace(faces, telNumberType, number);
    case RibbonFunction::ContactNumber:
      return faces.ContactNumber(telNumberType, number);
  }
  return {};
}

int RibbonPicture(const CControlFaces& faces, RibbonFunction function) noexcept {
  switch (function) {
    case RibbonFunction::DialBox:
      return IDP_DIAL;
    case RibbonFunction::Line1:
    case RibbonFunction::ContactLine1:
      return LinePicture(faces, kLine1Button, IDP_CALL);
    case RibbonFunction::Line2:
    case RibbonFunction::ContactLine2:
      return LinePicture(faces, kLine2Button, IDP_CALL);
    case RibbonFunction::CellMenu:
      return LinePicture(faces, kCellButton, IDP_CELL);
    case RibbonFunction::CallerMenu:
      return IDP_CALLER_LIST;
    case RibbonFunction::SpeedDialMenu:
      return IDP_SPEED_DIAL;
    case RibbonFunction::Options:
      return IDP_OPTIONS;
    case RibbonFunction::ContactGroup:
    case RibbonFunction::ContactMenu:
      return IDP_CONTACT;
    default:
      return 0;
  }
}

int PictureForScreen(int picture, int dotsPerInch) noexcept {
  constexpr std::array<int, 4> kSizes = {16, 24, 32, 48};
  constexpr int kBaseDotsPerInch = 96;
  const int wanted = kSizes.front() * dotsPerInch / kBaseDotsPerInch;
  const auto* found = std::ranges::find_if(kSizes, [wanted](int size) { return size >= wanted; });
  const auto step = std::min(found - kSizes.begin(), std::ssize(kSizes) - 1);
  return picture + static_cast<int>(step) * IDP_SIZE_STEP;
}

}  // namespace quor
