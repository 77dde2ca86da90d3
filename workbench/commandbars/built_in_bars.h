#ifndef QUOR_WORKBENCH_COMMANDBARS_BUILT_IN_BARS_H
#define QUOR_WORKBENCH_COMMANDBARS_BUILT_IN_BARS_H

#include <vector>

#include "workbench/commandbars/command_bars.h"

namespace quor::workbench {

// Outlook's own menu bar and standard toolbar.
const std::vector<StoredBar>& BuiltInBars();

}  // namespace quor::workbench

#endif
