#ifndef QUOR_WORKBENCH_HOST_CRASH_REPORT_H
#define QUOR_WORKBENCH_HOST_CRASH_REPORT_H

namespace quor::workbench {

inline constexpr int kExitCrashed = 3;
inline constexpr int kExitStuck = 4;

// A crash anywhere in the process ends it with a line on standard output: what, in which module,
// during which command of the scenario; exit code kExitCrashed.
void ReportCrashes();

// Ends the process at once, since Outlook's thread no longer answers.
[[noreturn]] void ReportStuck();

}  // namespace quor::workbench

#endif
