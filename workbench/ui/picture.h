#ifndef QUOR_WORKBENCH_UI_PICTURE_H
#define QUOR_WORKBENCH_UI_PICTURE_H

#include <utility>

#include "workbench/office/value.h"
#include "workbench/ui/face.h"

namespace quor::workbench {

// A counted IPictureDisp that an add-in handed over.
class PicturePtr {
 public:
  PicturePtr() noexcept = default;
  PicturePtr(const PicturePtr&) = delete;
  PicturePtr(PicturePtr&& other) noexcept : m_picture(std::exchange(other.m_picture, nullptr)) {}
  PicturePtr& operator=(PicturePtr&& other) noexcept {
    std::swap(m_picture, other.m_picture);
    return *this;
  }
  ~PicturePtr() { Reset(); }

  static PicturePtr Adopt(IPictureDisp* picture) noexcept;
  IPictureDisp* Get() const noexcept { return m_picture; }
  explicit operator bool() const noexcept { return m_picture != nullptr; }
  void Reset() noexcept;

 private:
  IPictureDisp* m_picture = nullptr;
};

// The picture behind a value of Picture or Mask; empty for nothing. Throws CModelError where it is
// no picture or not a bitmap.
PicturePtr BitmapPicture(IDispatch* object);
// A copy of the bitmap on the clipboard; empty where there is none.
PicturePtr PictureFromClipboard();

// As the ribbon shows it: a 32-bit bitmap by its alpha, others opaque. Null where the bits cannot
// be had.
PixelsPtr AlphaPixels(IPictureDisp* picture);
// As a command bar shows it: alpha ignored; where the mask is white the bar shows through. Without
// a mask (null) the picture is opaque.
PixelsPtr MaskedPixels(IPictureDisp* picture, IPictureDisp* mask);

}  // namespace quor::workbench

#endif
