#include "workbench/ui/picture.h"

#include <algorithm>
#include <utility>

namespace quor::workbench {
namespace {

constexpr uint32_t kOpaque = 0xFF000000;
constexpr uint32_t kColour = 0x00FFFFFF;

HBITMAP BitmapOf(IPictureDisp* picture) noexcept {
  IPicture* own = nullptr;
  if (picture == nullptr ||
      FAILED(picture->QueryInterface(IID_IPicture, reinterpret_cast<void**>(&own)))) {
    return nullptr;
  }
  short type = PICTYPE_UNINITIALIZED;
  OLE_HANDLE handle = 0;
  const bool isBitmap = SUCCEEDED(own->get_Type(&type)) && type == PICTYPE_BITMAP &&
                        SUCCEEDED(own->get_Handle(&handle));
  own->Release();
  return isBitmap ? reinterpret_cast<HBITMAP>(static_cast<ULONG_PTR>(handle)) : nullptr;
}

size_t IndexOf(const Pixels& pixels, int x, int y) {
  return static_cast<size_t>(y) * static_cast<size_t>(pixels.width) + static_cast<size_t>(x);
}

// The unchanged bits, with alpha if the bitmap has 32 bits.
Pixels RawPixels(HBITMAP bitmap) {
  BITMAP header = {};
  Pixels pixels;
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof header, &header) == 0) return pixels;
  pixels.width = header.bmWidth;
  pixels.height = std::abs(header.bmHeight);
  pixels.colours.resize(static_cast<size_t>(pixels.width) * static_cast<size_t>(pixels.height));
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = pixels.width;
  info.bmiHeader.biHeight = -pixels.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  HDC screen = CreateCompatibleDC(nullptr);
  const int lines = GetDIBits(screen, bitmap, 0, static_cast<UINT>(pixels.height),
                              pixels.colours.data(), &info, DIB_RGB_COLORS);
  DeleteDC(screen);
  if (lines == 0) return {};
  if (header.bmBitsPixel != 32) {
    for (uint32_t& colour : pixels.colours)
      colour |= kOpaque;
  }
  return pixels;
}

uint32_t Multiplied(uint32_t colour) noexcept {
  const uint32_t alpha = colour >> 24;
  const auto channel = [&](int shift) {
    return (((colour >> shift) & 0xFF) * alpha + 127) / 255 << shift;
  };
  return (alpha << 24) | channel(16) | channel(8) | channel(0);
}

bool IsMultiplied(uint32_t colour) noexcept {
  const uint32_t alpha = colour >> 24;
  return ((colour >> 16) & 0xFF) <= alpha && ((colour >> 8) & 0xFF) <= alpha &&
         (colour & 0xFF) <= alpha;
}

// The alpha of a bitmap may be premultiplied, not premultiplied, or never set.
void NormalizeAlpha(std::vector<uint32_t>& colours) {
  const bool hasAlpha =
      std::any_of(colours.begin(), colours.end(), [](uint32_t c) { return c >> 24 != 0; });
  const bool multiplied = std::all_of(colours.begin(), colours.end(), IsMultiplied);
  for (uint32_t& colour : colours) {
    if (!hasAlpha) {
      colour |= kOpaque;
    } else if (!multiplied) {
      colour = Multiplied(colour);
    }
  }
}

}  // namespace

IPictureDispPtr BitmapPicture(IDispatch* object) {
  if (object == nullptr) return {};
  IPictureDispPtr picture;
  if (FAILED(object->QueryInterface(IID_IPictureDisp, reinterpret_cast<void**>(&picture)))) {
    throw CModelError(E_INVALIDARG, "The object is not a picture.");
  }
  if (BitmapOf(picture) == nullptr) throw CModelError(E_FAIL, "The picture is not a bitmap.");
  return picture;
}

PixelsPtr AlphaPixels(IPictureDisp* picture) {
  Pixels pixels = RawPixels(BitmapOf(picture));
  if (pixels.colours.empty()) return nullptr;
  NormalizeAlpha(pixels.colours);
  return std::make_shared<const Pixels>(std::move(pixels));
}

PixelsPtr MaskedPixels(IPictureDisp* picture, IPictureDisp* mask) {
  Pixels pixels = RawPixels(BitmapOf(picture));
  if (pixels.colours.empty()) return nullptr;
  const Pixels shape = RawPixels(BitmapOf(mask));
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      const bool covered = x < shape.width && y < shape.height;
      const uint32_t white = covered ? shape.colours[IndexOf(shape, x, y)] & kColour : 0;
      uint32_t& colour = pixels.colours[IndexOf(pixels, x, y)];
      colour = white == kColour ? 0 : colour | kOpaque;
    }
  }
  return std::make_shared<const Pixels>(std::move(pixels));
}

}  // namespace quor::workbench
