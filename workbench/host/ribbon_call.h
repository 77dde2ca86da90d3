#ifndef QUOR_WORKBENCH_HOST_RIBBON_CALL_H
#define QUOR_WORKBENCH_HOST_RIBBON_CALL_H

#include <string>

#include "workbench/office/model.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Calls a callback of the ribbon documents by name, as any program may at any time. Returns
// Invoke's result; `answer` is "yes", "no", a number, a text, "object" or "nothing".
HRESULT CallRibbonCallback(CModel& model, IUnknown& addIn, const RibbonCall& call,
                           std::string& answer);

}  // namespace quor::workbench

#endif
