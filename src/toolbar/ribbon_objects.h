#ifndef QUOR_TOOLBAR_RIBBON_OBJECTS_H
#define QUOR_TOOLBAR_RIBBON_OBJECTS_H

#include <string>

#include "com/dispatch_object.h"

namespace quor {

// Office's two ribbon objects. Member names are looked up on each object, because any program may
// call the callbacks with an object of its own.

class CRibbonControl : public CDispatchObject {
 public:
  explicit CRibbonControl(IDispatch* control);

  std::wstring Id() const;
  // The explorer, or for controls in contact windows the inspector.
  IDispatchPtr Context() const;
};

class CRibbonUi : public CDispatchObject {
 public:
  explicit CRibbonUi(IDispatch* ribbon);

  // Office queries every control's face again before it shows it next.
  void Invalidate() const;
};

}  // namespace quor

#endif
