#include "addin/session_clock.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>

#include "text/format.h"

namespace quor {
namespace {

// kMostSessions lines take about 1.5 KB.
constexpr size_t kMostBytes = 4096;

std::string ReadStart(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return {};
  std::array<char, kMostBytes> bytes;
  const size_t size = std::fread(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
  return {bytes.data(), size};
}

}  // namespace

void CSessionClock::Begin() noexcept {
  SYSTEMTIME now;
  GetLocalTime(&now);
  m_session = {};
  try {
    m_session.began = Format("%04d-%02d-%02d %02d:%02d:%02d", now.wYear, now.wMonth, now.wDay,
                             now.wHour, now.wMinute, now.wSecond);
  } catch (const std::exception&) {
    // Out of memory: lose the times of this session.
  }
}

void CSessionClock::Add(Phase phase, uint32_t milliseconds) noexcept {
  switch (phase) {
    case Phase::Start:
      m_session.start = milliseconds;
      break;
    case Phase::FolderSwitch:
      m_session.folderSwitch = std::max(m_session.folderSwitch.value_or(0), milliseconds);
      break;
    case Phase::Shutdown:  // in several parts, depending on Outlook's version
      m_session.shutdown = m_session.shutdown.value_or(0) + milliseconds;
      break;
  }
}

void CSessionClock::Write(const std::string& configurationPath) const noexcept {
  if (m_session.began.empty() || configurationPath.empty()) return;
  try {
    const std::string path =
        configurationPath.substr(0, configurationPath.rfind('\\') + 1) + kSessionTimesFile;
    std::vector<SessionTimes> sessions = ParseSessionTimes(ReadStart(path));
    AddSession(sessions, m_session);
    const std::string text = FormatSessionTimes(sessions);
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return;
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
  } catch (const std::exception&) {
    // Out of memory: lose the times of this session.
  }
}

}  // namespace quor
