#include "toolbar/picture_loader.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include "resources/resource_ids.h"

_COM_SMARTPTR_TYPEDEF(IPicture, IID_IPicture);

namespace quor {
namespace {

TEST(PictureLoader, GivesTheRibbonSquareBitmapsWithTransparencyMadeOnce) {
  const CResourceLoader resources(GetModuleHandleW(nullptr));
  CPictureLoader pictures(resources);
  for (const int id : {IDP_CALL, IDP_HANG_UP, IDP_ANSWER, IDP_DIAL, IDP_CELL, IDP_CALLER_LIST,
                       IDP_SPEED_DIAL, IDP_OPTIONS, IDP_CONTACT}) {
    const IDispatchPtr image = pictures.RibbonPicture(id);
    const IPicturePtr picture = image;
    short type = 0;
    OLE_HANDLE handle = 0;
    picture->get_Type(&type);
    picture->get_Handle(&handle);
    BITMAP bitmap = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(static_cast<ULONG_PTR>(handle)), sizeof bitmap, &bitmap);
    EXPECT_EQ(type, PICTYPE_BITMAP);
    EXPECT_EQ(bitmap.bmBitsPixel, 32);
    EXPECT_GE(bitmap.bmWidth, 16);
    EXPECT_EQ(bitmap.bmWidth, bitmap.bmHeight);
    EXPECT_TRUE(pictures.RibbonPicture(id) == image.GetInterfacePtr());
  }
  pictures.Release();
  EXPECT_TRUE(pictures.RibbonPicture(IDP_CALL) != nullptr);
}

}  // namespace
}  // namespace quor
