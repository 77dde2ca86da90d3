#include "workbench/scenario/replay.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string_view>

#include "workbench/scenario/bytes.h"
#include "workbench/scenario/scenario_error.h"
#include "workbench/scenario/script.h"

namespace quor::workbench {

namespace {

constexpr std::string_view kSessionStart = "--------------------------------------------------";
constexpr std::string_view kVersion = "m_appVersion = ";
constexpr std::string_view kReceived = "[R] (";
constexpr std::string_view kWrongStart = "** Error : Delimit error STX.(";
constexpr std::string_view kWrongType = "** Error : Read Message type error 0x";
constexpr std::string_view kShortHeader = "Read size unmatch. req=2, exec=1";
constexpr std::string_view kDown = "** Down : USB device down...";
constexpr std::string_view kRecovery = "** Recovery : USB device recovery.";
constexpr std::string_view kNoDevice = "** Error : Device undefined.";
constexpr size_t kShortestFrame = 5;

// The two hexadecimal digits after a prefix.
std::string HexAfter(const std::string& line, std::string_view prefix) {
  std::string digits = line.substr(std::min(prefix.size(), line.size()), 2);
  uint8_t value = 0;
  if (!ParseHexByte(digits, value)) throw CScenarioError("not two hexadecimal digits: " + line);
  return digits;
}

// "[R] (5) 26 04 01 0D 0A"
Bytes ReceivedBytes(const std::string& line) {
  size_t count = 0;
  const char* end = line.data() + line.size();
  const auto counted = std::from_chars(line.data() + kReceived.size(), end, count);
  const bool shaped = counted.ec == std::errc() && counted.ptr != end && *counted.ptr == ')';
  if (!shaped) throw CScenarioError("not a frame: " + line);
  Bytes bytes = ParseHex(SplitWords(std::string_view(counted.ptr + 1, end)));
  if (bytes.size() != count) throw CScenarioError("not a frame: " + line);
  return bytes;
}

class CLogPlayer {
 public:
  explicit CLogPlayer(const std::vector<std::string>& lines) : m_lines(lines) {}

  Replay Play() {
    for (; m_at < m_lines.size(); ++m_at)
      PlayLine(m_lines[m_at]);
    if (!m_started) StartSession();
    return std::move(m_replay);
  }

 private:
  void Add(const std::string& command) { m_replay.scenario += command + "\n"; }

  void AddPoll(const std::string& command) {
    if (!m_started) StartSession();
    Add(command);
    Add("ticks 1");
  }

  void StartSession() {
    if (m_started) {
      Add("disconnect 1");
      Add("unload");
    }
    m_started = true;
    const bool hasBase = SessionBeginsWithBase().value_or(m_plugged);
    if (hasBase != m_plugged) SetPlugged(hasBase);
    Add("start");
    Add("ticks 1");
  }

  // Whether the session that starts here finds the base at once; nothing if the log does not tell.
  std::optional<bool> SessionBeginsWithBase() const {
    for (size_t i = m_at; i < m_lines.size(); ++i) {
      if (i > m_at && m_lines[i] == kSessionStart) break;
      if (m_lines[i] == kNoDevice) return false;
      if (m_lines[i] == kRecovery || m_lines[i].starts_with(kReceived)) return true;
    }
    return std::nullopt;
  }

  void SetPlugged(bool plugged) {
    m_plugged = plugged;
    Add(plugged ? "plug" : "unplug");
  }

  void PlayLine(const std::string& line) {
    if (line == kSessionStart) return StartSession();
    if (line.starts_with(kVersion))
      m_replay.outlookVersion = std::atoi(line.c_str() + kVersion.size());
    if ((line == kDown && m_plugged) || (line == kRecovery && !m_plugged)) {
      SetPlugged(!m_plugged);
      Add("ticks 1");
    } else if (line.starts_with(kReceived)) {
      AddPoll("queue " + FormatHex(ReceivedBytes(line)));
    } else if (line.starts_with(kWrongStart)) {
      PlayWrongStart(HexAfter(line, kWrongStart));
    } else if (line.starts_with(kWrongType)) {
      AddPoll("queue 26 " + HexAfter(line, kWrongType));
    } else if (line == kShortHeader) {
      AddPoll("queue 26");
    }
  }

  // The log has neither the second byte of the header nor the drained bytes beyond the first two.
  void PlayWrongStart(const std::string& byte) {
    std::string bytes = byte + " 00";
    if (m_at + 1 < m_lines.size() && m_lines[m_at + 1].starts_with(kReceived)) {
      const Bytes drained = ReceivedBytes(m_lines[m_at + 1]);
      if (drained.size() < kShortestFrame) {
        bytes += " " + FormatHex(drained);
        ++m_at;
      }
    }
    AddPoll("queue " + bytes);
  }

  const std::vector<std::string>& m_lines;
  size_t m_at = 0;
  Replay m_replay;
  bool m_started = false;
  bool m_plugged = false;
};

}  // namespace

Replay ReplayFromLog(const std::vector<std::string>& lines) {
  return CLogPlayer(lines).Play();
}

std::vector<std::string> ReceptionLines(const std::vector<std::string>& lines) {
  constexpr std::string_view kPrefixes[] = {kReceived,
                                            kWrongStart,
                                            kWrongType,
                                            kShortHeader,
                                            "< Inform ",
                                            "Result: 0x",
                                            "LineType: 0x",
                                            "NoNum: 0x",
                                            "RegInfo: 0x",
                                            "** Error : Delimit error.(",
                                            "** Error : Dial number error.(",
                                            "** SET_STATUS_INDICATION",
                                            "** CLOSE_POP_UP_INDICATION",
                                            "OnEventGet::classSet",
                                            "OnEventGet::classReceive"};
  std::vector<std::string> kept;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(kept), [&](const std::string& line) {
    return std::any_of(std::begin(kPrefixes), std::end(kPrefixes),
                       [&](std::string_view prefix) { return line.starts_with(prefix); });
  });
  return kept;
}

}  // namespace quor::workbench
