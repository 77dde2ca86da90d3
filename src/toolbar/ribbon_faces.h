#ifndef QUOR_TOOLBAR_RIBBON_FACES_H
#define QUOR_TOOLBAR_RIBBON_FACES_H

#include <string_view>

#include "toolbar/control_faces.h"
#include "toolbar/ribbon_control_id.h"

namespace quor {

// What a ribbon control shows. Uses the rules for a ringing line, because on the ribbon every line
// button may answer. `number`, of this telNumberType, belongs to the item of a contact's number
// menu or is picked in that menu; empty if there is none. Empty for an unknown control.
ItemFace RibbonFace(const CControlFaces& faces, const RibbonControlId& control,
                    int telNumberType = 0, std::wstring_view number = {});

// The id of the control's 16-pixel picture; 0 if it has none. A line button's picture shows what a
// click does. The cell menu's does, too, but while idle it shows the cells.
int RibbonPicture(const CControlFaces& faces, RibbonFunction function) noexcept;

// The id of the picture in the size that fits the screen best: at least as large as 16 pixels at 96
// dpi, if such a size exists.
int PictureForScreen(int picture, int dotsPerInch) noexcept;

}  // namespace quor

#endif
