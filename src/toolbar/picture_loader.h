#ifndef QUOR_TOOLBAR_PICTURE_LOADER_H
#define QUOR_TOOLBAR_PICTURE_LOADER_H

#include <cstdint>
#include <map>

#include "com/com_pointers.h"
#include "resources/resource_loader.h"

namespace quor {

// Pictures from the resources, as IPictureDisp objects for Office. The first one starts GDI+;
// Release or destruction ends it, which must not happen in DllMain. Failures throw _com_error.
class CPictureLoader {
 public:
  explicit CPictureLoader(const CResourceLoader& resources) noexcept : m_resources(resources) {}
  ~CPictureLoader() { Release(); }
  CPictureLoader(const CPictureLoader&) = delete;
  CPictureLoader& operator=(const CPictureLoader&) = delete;

  // For the ribbon, with transparency. `picture` is an IDP_ id of a 16-pixel picture; the result
  // has the size that fits the screen. Cached, because a ribbon queries every control in every
  // view.
  IDispatchPtr RibbonPicture(int picture);
  // For a command bar's button: painted on the button colour, because such buttons have no
  // transparency.
  IDispatchPtr ButtonPicture(int picture);
  // A BITMAP resource.
  IDispatchPtr Mask(int bitmap);

  // Releases the cached pictures and ends GDI+.
  void Release() noexcept;

 private:
  void StartGdiPlus();
  HBITMAP Decode(int picture, bool transparent);

  const CResourceLoader& m_resources;
  std::map<int, IDispatchPtr> m_ribbonPictures;
  ULONG_PTR m_gdiPlus = 0;
};

}  // namespace quor

#endif
