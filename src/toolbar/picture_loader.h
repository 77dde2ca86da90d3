#ifndef QUOR_TOOLBAR_PICTURE_LOADER_H
#define QUOR_TOOLBAR_PICTURE_LOADER_H

#include <cstdint>
#include <map>

#include "com/com_pointers.h"
#include "resources/resource_loader.h"

namespace quor {

// Pictures among the resources, as the IPictureDisp objects that Office wants. GDI+ is started for
// the first one and ended by Release or destruction, neither of which may run in DllMain. Failures
// throw _com_error.
class CPictureLoader {
 public:
  explicit CPictureLoader(const CResourceLoader& resources) noexcept : m_resources(resources) {}
  ~CPictureLoader() { Release(); }
  CPictureLoader(const CPictureLoader&) = delete;
  CPictureLoader& operator=(const CPictureLoader&) = delete;

  // For the ribbon, which shows transparency: `picture` is an IDP_ number of 16 pixels; given in
  // the size that suits the screen. Kept, since a ribbon asks for every control of every view.
  IDispatchPtr RibbonPicture(int picture);
  // For a command bar's button, which knows no transparency: painted onto the colour of buttons.
  IDispatchPtr ButtonPicture(int picture);
  // A BITMAP resource.
  IDispatchPtr Mask(int bitmap);

  // Lets go of everything kept.
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
