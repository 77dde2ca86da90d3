#include "module/log_file.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <cstdio>
#include <string>

#include "module/application_data_folder.h"
#include "module/log_stamp.h"

namespace quor {
namespace {

std::string TodaysFile() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return ApplicationDataFolder() + "\\Temp\\" + LogFileName({now.wYear, now.wMonth, now.wDay});
}

std::string Content(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return "no file";
  std::string content(65536, '\0');
  content.resize(std::fread(content.data(), 1, content.size(), file));
  std::fclose(file);
  return content;
}

TEST(LogFile, AppendsStampedLinesToTheFileOfTheDay) {
  const std::string path = TodaysFile();
  DeleteFileA(path.c_str());
  RemoveDirectoryA(path.substr(0, path.rfind('\\')).c_str());

  CLogFile writer;
  CDiagnosticLog log(writer);
  log.Write("off\n");
  EXPECT_EQ(Content(path), "no file");
  log.SetEnabled(true);
  log.Write("first\n");
  log.Print("%s %d", "second", 2);
  const std::string stamp = R"(\d\d\d\d/\d\d/\d\d \d\d:\d\d:\d\d\.\d\d\d )";
  EXPECT_THAT(Content(path), testing::MatchesRegex(stamp + "first\r\n" + stamp + "second 2"));
}

}  // namespace
}  // namespace quor
