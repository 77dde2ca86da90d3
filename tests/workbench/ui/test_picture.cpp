#include "tests/workbench/ui/test_picture.h"

namespace quor::workbench {
namespace {

CValue FromDescription(PICTDESC& description) {
  IPictureDisp* picture = nullptr;
  OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                           reinterpret_cast<void**>(&picture));
  CValue value(static_cast<IDispatch*>(picture));
  picture->Release();
  return value;
}

}  // namespace

CValue TestPicture(uint32_t left, uint32_t right) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = 2;
  info.bmiHeader.biHeight = 1;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  PICTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  static_cast<uint32_t*>(bits)[0] = left;
  static_cast<uint32_t*>(bits)[1] = right;
  return FromDescription(description);
}

CValue EmptyPicture() {
  PICTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.picType = static_cast<UINT>(PICTYPE_NONE);
  return FromDescription(description);
}

}  // namespace quor::workbench
