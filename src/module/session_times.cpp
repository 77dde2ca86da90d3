#include "module/session_times.h"

#include <charconv>

namespace quor {
namespace {

constexpr std::string_view kBeganShape = "0000-00-00 00:00:00";

struct Column {
  std::string_view name;
  std::optional<uint32_t> SessionTimes::*time;
};
constexpr Column kColumns[] = {{" start=", &SessionTimes::start},
                               {" folder-switch=", &SessionTimes::folderSwitch},
                               {" shutdown=", &SessionTimes::shutdown}};

bool HasShape(std::string_view began) {
  if (began.size() != kBeganShape.size()) return false;
  for (size_t i = 0; i < began.size(); ++i) {
    const bool isDigit = began[i] >= '0' && began[i] <= '9';
    if (kBeganShape[i] == '0' ? !isDigit : began[i] != kBeganShape[i]) return false;
  }
  return true;
}

// Removes " start=212" or " start=-" from the front of the line.
bool TakeColumn(std::string_view& line, const Column& column, SessionTimes& session) {
  if (!line.starts_with(column.name)) return false;
  line.remove_prefix(column.name.size());
  if (line.starts_with('-')) {
    line.remove_prefix(1);
    return true;
  }
  uint32_t milliseconds = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), milliseconds);
  if (error != std::errc()) return false;
  line.remove_prefix(static_cast<size_t>(end - line.data()));
  session.*column.time = milliseconds;
  return true;
}

std::optional<SessionTimes> ParseLine(std::string_view line) {
  SessionTimes session;
  session.began = line.substr(0, kBeganShape.size());
  if (!HasShape(session.began)) return std::nullopt;
  line.remove_prefix(kBeganShape.size());
  for (const Column& column : kColumns) {
    if (!TakeColumn(line, column, session)) return std::nullopt;
  }
  return line.empty() ? std::optional(session) : std::nullopt;
}

}  // namespace

std::vector<SessionTimes> ParseSessionTimes(std::string_view text) {
  std::vector<SessionTimes> sessions;
  while (!text.empty()) {
    const std::string_view whole = text.substr(0, text.find('\n'));
    text.remove_prefix(whole.size() == text.size() ? whole.size() : whole.size() + 1);
    const std::string_view line = whole.substr(0, whole.find('\r'));
    if (const std::optional<SessionTimes> session = ParseLine(line)) AddSession(sessions, *session);
  }
  return sessions;
}

std::string FormatSessionTimes(const std::vector<SessionTimes>& sessions) {
  std::string text;
  for (const SessionTimes& session : sessions) {
    text += session.began;
    for (const Column& column : kColumns) {
      const std::optional<uint32_t>& time = session.*column.time;
      text += std::string(column.name) + (time ? std::to_string(*time) : "-");
    }
    text += "\r\n";
  }
  return text;
}

void AddSession(std::vector<SessionTimes>& sessions, const SessionTimes& session) {
  if (!sessions.empty() && sessions.back().began == session.began) sessions.pop_back();
  if (sessions.size() == kMostSessions) sessions.erase(sessions.begin());
  sessions.push_back(session);
}

}  // namespace quor
