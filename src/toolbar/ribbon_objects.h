#ifndef QUOR_TOOLBAR_RIBBON_OBJECTS_H
#define QUOR_TOOLBAR_RIBBON_OBJECTS_H

#include <string>

#include "com/dispatch_object.h"

namespace quor {

// Office's two ribbon objects. Their members are looked up on every object anew, since anybody may
// call the add-in's callbacks with an object of his own.

class CRibbonControl : public CDispatchObject {
 public:
  explicit CRibbonControl(IDispatch* control);

  std::wstring Id() const;
  // The explorer, or the inspector for controls in contact windows.
  IDispatchPtr Context() const;
};

class CRibbonUi : public CDispatchObject {
 public:
  explicit CRibbonUi(IDispatch* ribbon);

  // Office asks for every control's face again, before it next shows it.
  void Invalidate() const;
};

}  // namespace quor

#endif
