#ifndef QUOR_WORKBENCH_UI_PICTURE_H
#define QUOR_WORKBENCH_UI_PICTURE_H

#include "workbench/office/value.h"
#include "workbench/ui/face.h"

// clang-format off
#include <comdef.h>
// clang-format on

_COM_SMARTPTR_TYPEDEF(IPictureDisp, IID_IPictureDisp);

namespace quor::workbench {

// The picture in a value of Picture or Mask; empty for none. Throws CModelError if it is not a
// picture or not a bitmap.
IPictureDispPtr BitmapPicture(IDispatch* object);

// The picture on a ribbon: a 32-bit bitmap with its alpha, others opaque. Null if the bits cannot
// be read.
PixelsPtr AlphaPixels(IPictureDisp* picture);
// The picture on a command bar: alpha is ignored, and the bar shows through where the mask is
// white. Opaque without a mask (null).
PixelsPtr MaskedPixels(IPictureDisp* picture, IPictureDisp* mask);

}  // namespace quor::workbench

#endif
