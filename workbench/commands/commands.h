#ifndef QUOR_WORKBENCH_COMMANDS_COMMANDS_H
#define QUOR_WORKBENCH_COMMANDS_COMMANDS_H

#include "workbench/commands/command.h"

namespace quor::workbench {

// The command table's parts, by subject.
extern const std::span<const Command> kSceneCommands;
extern const std::span<const Command> kOutlookCommands;
extern const std::span<const Command> kContactCommands;
extern const std::span<const Command> kBaseCommands;
extern const std::span<const Command> kTimeCommands;
extern const std::span<const Command> kScreenCommands;
extern const std::span<const Command> kEvidenceCommands;

}  // namespace quor::workbench

#endif
