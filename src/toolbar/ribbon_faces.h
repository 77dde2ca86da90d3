#ifndef QUOR_TOOLBAR_RIBBON_FACES_H
#define QUOR_TOOLBAR_RIBBON_FACES_H

#include <string_view>

#include "toolbar/control_faces.h"
#include "toolbar/ribbon_control_id.h"

namespace quor {

// What a control of the ribbon shows: enabled and answering as a ringing line would have it, since
// there every line button may answer. `number`, of this telNumberType, is the one behind an item of
// a contact's number menu, or the one picked in that menu; empty when there is none. A control that
// is not ours shows nothing.
ItemFace RibbonFace(const CControlFaces& faces, const RibbonControlId& control,
                    int telNumberType = 0, std::wstring_view number = {});

// The number of its 16-pixel picture; 0 when it has none. The line buttons wear one for what a
// click does; so does the menu of the cells, but for calling: there it offers the cells.
int RibbonPicture(const CControlFaces& faces, RibbonFunction function) noexcept;

// The number of a picture in the size that fits the screen best: never smaller than 16 pixels at 96
// dots per inch would be there, as long as there is one.
int PictureForScreen(int picture, int dotsPerInch) noexcept;

}  // namespace quor

#endif
