#include "toolbar/picture_loader.h"

// clang-format off
#include <objidl.h>
#include <gdiplus.h>
// clang-format on
#include <olectl.h>
#include <shlwapi.h>

#include <memory>

#include "resources/system_resolution.h"
#include "toolbar/ribbon_faces.h"

namespace quor {
namespace {

_COM_SMARTPTR_TYPEDEF(IStream, IID_IStream);

// The picture takes ownership of the bitmap.
IDispatchPtr PictureFromBitmap(HBITMAP bitmap) {
  PICTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = bitmap;
  IDispatchPtr picture;
  const HRESULT result = OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                                  reinterpret_cast<void**>(&picture));
  if (FAILED(result)) {
    DeleteObject(bitmap);
    _com_issue_error(result);
  }
  return picture;
}

void Check(Gdiplus::Status status) {
  if (status == Gdiplus::OutOfMemory) _com_issue_error(E_OUTOFMEMORY);
  if (status != Gdiplus::Ok) _com_issue_error(E_FAIL);
}

void PaintOntoButtonColour(Gdiplus::Bitmap& canvas, Gdiplus::Bitmap& image) {
  Gdiplus::Color colour;
  colour.SetFromCOLORREF(GetSysColor(COLOR_BTNFACE));
  Gdiplus::Graphics graphics(&canvas);
  Check(graphics.Clear(colour));
  Check(graphics.DrawImage(&image, 0, 0, static_cast<INT>(canvas.GetWidth()),
                           static_cast<INT>(canvas.GetHeight())));
}

}  // namespace

void CPictureLoader::StartGdiPlus() {
  if (m_gdiPlus != 0) return;
  const Gdiplus::GdiplusStartupInput input;
  Check(Gdiplus::GdiplusStartup(&m_gdiPlus, &input, nullptr));
}

HBITMAP CPictureLoader::Decode(int picture, bool transparent) {
  const std::span<const std::byte> bytes = m_resources.Data(L"ICON_PNG", picture);
  if (bytes.empty()) _com_issue_error(HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND));
  const IStreamPtr stream(SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()),
                                            static_cast<UINT>(bytes.size())),
                          false);
  if (stream == nullptr) _com_issue_error(E_OUTOFMEMORY);
  StartGdiPlus();
  Gdiplus::Bitmap image(stream);
  Check(image.GetLastStatus());
  HBITMAP bitmap = nullptr;
  if (transparent) {
    Check(image.GetHBITMAP(Gdiplus::Color(0, 0, 0, 0), &bitmap));
    return bitmap;
  }
  Gdiplus::Bitmap canvas(static_cast<INT>(image.GetWidth()), static_cast<INT>(image.GetHeight()),
                         PixelFormat24bppRGB);
  PaintOntoButtonColour(canvas, image);
  Check(canvas.GetHBITMAP(Gdiplus::Color(255, 0, 0, 0), &bitmap));
  return bitmap;
}

IDispatchPtr CPictureLoader::RibbonPicture(int picture) {
  const int suited = PictureForScreen(picture, SystemDotsPerInch());
  IDispatchPtr& kept = m_ribbonPictures[suited];
  if (kept == nullptr) kept = PictureFromBitmap(Decode(suited, true));
  return kept;
}

IDispatchPtr CPictureLoader::ButtonPicture(int picture) {
  return PictureFromBitmap(Decode(picture, false));
}

IDispatchPtr CPictureLoader::Mask(int bitmap) {
  HANDLE mask = LoadImageW(m_resources.Module(), MAKEINTRESOURCEW(bitmap), IMAGE_BITMAP, 0, 0,
                           LR_CREATEDIBSECTION);
  if (mask == nullptr) _com_issue_error(HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND));
  return PictureFromBitmap(static_cast<HBITMAP>(mask));
}

void CPictureLoader::Release() noexcept {
  m_ribbonPictures.clear();
  if (m_gdiPlus != 0) Gdiplus::GdiplusShutdown(m_gdiPlus);
  m_gdiPlus = 0;
}

}  // namespace quor
