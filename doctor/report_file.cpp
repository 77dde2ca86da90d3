#include "doctor/report_file.h"

#include <windows.h>

#include <lmcons.h>
#include <shlobj.h>

#include "doctor/file_facts.h"
#include "doctor/masking.h"
#include "doctor/report.h"

namespace quor::doctor {
namespace {

std::string Utf8FromAnsi(const std::string& text) {
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), length);
  return Utf8(wide);
}

std::string UserName() {
  wchar_t name[UNLEN + 1] = L"";
  DWORD size = UNLEN + 1;
  return GetUserNameW(name, &size) ? Utf8(name) : std::string();
}

// The user's name, and the folder of the profile, which may be named differently.
std::string WithoutUser(const std::string& text) {
  wchar_t profile[MAX_PATH] = L"";
  SHGetFolderPathW(nullptr, CSIDL_PROFILE, nullptr, SHGFP_TYPE_CURRENT, profile);
  const std::string folder = Utf8(profile);
  return CMasking::Paths(CMasking::Paths(text, UserName()),
                         std::string_view(folder).substr(folder.find_last_of('\\') + 1));
}

// The end of a long log; empty if there is none.
std::string MaskedLog(const std::wstring& path) {
  const std::optional<std::vector<uint8_t>> bytes = ReadFileBytes(path, FilePart::LastLines);
  if (!bytes) return {};
  const std::string_view log(reinterpret_cast<const char*>(bytes->data()), bytes->size());
  CMasking masking;
  std::string masked;
  for (size_t start = 0; start < log.size();) {
    const size_t end = log.find('\n', start);
    const size_t next = end == std::string_view::npos ? log.size() : end + 1;
    masked += masking.Line(log.substr(start, next - start));
    start = next;
  }
  return Utf8FromAnsi(masked);
}

}  // namespace

bool WriteReportFile(const std::wstring& path, const Facts& facts,
                     const std::vector<Finding>& findings) {
  std::string text;
  for (const char c : WithoutUser(TextReport(facts, findings, Language::English))) {
    if (c == '\n') text += '\r';
    text += c;
  }
  text += "\r\n" + MaskedLog(Wide(facts.settings.newestLog));
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const auto size = static_cast<DWORD>(text.size());
  const BOOL good = WriteFile(file, text.data(), size, &written, nullptr);
  CloseHandle(file);
  return good && written == size;
}

}  // namespace quor::doctor
