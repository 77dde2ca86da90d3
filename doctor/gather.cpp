#include "doctor/gather.h"

// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <shlobj.h>

#include <algorithm>
#include <cwctype>

#include "device/usbxpress.h"
#include "doctor/file_facts.h"
#include "doctor/pe_image.h"
#include "doctor/registry_key.h"
#include "doctor/running_outlook.h"
#include "doctor/usb_bases.h"

namespace quor::doctor {
namespace {

constexpr wchar_t kClassKey[] = L"Software\\Classes\\CLSID\\{DA593EC2-67C4-4602-B30E-3FEC47C1C55A}";
constexpr wchar_t kLibraryName[] = L"\\SiUSBXp.dll";

std::wstring OfficePath(int version) {
  return L"Software\\Microsoft\\Office\\" + std::to_wstring(version) + L".0\\Outlook";
}

std::wstring PolicyPath(int version) {
  return L"Software\\Policies\\Microsoft\\Office\\" + std::to_wstring(version) + L".0\\Outlook";
}

std::string WindowsVersion() {
  constexpr int kFirstBuildOf11 = 22000;
  const CRegistryKey key(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Windows NT\\CurrentVersion",
                         RegistryViews().front());
  std::wstring name = key.Text(L"ProductName").value_or(L"Windows");
  const std::wstring build = key.Text(L"CurrentBuild").value_or(L"?");
  // Windows 11 still calls itself 10 here.
  const size_t ten = name.find(L"Windows 10");
  if (ten != std::wstring::npos && _wtoi(build.c_str()) >= kFirstBuildOf11) {
    name.replace(ten, 10, L"Windows 11");
  }
  return Utf8(name + L", " + build);
}

int BitnessOf(const std::wstring& path) {
  const auto bytes = ReadFileBytes(path);
  const auto image = bytes ? ReadPeImage(*bytes) : std::nullopt;
  return image ? image->bitness : 0;
}

void AddOutlook(std::vector<OutlookInstall>& outlooks, int version, const std::wstring& path) {
  if (!FileExists(path)) return;
  // The registry names one Outlook in several places, not always in the same case.
  const bool known = std::ranges::any_of(outlooks, [&](const OutlookInstall& other) {
    return CompareStringOrdinal(Wide(other.path).c_str(), -1, path.c_str(), -1, TRUE) == CSTR_EQUAL;
  });
  if (!known) outlooks.push_back({version, BitnessOf(path), Utf8(path), FileVersion(path)});
}

// Searches where Office enters its folder, then among the programs that Windows starts by their
// names, in case an installation has no other entry.
std::vector<OutlookInstall> GatherOutlooks() {
  std::vector<OutlookInstall> outlooks;
  for (const int version : kOutlookVersions) {
    for (const int view : RegistryViews()) {
      const CRegistryKey key(HKEY_LOCAL_MACHINE, OfficePath(version) + L"\\InstallRoot", view);
      std::wstring path = key.Text(L"Path").value_or(L"");
      if (path.empty()) continue;
      if (path.back() != L'\\') path += L'\\';
      AddOutlook(outlooks, version, path + L"OUTLOOK.EXE");
    }
  }
  for (const int view : RegistryViews()) {
    const CRegistryKey key(HKEY_LOCAL_MACHINE,
                           L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\OUTLOOK.EXE",
                           view);
    std::wstring path = key.Text(L"").value_or(L"");
    std::erase(path, L'"');
    AddOutlook(outlooks, std::atoi(FileVersion(path).c_str()), path);
  }
  return outlooks;
}

bool AnyKeyStartsWith(HKEY root, const std::wstring& path, const std::wstring& start) {
  const CRegistryKey key(root, path, 0);
  return std::ranges::any_of(key.SubKeyNames(),
                             [&](const std::wstring& name) { return name.starts_with(start); });
}

void GatherAppOutlooks(Facts& facts) {
  const std::wstring packages =
      L"Software\\Classes\\Local Settings\\Software\\Microsoft\\Windows\\CurrentVersion\\AppModel"
      L"\\Repository\\Packages";
  facts.newOutlookInstalled =
      AnyKeyStartsWith(HKEY_CURRENT_USER, packages, L"Microsoft.OutlookForWindows_");
  facts.storeOutlook =
      AnyKeyStartsWith(HKEY_CURRENT_USER, packages, L"Microsoft.Office.Desktop.Outlook_");
  const CRegistryKey preferences(HKEY_CURRENT_USER, OfficePath(16) + L"\\Preferences", 0);
  facts.newOutlookChosen = preferences.Number(L"UseNewOutlook").value_or(0) == 1;
}

void GatherRegistration(Facts& facts) {
  for (const Scope scope : {Scope::User, Scope::Machine}) {
    const HKEY root = scope == Scope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    for (const int view : RegistryViews()) {
      const CRegistryKey server(root, std::wstring(kClassKey) + L"\\InprocServer32", view);
      if (const auto path = server.Text(L"")) {
        const std::wstring file = PathToOpen(*path, view);
        facts.classes.push_back(
            {scope, view, Utf8(*path), FileExists(file), BitnessOf(file), FileVersion(file)});
      }
      // The user's add-in key is shared by both bitnesses.
      if (scope == Scope::User && view != RegistryViews().front()) continue;
      const CRegistryKey addIn(root, AddInKeyPath(), view);
      if (addIn.IsThere()) {
        facts.addInKeys.push_back(
            {scope, scope == Scope::User ? 0 : view, addIn.Number(L"LoadBehavior")});
      }
    }
  }
}

void GatherLists(Facts& facts) {
  using List = OutlookListEntry::List;
  for (const int version : kOutlookVersions) {
    for (const auto& [list, name] : {std::pair(List::Disabled, L"DisabledItems"),
                                     std::pair(List::Crashing, L"CrashingAddinList")}) {
      const CRegistryKey key(HKEY_CURRENT_USER, ResiliencyPath(version, name), 0);
      for (const std::wstring& value : key.ValueNames()) {
        if (MeansAddIn(value, key.Bytes(value))) {
          facts.listed.push_back({list, version, Utf8(value), key.Number(value).value_or(0)});
        }
      }
    }
    const CRegistryKey kept(HKEY_CURRENT_USER, ResiliencyPath(version, L"DoNotDisableAddinList"),
                            0);
    if (const auto reason = kept.Number(kProgId)) {
      facts.listed.push_back({List::Kept, version, Utf8(kProgId), *reason});
    }
  }
}

void GatherPolicies(Facts& facts) {
  for (const int version : kOutlookVersions) {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
      Policy policy;
      policy.version = version;
      const CRegistryKey resiliency(root, PolicyPath(version) + L"\\Resiliency", 0);
      const CRegistryKey list(root, PolicyPath(version) + L"\\Resiliency\\AddinList", 0);
      const CRegistryKey security(root, PolicyPath(version) + L"\\Security", 0);
      policy.addIn = Utf8(list.Text(kProgId).value_or(L""));
      policy.onlyListed = resiliency.Number(L"RestrictToList").value_or(0) != 0;
      policy.signedOnly = security.Number(L"RequireAddinSig").value_or(0) != 0;
      policy.allAddInsDisabled = security.Number(L"DisableAllAddins").value_or(0) != 0;
      if (resiliency.IsThere() || security.IsThere()) facts.policies.push_back(policy);
    }
  }
}

// The system folder of programs of that bitness.
std::wstring SystemFolder(int bitness) {
  wchar_t folder[MAX_PATH] = L"";
  GetWindowsDirectoryW(folder, MAX_PATH);
  const bool isOnWindows64 = bitness == 32 && RegistryViews().size() > 1;
  return std::wstring(folder) + (isOnWindows64 ? L"\\SysWOW64" : L"\\System32");
}

// Searches where the add-in of that bitness does: its own folder, then the system folder.
void GatherLibrary(Facts& facts, int bitness) {
  UsbLibrary library;
  library.bitness = bitness;
  std::vector<std::wstring> folders;
  for (const ClassRegistration& registration : facts.classes) {
    if (registration.bitness != bitness) continue;
    const std::wstring path = Wide(registration.path);
    folders.push_back(path.substr(0, path.find_last_of(L'\\')));
    break;  // the user's takes precedence
  }
  folders.push_back(SystemFolder(bitness));
  for (const std::wstring& folder : folders) {
    const std::wstring path = folder + kLibraryName;
    const auto bytes = ReadFileBytes(PathToOpen(path, bitness));
    if (!bytes) continue;
    library.path = Utf8(path);
    if (const auto image = ReadPeImage(*bytes)) {
      library.fileBitness = image->bitness;
      for (const uint16_t ordinal : kUsbXpressOrdinals) {
        if (!image->Exports(ordinal)) library.missingOrdinals.push_back(ordinal);
      }
    }
    break;
  }
  facts.libraries.push_back(std::move(library));
}

void GatherBases(Facts& facts) {
  constexpr int kOwnBitness = static_cast<int>(sizeof(void*)) * 8;
  for (const UsbLibrary& library : facts.libraries) {
    const bool loads = library.bitness == kOwnBitness && library.fileBitness == kOwnBitness;
    if (loads && library.missingOrdinals.empty()) facts.bases = LookAtBases(Wide(library.path));
  }
}

}  // namespace

