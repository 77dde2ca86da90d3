#ifndef QUOR_MODULE_SESSION_TIMES_H
#define QUOR_MODULE_SESSION_TIMES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quor {

// How long one Outlook session waited for the add-in, in milliseconds.
struct SessionTimes {
  std::string began;  // local time, "2009-03-07 08:05:09"
  std::optional<uint32_t> start;
  std::optional<uint32_t> folderSwitch;  // the longest one
  std::optional<uint32_t> shutdown;

  bool operator==(const SessionTimes&) const = default;
};

// Outlook 2013 and later disables an add-in if the median of the last five sessions reaches one of
// these times, in milliseconds.
inline constexpr uint32_t kStartLimit = 1000;
inline constexpr uint32_t kFolderSwitchLimit = 500;
inline constexpr uint32_t kShutdownLimit = 500;

// This file beside the configuration file holds the times of the last sessions, one session per
// line: "2009-03-07 08:05:09 start=212 folder-switch=15 shutdown=-".
inline constexpr char kSessionTimesFile[] = "vex_times.txt";
inline constexpr size_t kMostSessions = 20;

// Skips invalid lines. Returns the last kMostSessions.
std::vector<SessionTimes> ParseSessionTimes(std::string_view text);
// Lines end in CR LF.
std::string FormatSessionTimes(const std::vector<SessionTimes>& sessions);

// Adds a session, or replaces the last one if that began at the same time. Drops the oldest beyond
// kMostSessions.
void AddSession(std::vector<SessionTimes>& sessions, const SessionTimes& session);

}  // namespace quor

#endif
