#include "workbench/host/application_data.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace quor::workbench {
namespace {

constexpr wchar_t kFolders[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

std::wstring AppData() {
  wchar_t value[MAX_PATH] = L"";
  DWORD size = sizeof value;
  RegGetValueW(HKEY_CURRENT_USER, kFolders, L"AppData",
               RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, nullptr, value, &size);
  return value;
}

TEST(ApplicationData, AKilledRunIsUndoneByTheNext) {
  const std::wstring before = AppData();
  const auto killed = [] {
    const CApplicationData data(L"");
    TerminateProcess(GetCurrentProcess(), 7);
  };
  EXPECT_EXIT(killed(), testing::ExitedWithCode(7), "");
  EXPECT_NE(AppData(), before);
  { const CApplicationData next(L""); }
  EXPECT_EQ(AppData(), before);
  // The saved folder is then dropped: a later change by the user stays.
  { const CApplicationData later(L""); }
  EXPECT_EQ(AppData(), before);
}

TEST(ApplicationData, ARunningWorkbenchKeepsItsFolder) {
  const std::wstring before = AppData();
  {
    const CApplicationData first(L"");
    const std::wstring redirected = AppData();
    { const CApplicationData second(L"C:\\quor-second"); }
    EXPECT_EQ(AppData(), redirected);
  }
  EXPECT_EQ(AppData(), before);
}

}  // namespace
}  // namespace quor::workbench
