#ifndef QUOR_WORKBENCH_COMMANDBARS_BUILT_IN_BARS_H
#define QUOR_WORKBENCH_COMMANDBARS_BUILT_IN_BARS_H

#include <span>

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {

struct BuiltInBar {
  const wchar_t* name;
  mso::BarType type;
  long row;
  mso::ControlType controlType;
  long firstId;                              // of its controls; not 1, which marks a custom control
  std::span<const wchar_t* const> captions;  // a bar in front begins a group
};

// Outlook's own menu bar and standard toolbar.
std::span<const BuiltInBar> BuiltInBars() noexcept;

}  // namespace quor::workbench

#endif
