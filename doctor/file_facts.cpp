#include "doctor/file_facts.h"

// clang-format off
#include <windows.h>
#include <msxml.h>
#include <oleauto.h>
// clang-format on

#include <shlobj.h>

#include <algorithm>

namespace quor::doctor {
namespace {

constexpr DWORD kMostBytes = 32 * 1024 * 1024;

std::wstring ApplicationData() {
  wchar_t folder[MAX_PATH] = L"";
  SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
  return folder;
}

// Names of the matching files, without their folder.
std::vector<std::wstring> FilesLike(const std::wstring& pattern) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    names.emplace_back(found.cFileName);
  } while (FindNextFileW(search, &found));
  FindClose(search);
  return names;
}

bool IsDenied(const std::wstring& path, DWORD access) {
  const HANDLE file =
      CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  // Another error means only that Outlook is saving the file.
  if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_ACCESS_DENIED;
  CloseHandle(file);
  return false;
}

// Whether the add-in can save: it writes a new file beside the old one and replaces that.
bool IsReplaceable(const std::wstring& folder, const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool isReadOnly =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  return !isReadOnly && !IsDenied(path, DELETE) && !IsDenied(folder, FILE_ADD_FILE);
}

// Reads the file with the add-in's parser.
void ReadSettings(const std::wstring& path, SettingsFile& settings) {
  IXMLDOMDocument* document = nullptr;
  CLSID classId;
  if (FAILED(CLSIDFromProgID(L"MSXML.DOMDocument", &classId)) ||
      FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                              reinterpret_cast<void**>(&document)))) {
    return;  // nothing is known about the file then
  }
  VARIANT source;
  VariantInit(&source);
  source.vt = VT_BSTR;
  source.bstrVal = SysAllocString(path.c_str());
  VARIANT_BOOL good = VARIANT_FALSE;
  document->put_async(VARIANT_FALSE);
  document->load(source, &good);
  VariantClear(&source);
  settings.readable = good != VARIANT_FALSE;
  IXMLDOMNodeList* nodes = nullptr;
  BSTR name = SysAllocString(L"DebugLog");
  if (settings.readable && SUCCEEDED(document->getElementsByTagName(name, &nodes)) &&
      nodes != nullptr) {
    IXMLDOMNode* node = nullptr;
    BSTR text = nullptr;
    if (nodes->get_item(0, &node) == S_OK && node != nullptr && node->get_text(&text) == S_OK) {
      settings.logIsOn = text != nullptr && _wtoi(text) != 0;
    }
    SysFreeString(text);
    if (node != nullptr) node->Release();
    nodes->Release();
  }
  SysFreeString(name);
  document->Release();
}

}  // namespace

std::string Utf8(const std::wstring& text) {
  const int size = static_cast<int>(text.size());
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

std::wstring Wide(const std::string& utf8) {
  const int size = static_cast<int>(utf8.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
  std::wstring text(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), length);
  return text;
}

std::wstring PathToOpen(const std::wstring& path, int bitness) {
  constexpr int kOwnBitness = static_cast<int>(sizeof(void*)) * 8;
  wchar_t windows[MAX_PATH] = L"";
  GetWindowsDirectoryW(windows, MAX_PATH);
  const std::wstring system = std::wstring(windows) + L"\\System32\\";
  const int size = static_cast<int>(system.size());
  if (bitness == kOwnBitness || path.size() < system.size() ||
      CompareStringOrdinal(path.c_str(), size, system.c_str(), size, TRUE) != CSTR_EQUAL) {
    return path;
  }
  return std::wstring(windows) + (bitness == 64 ? L"\\Sysnative\\" : L"\\SysWOW64\\") +
         path.substr(system.size());
}

bool FileExists(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<std::vector<uint8_t>> ReadFileBytes(const std::wstring& path, FilePart part) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  LARGE_INTEGER size = {};
  GetFileSizeEx(file, &size);
  std::vector<uint8_t> bytes(size.QuadPart < kMostBytes ? static_cast<size_t>(size.QuadPart)
                                                        : kMostBytes);
  const bool isCut = part == FilePart::LastLines && size.QuadPart > kMostBytes;
  if (isCut) {
    const LARGE_INTEGER start = {.QuadPart = size.QuadPart - kMostBytes};
    SetFilePointerEx(file, start, nullptr, FILE_BEGIN);
  }
  DWORD read = 0;
  const BOOL good = ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  CloseHandle(file);
  if (!good) return std::nullopt;
  bytes.resize(read);
  if (isCut) bytes.erase(bytes.begin(), std::ranges::find(bytes, uint8_t{'\n'}));
  return bytes;
}

std::string FileVersion(const std::wstring& path) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
  std::vector<uint8_t> data(size);
  VS_FIXEDFILEINFO* info = nullptr;
  UINT length = 0;
  if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, data.data()) ||
      !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &length)) {
    return {};
  }
  return std::to_string(HIWORD(info->dwFileVersionMS)) + "." +
         std::to_string(LOWORD(info->dwFileVersionMS)) + "." +
         std::to_string(HIWORD(info->dwFileVersionLS)) + "." +
         std::to_string(LOWORD(info->dwFileVersionLS));
}

SettingsFile GatherSettings() {
  SettingsFile settings;
  const std::wstring folder = ApplicationData() + L"\\Microsoft\\AddIns\\";
  const std::wstring path = folder + L"vex_cfg.xml";
  settings.path = Utf8(path);
  settings.exists = FileExists(path);
  if (settings.exists) {
    settings.writable = IsReplaceable(folder, path);
    ReadSettings(path, settings);
  }
  settings.asideCopies = static_cast<int>(FilesLike(folder + L"vex_cfg.bad*.xml").size());
  const std::wstring logs = ApplicationData() + L"\\Temp\\";
  std::wstring newest;
  for (const std::wstring& name : FilesLike(logs + L"catlog????????.txt")) {
    if (name > newest) newest = name;  // names contain the date
  }
  if (!newest.empty()) settings.newestLog = Utf8(logs + newest);
  return settings;
}

std::vector<SessionTimes> GatherSessions() {
  const std::string name = kSessionTimesFile;
  const auto bytes = ReadFileBytes(ApplicationData() + L"\\Microsoft\\AddIns\\" +
                                   std::wstring(name.begin(), name.end()));
  if (!bytes) return {};
  return ParseSessionTimes({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
}

}  // namespace quor::doctor
