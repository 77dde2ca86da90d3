#include "settings/configuration_document.h"
#include "settings/entry_text.h"
#include "text/format.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

namespace quor {
namespace {

// ---- Numbers ---------------------------------------------------------------------------------

constexpr std::wstring_view kBlanks = L" \t\n\v\f\r";

bool IsBlank(std::wstring_view text) {
  return text.find_first_not_of(kBlanks) == std::wstring_view::npos;
}

// The value that a number element without text gives its member.
enum class NoText { Zero, One, Unchanged, SystemLanguage };

// A number element and its member, for both directions.
template <typename Record>
struct NumberField {
  const wchar_t* element;
  int32_t Record::*member;
  NoText noText = NoText::Zero;
};

constexpr NumberField<ToolBarRecord> kToolBarFields[] = {
    {L"Width", &ToolBarRecord::width},       {L"Height", &ToolBarRecord::height},
    {L"Left", &ToolBarRecord::left},         {L"Top", &ToolBarRecord::top},
    {L"RowIndex", &ToolBarRecord::rowIndex}, {L"Pos", &ToolBarRecord::position},
    {L"Visible", &ToolBarRecord::visible},
};

constexpr NumberField<Configuration> kAliveCheckFields[] = {
    {L"ACheckInterval", &Configuration::aCheckInterval},
    {L"ConnectInterval", &Configuration::connectInterval},
    {L"DialClear", &Configuration::dialClear},
    {L"ConnectWait", &Configuration::connectWait},
    {L"DebugLog", &Configuration::debugLog},
    {L"DelayBtnEvent", &Configuration::delayBtnEvent},
};

constexpr NumberField<Configuration> kSystemFields[] = {
    {L"LanguageNo", &Configuration::languageNo, NoText::SystemLanguage},
    {L"CallerInfo", &Configuration::callerInfo, NoText::One},
    {L"PopUp", &Configuration::popUp, NoText::Unchanged},
};

// By line slot. Without text: 1.
constexpr const wchar_t* kPopUpElements[kPopUpSlots] = {
    L"LinePopUp1", L"LinePopUp2", L"CellPopUp1", L"CellPopUp2", L"CellPopUp3", L"CellPopUp4",
};

// ---- Texts of list entries -------------------------------------------------------------------

template <typename Entry>
struct TextField {
  const wchar_t* element;
  std::wstring Entry::*member;
};

constexpr TextField<CallEntry> kCallFields[] = {
    {L"Name", &CallEntry::name}, {L"FileAs", &CallEntry::fileAs}, {L"Number", &CallEntry::number}};

constexpr TextField<SpeedDialEntry> kSpeedDialFields[] = {{L"Name", &SpeedDialEntry::name},
                                                          {L"Number", &SpeedDialEntry::number}};

// ---- The document's names --------------------------------------------------------------------

constexpr const wchar_t* kRoot = L"Root";
constexpr const wchar_t* kHistories = L"Histories";
constexpr const wchar_t* kHistory = L"History";
constexpr const wchar_t* kToolBars = L"ToolBars";
constexpr const wchar_t* kMainToolBar = L"MainToolBar";
constexpr const wchar_t* kContactToolBar = L"ContactToolBar";
constexpr const wchar_t* kSystem = L"System";
constexpr const wchar_t* kAliveCheck = L"AliveCheck";
constexpr const wchar_t* kRecordCalls = L"RecordCalls";  // in the file only while it is on
constexpr const wchar_t* kCallerLists = L"CallerLists";
constexpr const wchar_t* kCallerList = L"CallerList";
constexpr const wchar_t* kSpeedDials = L"SpeedDials";
constexpr const wchar_t* kSpeedDial = L"SpeedDial";

// ---- Reading ---------------------------------------------------------------------------------

template <typename Entry>
Entry ReadEntry(const XmlElement& element, std::span<const TextField<Entry>> fields) {
  Entry entry;
  for (const XmlElement& child : element.children) {
    for (const TextField<Entry>& field : fields) {
      if (child.name == field.element) entry.*field.member = StorableText(child.text);
    }
  }
  return entry;
}

template <typename Entry>
void ReadList(const XmlElement& section, const wchar_t* entryName, size_t limit,
              std::span<const TextField<Entry>> fields, std::optional<std::vector<Entry>>& list) {
  if (!list) list.emplace();
  for (const XmlElement& child : section.children) {
    if (list->size() == limit) break;
    if (child.name == entryName) list->push_back(ReadEntry(child, fields));
  }
}

template <typename Entry>
void TakeOver(std::optional<std::vector<Entry>>& read, std::vector<Entry>& list) {
  if (read) list = std::move(*read);
}

void ReadToolBar(const XmlElement& element, ToolBarRecord& target) {
  ToolBarRecord record;
  for (const XmlElement& child : element.children) {
    for (const auto& field : kToolBarFields) {
      if (child.name != field.element) continue;
      record.*field.member = NumberFromText(child.text);
      record.read = 1;
    }
  }
  if (record.read != 0) target = record;
}

void ReadToolBars(const XmlElement& section, Configuration& configuration) {
  for (const XmlElement& child : section.children) {
    if (child.name == kMainToolBar) {
      ReadToolBar(child, configuration.mainToolBar);
    } else if (child.name == kContactToolBar) {
      ReadToolBar(child, configuration.contactToolBar);
    }
  }
}

class CSystemReader {
 public:
  CSystemReader(ISystemLanguage& systemLanguage, Configuration& configuration,
                DocumentFindings& findings)
      : m_systemLanguage(systemLanguage), m_configuration(configuration), m_findings(findings) {}

