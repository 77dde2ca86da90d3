#include "workbench/host/application_data.h"

// clang-format off
#include <windows.h>
#include <shlobj.h>
// clang-format on

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "workbench/office/value.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr wchar_t kFoldersKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr wchar_t kValueName[] = L"AppData";

// Holds the user's own folder while a run uses another. A killed run leaves it behind. An empty
// value means that there was none.
constexpr wchar_t kKeptKey[] = L"Software\\Quor\\Workbench";
constexpr wchar_t kRunning[] = L"quor-workbench-application-data";

std::optional<std::wstring> ReadFolder(const wchar_t* key) {
  wchar_t value[MAX_PATH] = {};
  DWORD size = sizeof(value);
  const LSTATUS status =
      RegGetValueW(HKEY_CURRENT_USER, key, kValueName,
                   RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, nullptr, value, &size);
  if (status != ERROR_SUCCESS) return std::nullopt;
  return std::wstring(value);
}

void WriteFolder(const wchar_t* key, const std::wstring& value) {
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  RegSetKeyValueW(HKEY_CURRENT_USER, key, kValueName, REG_EXPAND_SZ, value.c_str(), bytes);
}

// An empty folder removes the setting.
void Restore(const std::wstring& folder) {
  if (folder.empty()) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kFoldersKey, kValueName);
  } else {
    WriteFolder(kFoldersKey, folder);
  }
}

void MakeFolders(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (error) throw CScenarioError("folder cannot be created: " + Utf8FromWide(path.native()));
}

void RemoveTree(const std::wstring& folder) {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

std::wstring FreshFolder() {
  wchar_t temporary[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, temporary);
  return std::wstring(temporary) + L"quor-workbench-" + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::wstring& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  std::string content;
  char buffer[4096];
  DWORD count = 0;
  while (::ReadFile(file, buffer, sizeof(buffer), &count, nullptr) && count) {
    content.append(buffer, count);
  }
  CloseHandle(file);
  return content;
}

std::string ReadNamedFile(const std::string& path) {
  const std::optional<std::string> text = ReadWholeFile(WideFromUtf8(path));
  if (!text) throw CScenarioError("no such file: " + path);
  return *text;
}

CApplicationData::CApplicationData(const std::wstring& path, Content content)
    : m_folder(path.empty() ? FreshFolder() : path),
      m_temporary(path.empty()),
      m_running(CreateMutexW(nullptr, FALSE, kRunning)),
      m_isFirst(GetLastError() != ERROR_ALREADY_EXISTS) {
  if (const auto kept = ReadFolder(kKeptKey); kept && m_isFirst) Restore(*kept);
  m_before = ReadFolder(kFoldersKey).value_or(L"");
  if (m_isFirst) WriteFolder(kKeptKey, m_before);
  if (content == Content::Deleted) RemoveTree(m_folder);
  MakeFolders(m_folder);
  Redirect(m_folder);
}

CApplicationData::~CApplicationData() {
  Restore(m_before);
  if (m_isFirst) RegDeleteKeyW(HKEY_CURRENT_USER, kKeptKey);
  if (m_running != nullptr) CloseHandle(m_running);
  if (m_temporary) RemoveTree(m_folder);
}

void CApplicationData::Redirect(const std::wstring& folder) {
  WriteFolder(kFoldersKey, folder);
}

std::wstring CApplicationData::FullPath(const std::string& path) const {
  return m_folder + L"\\" + WideFromUtf8(path);
}

void CApplicationData::Write(const std::string& path, const std::string& content) {
  const std::wstring full = FullPath(path);
  MakeFolders(std::filesystem::path(full).parent_path());
  std::ofstream file(std::filesystem::path(full), std::ios::binary);
  if (!file.write(content.data(), static_cast<std::streamsize>(content.size()))) {
    throw CScenarioError("file cannot be written: " + path);
  }
}

std::optional<std::string> CApplicationData::Read(const std::string& path) const {
  return ReadWholeFile(FullPath(path));
}

std::vector<std::string> CApplicationData::List() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder)) {
    if (entry.is_directory()) continue;
    names.push_back(Utf8FromWide(entry.path().lexically_relative(m_folder).native()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quor::workbench
