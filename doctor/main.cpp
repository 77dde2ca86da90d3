// doctor.exe's command line; without arguments it shows its window.
#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "device/usbxpress.h"
#include "doctor/console.h"
#include "doctor/doctor_window.h"
#include "doctor/file_facts.h"
#include "doctor/gather.h"
#include "doctor/pe_image.h"
#include "doctor/repair.h"
#include "doctor/report.h"
#include "doctor/report_file.h"

namespace quor::doctor {
namespace {

constexpr int kWell = 0;
constexpr int kFindings = 1;
constexpr int kCouldNotLook = 2;

constexpr char kUsage[] =
    "doctor                 shows why the telephone is not in Outlook, and repairs it\n"
    "doctor --text          prints the findings as text\n"
    "doctor --json          prints them as JSON\n"
    "doctor --fix           repairs what can be repaired; asks first, --yes agrees\n"
    "doctor --report FILE   writes them with the newest diagnostic log, without numbers and names\n"
    "  --language en|fr|es  the language; that of Windows unless given\n"
    "Exit code: 0 nothing found, 1 something found, 2 could not look.\n";

enum class Wish { Window, Text, Json, Fix, Report, Library, Usage };

struct CommandLine {
  Wish wish = Wish::Window;
  Language language = Language::English;
  bool agreed = false;
  std::wstring file;  // for Report and Library
};

Language SystemLanguage() {
  switch (PRIMARYLANGID(GetUserDefaultUILanguage())) {
    case LANG_FRENCH:
      return Language::French;
    case LANG_SPANISH:
      return Language::Spanish;
    default:
      return Language::English;
  }
}

// False for unknown arguments.
bool Read(const std::vector<std::wstring>& words, CommandLine& line) {
  line.language = SystemLanguage();
  for (size_t i = 0; i < words.size(); ++i) {
    const std::wstring& word = words[i];
    const bool hasNext = i + 1 < words.size();
    if (word == L"--text") {
      line.wish = Wish::Text;
    } else if (word == L"--json") {
      line.wish = Wish::Json;
    } else if (word == L"--fix") {
      line.wish = Wish::Fix;
    } else if (word == L"--yes") {
      line.agreed = true;
    } else if (word == L"--help") {
      line.wish = Wish::Usage;
    } else if (word == L"--report" && hasNext) {
      line.wish = Wish::Report;
      line.file = words[++i];
    } else if (word == L"--library" && hasNext) {
      line.wish = Wish::Library;
      line.file = words[++i];
    } else if (word == L"--language" && hasNext) {
      const std::wstring& language = words[++i];
      if (language != L"en" && language != L"fr" && language != L"es") return false;
      line.language = language == L"fr"   ? Language::French
                      : language == L"es" ? Language::Spanish
                                          : Language::English;
    } else {
      return false;
    }
  }
  return true;
}

// For the set-up program: returns 32 or 64 for a USB library of that bitness that exports
// everything the add-in calls.
int CheckLibrary(const std::wstring& path) {
  const std::optional<std::vector<uint8_t>> file = ReadFileBytes(path);
  if (!file) return kCouldNotLook;
  const std::optional<PeImage> image = ReadPeImage(*file);
  if (!image) return kFindings;
  const bool complete = std::ranges::all_of(
      kUsbXpressOrdinals, [&](uint16_t ordinal) { return image->Exports(ordinal); });
  return complete && image->bitness != 0 ? image->bitness : kFindings;
}

int Code(const std::vector<Finding>& findings) {
  const bool well =
      std::ranges::all_of(findings, [](const Finding& finding) { return IsNote(finding.kind); });
  return well ? kWell : kFindings;
}

bool UserAgrees(const CConsole& console, Language language) {
  const char yes = YesKey(language);
  console.Print(Utf8(RepairQuestion(language)) + " [" + yes + "/N] ");
  const std::optional<char> answer = console.Read();
  if (!answer) return AskToRepair(nullptr, language);
  console.Print("\n");
  return std::tolower(static_cast<unsigned char>(*answer)) == yes;
}

int RepairOnConsole(const CConsole& console, const CommandLine& line, const Facts& facts,
                    const std::vector<Finding>& findings) {
  console.Print(TextReport(facts, findings, line.language));
  const bool repairable = std::ranges::any_of(
      findings, [](const Finding& finding) { return IsRepairable(finding.kind); });
  if (!repairable) return Code(findings);
  if (!line.agreed && !UserAgrees(console, line.language)) return kFindings;
  const std::optional<std::wstring> backup = Repair(facts);
  if (!backup) return kCouldNotLook;
  console.Print("-> " + Utf8(*backup) + "\n\n");
  const Facts now = Gather();
  const std::vector<Finding> left = Examine(now);
  console.Print(TextReport(now, left, line.language));
  return Code(left);
}

int Run(const std::vector<std::wstring>& words) {
  CommandLine line;
  if (!Read(words, line)) {
    CConsole().Print(kUsage);
    return kCouldNotLook;
  }
  if (line.wish == Wish::Library) return CheckLibrary(line.file);
  if (line.wish == Wish::Usage) {
    CConsole().Print(kUsage);
    return kWell;
  }
  if (line.wish == Wish::Window) return ShowDoctorWindow(line.language);
  const Facts facts = Gather();
  const std::vector<Finding> findings = Examine(facts);
  if (line.wish == Wish::Report) {
    return WriteReportFile(line.file, facts, findings) ? Code(findings) : kCouldNotLook;
  }
  if (line.wish == Wish::Fix) return RepairOnConsole(CConsole(), line, facts, findings);
  CConsole().Print(line.wish == Wish::Json ? JsonReport(facts, findings, line.language)
                                           : TextReport(facts, findings, line.language));
  return Code(findings);
}

}  // namespace
}  // namespace quor::doctor

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  int count = 0;
  PWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr || FAILED(CoInitialize(nullptr))) return 2;
  int code = 2;
  try {
    code = quor::doctor::Run({words + 1, words + count});
  } catch (const std::exception&) {
    // Out of memory.
  }
  CoUninitialize();
  LocalFree(words);
  return code;
}