  void Read(const XmlElement& section) {
    m_configuration.recordCalls = 0;
    for (const XmlElement& child : section.children) {
      if (child.name == kAliveCheck) {
        for (const XmlElement& value : child.children)
          ReadField(value, kAliveCheckFields);
      } else {
        ReadField(child, kSystemFields);
        if (child.name == kRecordCalls) {
          ReadNumber(child, NoText::Zero, m_configuration.recordCalls);
        }
        ReadPopUpMode(child);
      }
    }
    CorrectValues();
  }

 private:
  void ReadField(const XmlElement& element, std::span<const NumberField<Configuration>> fields) {
    for (const auto& field : fields) {
      if (element.name == field.element) {
        ReadNumber(element, field.noText, m_configuration.*field.member);
      }
    }
  }

  void ReadPopUpMode(const XmlElement& element) {
    for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
      if (element.name == kPopUpElements[slot]) {
        ReadNumber(element, NoText::One, m_configuration.popUpModes[slot]);
      }
    }
  }

  void ReadNumber(const XmlElement& element, NoText rule, int32_t& member) {
    member = IsBlank(element.text) ? WithoutText(rule, member) : NumberFromText(element.text);
  }

  void CorrectValues() {
    if (m_configuration.languageNo >= kLanguageCount) {
      m_findings.illegalLanguage = m_configuration.languageNo;
      m_configuration.languageNo = kEnglish;
    }
    // 2 also means on.
    if (m_configuration.callerInfo == 2) m_configuration.callerInfo = 1;
  }

  int32_t WithoutText(NoText rule, int32_t current) {
    switch (rule) {
      case NoText::One:
        return 1;
      case NoText::Unchanged:
        return current;
      case NoText::SystemLanguage:
        return m_systemLanguage.LanguageNumber();
      case NoText::Zero:
        break;
    }
    return 0;
  }

