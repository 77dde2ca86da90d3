#include "module/log_file.h"

#include <windows.h>

#include <shlwapi.h>

#include <cstdio>
#include <exception>

#include "module/application_data_folder.h"
#include "module/log_stamp.h"

namespace quor {
namespace {

LogTime LocalTime() noexcept {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

// Empty if Windows does not report the folder.
std::string LogFolder() {
  const std::string applicationData = ApplicationDataFolder();
  return applicationData.empty() ? std::string() : applicationData + "\\Temp";
}

}  // namespace

std::string CLogFile::TodaysPath() {
  const std::string folder = LogFolder();
  return folder.empty() ? std::string() : folder + "\\" + LogFileName(LocalTime());
}

void CLogFile::WriteLine(std::string_view text) noexcept {
  try {
    const LogTime time = LocalTime();
    const std::string line = LogStamp(time).append(text);
    const std::string folder = LogFolder();
    if (folder.empty()) return;
    if (!PathFileExistsA(folder.c_str())) CreateDirectoryA(folder.c_str(), nullptr);
    // Text mode writes a line feed as carriage return and line feed.
    std::FILE* file = std::fopen((folder + "\\" + LogFileName(time)).c_str(), "a");
    if (file == nullptr) return;
    std::fwrite(line.data(), 1, line.size(), file);
    std::fclose(file);
  } catch (const std::exception&) {
    // Out of memory: drop the line, like any line that cannot be written.
  }
}

}  // namespace quor
