#ifndef QUOR_WORKBENCH_HOST_PROCESS_USE_H
#define QUOR_WORKBENCH_HOST_PROCESS_USE_H

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// The system resources that this process holds; `windows` counts those of the calling thread.
ResourceUse MeasureProcess();

}  // namespace quor::workbench

#endif
