#ifndef QUOR_WORKBENCH_HOST_CRASH_REPORT_H
#define QUOR_WORKBENCH_HOST_CRASH_REPORT_H

namespace quor::workbench {

inline constexpr int kExitCrashed = 3;
inline constexpr int kExitStuck = 4;

// On a crash, prints one line to standard output (the exception, its module, the scenario's current
// command) and ends the process with kExitCrashed.
void ReportCrashes();

// Ends the process at once, because Outlook's thread no longer answers.
[[noreturn]] void ReportStuck();

}  // namespace quor::workbench

#endif
