#include "doctor/repair.h"

#include <windows.h>

#include <shlobj.h>

#include <vector>

#include "doctor/file_facts.h"
#include "doctor/gather.h"
#include "doctor/registry_key.h"

namespace quor::doctor {
namespace {

constexpr uint32_t kLoadAtEachStart = 3;
constexpr uint32_t kKeptAfterSlowStart = 1;
constexpr int kFirstWithKeptList = 15;

// A value to change.
struct Change {
  HKEY root = HKEY_CURRENT_USER;
  int bitness = 0;
  std::wstring path;
  std::wstring name;
  std::optional<uint32_t> number;  // new value; nothing: delete the value
};

std::wstring ListName(OutlookListEntry::List list) {
  return list == OutlookListEntry::List::Disabled ? L"DisabledItems" : L"CrashingAddinList";
}

void PlanLists(const Facts& facts, std::vector<Change>& changes) {
  for (const OutlookListEntry& entry : facts.listed) {
    if (entry.list == OutlookListEntry::List::Kept) continue;
    changes.push_back({HKEY_CURRENT_USER, 0, ResiliencyPath(entry.version, ListName(entry.list)),
                       Wide(entry.name), std::nullopt});
    const std::wstring kept = ResiliencyPath(entry.version, L"DoNotDisableAddinList");
    if (entry.version >= kFirstWithKeptList &&
        !CRegistryKey(HKEY_CURRENT_USER, kept, 0).Number(kProgId)) {
      changes.push_back({HKEY_CURRENT_USER, 0, kept, kProgId, kKeptAfterSlowStart});
    }
  }
}

// Outlook stores the user's choice in the user's key, which takes precedence over the machine's.
void PlanLoadBehavior(const Facts& facts, std::vector<Change>& changes) {
  for (const AddInKey& key : facts.addInKeys) {
    if (key.loadBehavior == kLoadAtEachStart) continue;
    const Change change{HKEY_CURRENT_USER, 0, AddInKeyPath(), L"LoadBehavior", kLoadAtEachStart};
    changes.push_back(change);
    return;
  }
}

const wchar_t* RootName(HKEY root) {
  return root == HKEY_CURRENT_USER ? L"HKEY_CURRENT_USER\\" : L"HKEY_LOCAL_MACHINE\\";
}

std::wstring Escaped(const std::wstring& name) {
  std::wstring escaped;
  for (const wchar_t c : name) {
    if (c == L'"' || c == L'\\') escaped += L'\\';
    escaped += c;
  }
  return escaped;
}

// A line of a .reg file that restores the value's present content.
std::wstring Line(const Change& change) {
  const CRegistryKey key(change.root, change.path, change.bitness);
  DWORD type = REG_NONE;
  const bool isThere = key.IsThere() && RegQueryValueExW(key.Get(), change.name.c_str(), nullptr,
                                                         &type, nullptr, nullptr) == ERROR_SUCCESS;
  std::wstring line = L"\"" + Escaped(change.name) + L"\"=";
  if (!isThere) return line + L"-";
  wchar_t text[16];
  wsprintfW(text, L"hex(%x):", type);
  line += text;
  const std::vector<uint8_t> bytes = key.Bytes(change.name);
  for (size_t i = 0; i < bytes.size(); ++i) {
    wsprintfW(text, i == 0 ? L"%02x" : L",%02x", bytes[i]);
    line += text;
  }
  return line;
}

// The part of a .reg file that restores the present state. It removes our own key if there is none
// yet, because an empty one would take precedence over everybody's.
std::wstring Section(const Change& change) {
  const std::wstring key = RootName(change.root) + change.path + L"]\r\n";
  const bool isNew = !CRegistryKey(change.root, change.path, change.bitness).IsThere();
  if (isNew && change.path == AddInKeyPath()) return L"[-" + key;
  return L"[" + key + Line(change) + L"\r\n";
}

std::wstring BackupPath() {
  wchar_t folder[MAX_PATH] = L"";
  SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
  SYSTEMTIME now;
  GetLocalTime(&now);
  wchar_t name[64];
  wsprintfW(name, L"\\telephone-before-%04d%02d%02d-%02d%02d%02d.reg", now.wYear, now.wMonth,
            now.wDay, now.wHour, now.wMinute, now.wSecond);
  return std::wstring(folder) + name;
}

bool WriteBackup(const std::wstring& path, const std::vector<Change>& changes) {
  std::wstring text = L"\xFEFFWindows Registry Editor Version 5.00\r\n";
  for (const Change& change : changes) {
    text += L"\r\n" + Section(change);
  }
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  const BOOL good = WriteFile(file, text.data(), size, &written, nullptr);
  CloseHandle(file);
  return good && written == size;
}

void Carry(const Change& change) {
  if (!change.number) {
    const CRegistryKey key(change.root, change.path, change.bitness, KEY_SET_VALUE);
    if (key.IsThere()) RegDeleteValueW(key.Get(), change.name.c_str());
    return;
  }
  HKEY key = nullptr;
  if (RegCreateKeyExW(change.root, change.path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key,
                      nullptr) != ERROR_SUCCESS) {
    return;
  }
  const DWORD number = *change.number;
  RegSetValueExW(key, change.name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                 sizeof number);
  RegCloseKey(key);
}

}  // namespace

std::optional<std::wstring> Repair(const Facts& facts) {
  std::vector<Change> changes;
  PlanLists(facts, changes);
  PlanLoadBehavior(facts, changes);
  const std::wstring backup = BackupPath();
  if (!WriteBackup(backup, changes)) return std::nullopt;
  for (const Change& change : changes) {
    Carry(change);
  }
  return backup;
}

}  // namespace quor::doctor
