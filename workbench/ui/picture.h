#ifndef QUOR_WORKBENCH_UI_PICTURE_H
#define QUOR_WORKBENCH_UI_PICTURE_H

#include <utility>

#include "workbench/office/value.h"
#include "workbench/ui/face.h"

namespace quor::workbench {

// A referenced IPictureDisp from an add-in.
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

// The picture in a value of Picture or Mask; empty for none. Throws CModelError if it is not a
// picture or not a bitmap.
PicturePtr BitmapPicture(IDispatch* object);

// The picture on a ribbon: a 32-bit bitmap with its alpha, others opaque. Null if the bits cannot
// be read.
PixelsPtr AlphaPixels(IPictureDisp* picture);
// The picture on a command bar: alpha is ignored, and the bar shows through where the mask is
// white. Opaque without a mask (null).
PixelsPtr MaskedPixels(IPictureDisp* picture, IPictureDisp* mask);

}  // namespace quor::workbench

#endif
