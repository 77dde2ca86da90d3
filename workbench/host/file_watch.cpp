#include "workbench/host/file_watch.h"

#include <optional>
#include <string_view>
#include <vector>

#include "workbench/host/application_data.h"

namespace quor::workbench {

namespace {

// Leaves the add-in time to use the file.
constexpr DWORD kPause = 1;  // milliseconds

// Whether every element is closed in order and one root element contains all others.
bool IsWhole(std::string_view text) {
  std::vector<std::string_view> open;
  bool closed = false;
  for (size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at)) {
    const size_t end = text.find('>', at);
    if (end == std::string_view::npos || closed) return false;
    const std::string_view tag = text.substr(at + 1, end - at - 1);
    at = end;
    if (tag.starts_with('?') || tag.ends_with('/')) continue;
    if (!tag.starts_with('/')) {
      open.push_back(tag);
      continue;
    }
    if (open.empty() || open.back() != tag.substr(1)) return false;
    open.pop_back();
    closed = open.empty();
  }
  return closed;
}

}  // namespace

CFileWatch::CFileWatch(std::wstring path)
    : m_path(std::move(path)), m_thread([this] { Watch(); }) {}

void CFileWatch::End() {
  m_stop = true;
  m_thread.Join();
}

void CFileWatch::Watch() {
  while (!m_stop && m_fault.empty()) {
    const std::optional<std::string> content = ReadWholeFile(m_path);
    ++m_readings;
    if (!content) {
      m_fault = "it was missing";
    } else if (!IsWhole(*content)) {
      m_fault = "it held\n" + *content;
    }
    Sleep(kPause);
  }
}

}  // namespace quor::workbench
