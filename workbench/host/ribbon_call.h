#ifndef QUOR_WORKBENCH_HOST_RIBBON_CALL_H
#define QUOR_WORKBENCH_HOST_RIBBON_CALL_H

// clang-format off
#include <windows.h>
#include <oaidl.h>
// clang-format on

#include <string>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Calls a callback of the ribbon documents by name, as any program may at any time. `control` may
// be null. Returns Invoke's result; `answer` is "yes", "no", a number, a text, "object" or
// "nothing".
HRESULT CallRibbonCallback(IUnknown& addIn, const RibbonCall& call, IDispatch* control,
                           std::string& answer);

}  // namespace quor::workbench

#endif
