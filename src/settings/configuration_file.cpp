#include "settings/configuration_file.h"

#include <algorithm>
#include <span>
#include <vector>

#include "com/com_boundary.h"
#include "settings/entry_text.h"
#include "text/format.h"

namespace quor {
namespace {

// A typical configuration has 20 KB. The limit also admits one whose texts all have the greatest
// length and consist of characters that take five bytes each ("&amp;").
constexpr LONGLONG kLargestFile = 16 * 1024 * 1024;
constexpr size_t kMostTexts = (kHistoryLimit + kCallerListLimit) * 3 + kSpeedDialCount * 2;
static_assert(kMostTexts * kEntryTextLimit * 5 < kLargestFile / 2);

[[noreturn]] void ThrowWin32Error(DWORD error) {
  throw _com_error(error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error));
}

void Check(BOOL succeeded) {
  if (!succeeded) ThrowWin32Error(GetLastError());
}

// Closes the file at the end of the scope.
class CFileHandle {
 public:
  explicit CFileHandle(HANDLE file) noexcept : m_file(file) {}
  ~CFileHandle() {
    if (IsOpen()) CloseHandle(m_file);
  }
  CFileHandle(const CFileHandle&) = delete;
  CFileHandle& operator=(const CFileHandle&) = delete;

  bool IsOpen() const noexcept { return m_file != INVALID_HANDLE_VALUE; }
  HANDLE Get() const noexcept { return m_file; }

 private:
  HANDLE m_file;
};

bool IsMissing(DWORD error) noexcept {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

HANDLE OpenForReading(const std::string& path) noexcept {
  return CreateFileA(path.c_str(), GENERIC_READ,
                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::optional<std::vector<std::byte>> ReadWhole(HANDLE file) {
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file, &size) || size.QuadPart > kLargestFile) return std::nullopt;
  std::vector<std::byte> bytes(static_cast<size_t>(size.QuadPart));
  DWORD read = 0;
  if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ||
      read != bytes.size()) {
    return std::nullopt;
  }
  return bytes;
}

// Writes the new content to a file beside the target and flushes it. Deletes that file at the end
// of the scope unless it has replaced the target.
class CNewFile {
 public:
  CNewFile(const std::string& target, std::span<const std::byte> bytes)
      : m_target(target), m_path(target + ".new") {
    try {
      Write(bytes);
    } catch (...) {
      DeleteFileA(m_path.c_str());
      throw;
    }
  }
  ~CNewFile() {
    if (!m_replaced) DeleteFileA(m_path.c_str());
  }
  CNewFile(const CNewFile&) = delete;
  CNewFile& operator=(const CNewFile&) = delete;

  void ReplaceTarget() {
    Check(MoveFileExA(m_path.c_str(), m_target.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
    m_replaced = true;
  }

 private:
  void Write(std::span<const std::byte> bytes) const {
    const CFileHandle file(CreateFileA(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    Check(file.IsOpen());
    DWORD written = 0;
    Check(WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
    if (written != bytes.size()) ThrowWin32Error(ERROR_DISK_FULL);
    Check(FlushFileBuffers(file.Get()));
  }

  std::string m_target;
  std::string m_path;
  bool m_replaced = false;
};

// "vex_cfg.bad.xml", "vex_cfg.bad2.xml" and so on.
std::string SetAsideName(const std::string& path, unsigned number) {
  const size_t dot = std::min(path.rfind('.'), path.size());
  const std::string count = number == 1 ? std::string() : Format("%u", number);
  return path.substr(0, dot) + ".bad" + count + path.substr(dot);
}

// Renames the file to the first unused SetAsideName, and back at the end of the scope unless Keep
// is called.
class CSetAside {
 public:
  explicit CSetAside(const std::string& path) : m_path(path) {
    for (unsigned number = 1;; ++number) {
      m_keptAs = SetAsideName(path, number);
      if (MoveFileExA(path.c_str(), m_keptAs.c_str(), MOVEFILE_WRITE_THROUGH)) return;
      const DWORD error = GetLastError();
      if (IsMissing(error)) {
        m_keptAs.clear();
        return;
      }
      if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) ThrowWin32Error(error);
    }
  }
  ~CSetAside() {
    if (!m_keptAs.empty()) MoveFileExA(m_keptAs.c_str(), m_path.c_str(), MOVEFILE_WRITE_THROUGH);
  }
  CSetAside(const CSetAside&) = delete;
  CSetAside& operator=(const CSetAside&) = delete;

  void Keep() noexcept { m_keptAs.clear(); }

 private:
  std::string m_path;
  std::string m_keptAs;  // empty: nothing to undo
};

}  // namespace

CConfigurationFile::Content CConfigurationFile::ReadContent(const std::string& path) {
  const CFileHandle file(OpenForReading(path));
  if (!file.IsOpen()) return {!IsMissing(GetLastError()), std::nullopt};
  return {true, ReadWhole(file.Get())};
}

std::optional<XmlElement> CConfigurationFile::Parse(Content content) {
  m_seen = std::move(content.bytes);
  std::optional<XmlElement> root;
  if (m_seen) root = ParseXmlDocument(*m_seen);
  m_unreadable = content.isThere && !root;
  return root;
}

std::optional<XmlElement> CConfigurationFile::Load(const std::string& path) {
  return Parse(ReadContent(path));
}

std::optional<XmlElement> CConfigurationFile::LoadIfChanged(const std::string& path) {
  Content content = ReadContent(path);
  if (!content.isThere || content.bytes == m_seen) return std::nullopt;
  return Parse(std::move(content));
}

bool CConfigurationFile::Save(const std::string& path, const XmlElement& root) noexcept {
  return GuardCall(m_log, "Save Data", [&] {
    std::vector<std::byte> bytes = m_writer.Format(root);
    if (ReadContent(path).bytes != bytes) Replace(path, bytes);
    m_seen = std::move(bytes);
  });
}

void CConfigurationFile::Replace(const std::string& path, std::span<const std::byte> bytes) {
  CNewFile newFile(path, bytes);
  if (!m_unreadable) {
    newFile.ReplaceTarget();
    return;
  }
  CSetAside old(path);
  newFile.ReplaceTarget();
  old.Keep();
  m_unreadable = false;
}

}  // namespace quor