std::wstring AddInKeyPath() {
  return std::wstring(L"Software\\Microsoft\\Office\\Outlook\\Addins\\") + kProgId;
}

std::wstring ResiliencyPath(int version, const std::wstring& list) {
  return OfficePath(version) + L"\\Resiliency\\" + list;
}

bool MeansAddIn(const std::wstring& valueName, const std::vector<uint8_t>& data) {
  // The lists contain paths and names in UTF-16 among other data, in lower or original case.
  std::wstring text = valueName + L'\n';
  for (const size_t start : {0, 1}) {
    for (size_t i = start; i + 1 < data.size(); i += 2) {
      text += static_cast<wchar_t>(data[i] | data[i + 1] << 8);
    }
  }
  std::ranges::transform(text, text.begin(), [](wchar_t c) { return std::towlower(c); });
  return text.find(L"quortelephonetoolbar") != std::wstring::npos;
}

Facts Gather() {
  Facts facts;
  facts.windows = WindowsVersion();
  facts.windowsBitness = RegistryViews().front();
  facts.outlooks = GatherOutlooks();
  GatherAppOutlooks(facts);
  GatherRegistration(facts);
  GatherLists(facts);
  GatherPolicies(facts);
  for (const int bitness : RegistryViews()) {
    GatherLibrary(facts, bitness);
  }
  GatherBases(facts);
  facts.settings = GatherSettings();
  facts.sessions = GatherSessions();
  facts.running = LookAtRunningOutlook();
  return facts;
}

}  // namespace quor::doctor
