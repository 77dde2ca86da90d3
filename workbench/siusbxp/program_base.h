#ifndef QUOR_WORKBENCH_SIUSBXP_PROGRAM_BASE_H
#define QUOR_WORKBENCH_SIUSBXP_PROGRAM_BASE_H

#include "workbench/siusbxp/base_simulator.h"

namespace quor::workbench {

// The one base behind every simulated SiUSBXp.dll that this program loads.
CBaseSimulator& ProgramBase();

}  // namespace quor::workbench

#endif