  ISystemLanguage& m_systemLanguage;
  Configuration& m_configuration;
  DocumentFindings& m_findings;
};

// ---- Writing ---------------------------------------------------------------------------------

XmlElement NumberElement(const wchar_t* name, int32_t value) {
  return {name, DecimalText(value), {}};
}

template <typename Record>
void AppendNumbers(XmlElement& parent, std::span<const NumberField<Record>> fields,
                   const Record& record) {
  for (const auto& field : fields) {
    parent.children.push_back(NumberElement(field.element, record.*field.member));
  }
}

template <typename Entry>
XmlElement WriteList(const wchar_t* section, const wchar_t* entryName,
                     std::span<const TextField<Entry>> fields, const std::vector<Entry>& list) {
  XmlElement element{section, {}, {}};
  for (const Entry& entry : list) {
    XmlElement& child = element.children.emplace_back(XmlElement{entryName, {}, {}});
    for (const TextField<Entry>& field : fields) {
      child.children.push_back({field.element, StorableText(entry.*field.member), {}});
    }
  }
  return element;
}

XmlElement WriteToolBar(const wchar_t* name, const ToolBarRecord& record) {
  XmlElement element{name, {}, {}};
  AppendNumbers<ToolBarRecord>(element, kToolBarFields, record);
  return element;
}

XmlElement WriteSystem(const Configuration& configuration) {
  XmlElement aliveCheck{kAliveCheck, {}, {}};
  AppendNumbers<Configuration>(aliveCheck, kAliveCheckFields, configuration);
  XmlElement element{kSystem, {}, {std::move(aliveCheck)}};
  AppendNumbers<Configuration>(element, kSystemFields, configuration);
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    element.children.push_back(NumberElement(kPopUpElements[slot], configuration.popUpModes[slot]));
  }
  if (configuration.recordCalls != 0) {
    element.children.push_back(NumberElement(kRecordCalls, configuration.recordCalls));
  }
  return element;
}

}  // namespace

int32_t LanguageNumberFromId(uint16_t languageId) noexcept {
  switch (languageId & 0xFF) {
    case 12:
      return kFrench;
    case 10:
      return kSpanish;
    default:
      return kEnglish;
  }
}

DocumentFindings ReadConfiguration(const XmlElement& root, ISystemLanguage& systemLanguage,
                                   Configuration& configuration) {
  DocumentFindings findings;
  std::optional<std::vector<CallEntry>> histories;
  std::optional<std::vector<CallEntry>> callerLists;
  std::optional<std::vector<SpeedDialEntry>> speedDials;
  for (const XmlElement& section : root.children) {
    if (section.name == kHistories) {
      ReadList<CallEntry>(section, kHistory, kHistoryLimit, kCallFields, histories);
    } else if (section.name == kToolBars) {
      ReadToolBars(section, configuration);
    } else if (section.name == kSystem) {
      CSystemReader(systemLanguage, configuration, findings).Read(section);
    } else if (section.name == kCallerLists) {
      ReadList<CallEntry>(section, kCallerList, kCallerListLimit, kCallFields, callerLists);
    } else if (section.name == kSpeedDials) {
      ReadList<SpeedDialEntry>(section, kSpeedDial, kSpeedDialCount, kSpeedDialFields, speedDials);
    }
  }
  TakeOver(histories, configuration.histories);
  TakeOver(callerLists, configuration.callerLists);
  TakeOver(speedDials, configuration.speedDials);
  return findings;
}

XmlElement WriteConfiguration(const Configuration& configuration) {
  XmlElement toolBars{kToolBars, {}, {}};
  toolBars.children.push_back(WriteToolBar(kMainToolBar, configuration.mainToolBar));
  toolBars.children.push_back(WriteToolBar(kContactToolBar, configuration.contactToolBar));

  XmlElement root{kRoot, {}, {}};
  root.children.push_back(
      WriteList<CallEntry>(kHistories, kHistory, kCallFields, configuration.histories));
  root.children.push_back(std::move(toolBars));
  root.children.push_back(WriteSystem(configuration));
  root.children.push_back(
      WriteList<CallEntry>(kCallerLists, kCallerList, kCallFields, configuration.callerLists));
  root.children.push_back(WriteList<SpeedDialEntry>(kSpeedDials, kSpeedDial, kSpeedDialFields,
                                                    configuration.speedDials));
  return root;
}

int32_t NumberFromText(std::wstring_view text) noexcept {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const bool negative = text.starts_with(L'-');
  if (negative || text.starts_with(L'+')) text.remove_prefix(1);

  // Clamp one past the limit: enough to detect an overflow, and the sum stays small.
  constexpr int64_t kPastLimit = int64_t{std::numeric_limits<int32_t>::max()} + 1;
  int64_t value = 0;
  for (const wchar_t character : text) {
    if (character < L'0' || character > L'9') break;
    value = std::min(value * 10 + (character - L'0'), kPastLimit);
  }
  if (negative) return static_cast<int32_t>(-value);
  return static_cast<int32_t>(std::min(value, kPastLimit - 1));
}

}  // namespace quor
