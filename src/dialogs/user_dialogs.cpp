#include "dialogs/user_dialogs.h"

#include <mmsystem.h>
#include <shellapi.h>
#include <shlwapi.h>

#include "dialogs/outlook_window.h"
#include "module/application_data_folder.h"
#include "module/log_file.h"
#include "module/revision.h"
#include "module/version.h"
#include "settings/entry_text.h"
#include "text/ansi.h"
#include "text/format.h"

namespace quor {
namespace {

// Converts a tick count (milliseconds) to local date and time.
std::wstring TimeAtTick(uint32_t tick) {
  constexpr ULONGLONG kUnitsPerMillisecond = 10000;
  SYSTEMTIME now;
  FILETIME file;
  GetLocalTime(&now);
  if (!SystemTimeToFileTime(&now, &file)) return {};
  ULARGE_INTEGER time;
  time.LowPart = file.dwLowDateTime;
  time.HighPart = file.dwHighDateTime;
  time.QuadPart -= (timeGetTime() - tick) * kUnitsPerMillisecond;
  file = {time.LowPart, time.HighPart};
  SYSTEMTIME then;
  if (!FileTimeToSystemTime(&file, &then)) return {};
  return WideFromAnsi(Format("%04d-%02d-%02d %02d:%02d", then.wYear, then.wMonth, then.wDay,
                             then.wHour, then.wMinute));
}

}  // namespace

CUserDialogs::CUserDialogs(const DialogHost& host, CSettings& settings,
                           ITelephoneControls& controls, IMessagePopup& messages, CTelCtrl& telCtrl,
                           const CDeviceLink& link, const IAboutSource& about) noexcept
    : m_settings(settings),
      m_controls(controls),
      m_telCtrl(telCtrl),
      m_link(link),
      m_aboutSource(about),
      m_regist(host, *this, messages),
      m_erase(host, *this),
      m_options(host, *this),
      m_about(host, *this) {}

void CUserDialogs::Destroy() noexcept {
  m_regist.Destroy();
  m_erase.Destroy();
  m_options.Destroy();
  m_about.Destroy();
}

void CUserDialogs::EditSpeedDial(size_t index, const SpeedDialEntry& entry,
                                 const SpeedDialEntry& offered) {
  m_regist.Open(FindOutlookWindow(), index, entry, offered);
}

void CUserDialogs::EraseSpeedDial(size_t index, const SpeedDialEntry& entry) {
  m_erase.Open(FindOutlookWindow(), index, entry);
}

void CUserDialogs::OpenOptions() {
  m_options.Open(FindOutlookWindow());
}

OptionValues CUserDialogs::Load() {
  const Configuration& values = m_settings.Values();
  return {values.languageNo, values.popUpModes, values.recordCalls != 0};
}

// If the file cannot be read, the values stay unchanged.
OptionValues CUserDialogs::Reload() {
  m_settings.Load();
  return Load();
}

void CUserDialogs::Apply(const OptionValues& values) {
  m_settings.Values().languageNo = values.languageNo;
  m_settings.Values().popUpModes = values.popUpModes;
  m_settings.Values().recordCalls = values.recordCalls ? 1 : 0;
  m_settings.Save();
}

void CUserDialogs::ShowAbout(HWND owner) {
  AboutFacts facts;
  facts.version = WideFromAnsi(QUOR_VERSION_TEXT);
  facts.build = WideFromAnsi(BuildRevision());
  facts.baseIsConnected = m_link.IsOpen();
  facts.link = m_link.Health();
  if (facts.baseIsConnected) facts.connectedSince = TimeAtTick(facts.link.connectedSince);
  facts.configurationPath = WideFromAnsi(m_settings.Path());
  facts.configurationIsUnsaved = m_settings.HasUnsavedValues();
  facts.profileIsOutsideCodePage = IsApplicationDataOutsideCodePage();
  m_aboutSource.Describe(facts);
  facts.logPath = WideFromAnsi(CLogFile::TodaysPath());
  facts.logIsOn = m_telCtrl.LogFlag();
  m_about.Open(owner, facts);
}

// Entries keep their positions, by which the user knows them. Empty entries at the end are dropped.
void CUserDialogs::SetEntry(size_t index, const SpeedDialEntry& entry) {
  if (index >= kSpeedDialCount) return;
  std::vector<SpeedDialEntry>& entries = m_settings.Values().speedDials;
  if (entries.size() <= index) entries.resize(index + 1);
  entries[index] = StorableEntry(entry);
  KeepSpeedDial();
}

void CUserDialogs::EraseEntry(size_t index) {
  std::vector<SpeedDialEntry>& entries = m_settings.Values().speedDials;
  if (index >= entries.size()) return;
  entries[index] = {};
  while (!entries.empty() && entries.back() == SpeedDialEntry()) {
    entries.pop_back();
  }
  KeepSpeedDial();
}

void CUserDialogs::KeepSpeedDial() {
  m_settings.Save();
  m_controls.PutSpeedDialButton();
}

void CUserDialogs::SwitchLog(bool on) {
  m_telCtrl.SetLogFlag(on);
  m_settings.Values().debugLog = on ? 1 : 0;
  m_settings.Save();
}

void CUserDialogs::OpenLogFolder() {
  // The first log line creates the folder; before that, use its parent.
  std::string folder = CLogFile::TodaysPath();
  do {
    const size_t end = folder.find_last_of('\\');
    if (end == std::string::npos) return;
    folder.resize(end);
  } while (!PathFileExistsA(folder.c_str()));
  ShellExecuteA(nullptr, "open", folder.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace quor
