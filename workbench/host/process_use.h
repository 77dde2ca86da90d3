#ifndef QUOR_WORKBENCH_HOST_PROCESS_USE_H
#define QUOR_WORKBENCH_HOST_PROCESS_USE_H

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// The system resources that this process holds; `windows` counts those of the calling thread.
ResourceUse MeasureProcess();

// Whether no heap of this process is damaged. While Windows checks heaps (GlobalFlag 0x70), this
// also finds writes behind a block and into freed blocks.
bool AreHeapsSound();

}  // namespace quor::workbench

#endif
