#ifndef QUOR_WORKBENCH_SCENARIO_COMMANDS_H
#define QUOR_WORKBENCH_SCENARIO_COMMANDS_H

#include "workbench/scenario/command.h"

namespace quor::workbench {

// The command table's parts, by subject.
std::span<const Command> SceneCommands();
std::span<const Command> OutlookCommands();
std::span<const Command> ContactCommands();
std::span<const Command> BaseCommands();
std::span<const Command> TimeCommands();
std::span<const Command> ScreenCommands();
std::span<const Command> EvidenceCommands();

}  // namespace quor::workbench

#endif
