#include "doctor/report.h"

#include <array>
#include <cstdio>

namespace quor::doctor {
namespace {

using Words = std::array<const char*, 3>;

constexpr Words kWell = {"No problem found.", "Aucun problème trouvé.",
                         "Ningún problema encontrado."};
constexpr Words kLookedAt = {"What was looked at", "Ce qui a été examiné", "Lo que se ha mirado"};
constexpr Words kColon = {":", " :", ":"};
constexpr Words kBits = {"-bit", " bits", " bits"};
constexpr Words kYes = {"yes", "oui", "sí"};
constexpr Words kNo = {"no", "non", "no"};
constexpr Words kOn = {"on", "activé", "activado"};
constexpr Words kOff = {"off", "désactivé", "desactivado"};
constexpr Words kNone = {"not there", "absent", "no está"};
constexpr Words kUser = {"this user", "cet utilisateur", "este usuario"};
constexpr Words kEverybody = {"everybody", "tous", "todos"};
constexpr Words kPlugIn = {"Plug-in", "Complément", "Complemento"};
constexpr Words kSettings = {"Settings", "Paramètres", "Ajustes"};
constexpr Words kLog = {"Diagnostic log", "Journal de diagnostic", "Registro de diagnóstico"};
constexpr Words kBase = {"Base", "Base", "Base"};
constexpr Words kFree = {"free", "libre", "libre"};
constexpr Words kInUse = {"in use", "utilisée", "en uso"};
constexpr Words kWaited = {"Outlook waited for the plug-in: start, folder change, shutdown, in ms",
                           "Attente d'Outlook : démarrage, changement de dossier, fermeture, en ms",
                           "Espera de Outlook: inicio, cambio de carpeta, cierre, en ms"};
constexpr Words kLimits = {"limits", "limites", "límites"};
constexpr Words kRuns = {"Outlook is running", "Outlook est ouvert", "Outlook está abierto"};
constexpr Words kLoaded = {"plug-in loaded", "complément chargé", "complemento cargado"};

class CTextReport {
 public:
  explicit CTextReport(Language language) : m_language(static_cast<size_t>(language)) {}

  const char* Word(const Words& words) const { return words[m_language]; }
  const char* YesNo(bool yes) const { return Word(yes ? kYes : kNo); }
  const char* ForWhom(Scope scope) const { return Word(scope == Scope::User ? kUser : kEverybody); }

  std::string Bits(int bitness) const {
    return (bitness == 0 ? "?" : std::to_string(bitness)) + Word(kBits);
  }

  void Line(const std::string& line) { m_text += line + "\n"; }
  // A line of what was looked at.
  void Fact(const std::string& what, const std::string& value) {
    Line("  " + what + Word(kColon) + " " + value);
  }
  std::string Take() { return std::move(m_text); }

 private:
  size_t m_language;
  std::string m_text;
};

void AddFindings(CTextReport& report, const std::vector<Finding>& findings, Language language) {
  if (findings.empty()) report.Line(report.Word(kWell));
  for (const Finding& finding : findings) {
    const Sentences sentences = InWords(finding, language);
    report.Line((IsNote(finding.kind) ? "(i) " : "(!) ") + sentences.what);
    report.Line("    " + sentences.cure);
  }
}

std::string Milliseconds(const std::optional<uint32_t>& time) {
  return time ? std::to_string(*time) : "-";
}

void AddBases(CTextReport& report, const Facts& facts) {
  if (!facts.bases) return;
  const char* base = report.Word(kBase);
  if (facts.bases->empty()) report.Fact(base, report.Word(kNone));
  for (const UsbBase& each : *facts.bases) {
    report.Fact(base, each.description + ", " + report.Word(each.isFree ? kFree : kInUse));
  }
}

void AddSessions(CTextReport& report, const Facts& facts) {
  if (facts.sessions.empty()) return;
  report.Line(std::string("  ") + report.Word(kWaited) + " (" + report.Word(kLimits) + " " +
              std::to_string(kStartLimit) + ", " + std::to_string(kFolderSwitchLimit) + ", " +
              std::to_string(kShutdownLimit) + ")" + report.Word(kColon));
  for (const SessionTimes& session : facts.sessions) {
    report.Fact("  " + session.began, Milliseconds(session.start) + ", " +
                                          Milliseconds(session.folderSwitch) + ", " +
                                          Milliseconds(session.shutdown));
  }
}

void AddRegistration(CTextReport& report, const Facts& facts, Language language) {
  for (const ClassRegistration& registration : facts.classes) {
    report.Fact(std::string(report.Word(kPlugIn)) + ", " + report.Bits(registration.bitness) +
                    ", " + report.ForWhom(registration.scope),
                registration.path + " " + registration.fileVersion);
  }
  for (const AddInKey& key : facts.addInKeys) {
    report.Fact(std::string("LoadBehavior, ") + report.ForWhom(key.scope),
                key.loadBehavior ? std::to_string(*key.loadBehavior) + " (" +
                                       LoadBehaviorInWords(*key.loadBehavior, language) + ")"
                                 : report.Word(kNone));
  }
}

void AddFacts(CTextReport& report, const Facts& facts, Language language) {
  report.Line("");
  report.Line(std::string(report.Word(kLookedAt)) + report.Word(kColon));
  report.Line("  " + facts.windows + ", " + report.Bits(facts.windowsBitness));
  for (const OutlookInstall& outlook : facts.outlooks) {
    report.Line("  Outlook " + std::to_string(outlook.version) + ".0, " +
                report.Bits(outlook.bitness) + ", " +
                (outlook.fileVersion.empty() ? "" : outlook.fileVersion + ", ") + outlook.path);
  }
  AddRegistration(report, facts, language);
  for (const UsbLibrary& library : facts.libraries) {
    report.Fact("SiUSBXp.dll, " + report.Bits(library.bitness),
                library.path.empty() ? report.Word(kNone) : library.path);
  }
  AddBases(report, facts);
  report.Fact(
      report.Word(kSettings),
      facts.settings.path + (facts.settings.exists ? "" : std::string(", ") + report.Word(kNone)));
  report.Fact(report.Word(kLog),
              report.Word(facts.settings.logIsOn ? kOn : kOff) +
                  (facts.settings.newestLog.empty() ? "" : ", " + facts.settings.newestLog));
  report.Fact(report.Word(kRuns), report.YesNo(facts.running.runs));
  if (facts.running.answers) {
    report.Fact(report.Word(kLoaded), report.YesNo(facts.running.connected.value_or(false)));
  }
  AddSessions(report, facts);
}

// Builds a JSON document; the caller ensures the order of keys and values.
class CJson {
 public:
  void Open(char bracket) {
    Separate();
    m_text += bracket;
    m_first = true;
  }
  void Close(char bracket) {
    m_text += bracket;
    m_first = false;
  }
  void Key(const char* key) {
    Text(key);
    m_text += ':';
    m_first = true;
  }
  void Text(const std::string& text) {
    Separate();
    m_text += '"';
    for (const char c : text) {
      Character(c);
    }
    m_text += '"';
  }
  void Raw(const std::string& value) {
    Separate();
    m_text += value;
  }
  void Flag(bool value) { Raw(value ? "true" : "false"); }

  void TextAt(const char* key, const std::string& text) {
    Key(key);
    Text(text);
  }
  void NumberAt(const char* key, int64_t number) {
    Key(key);
    Raw(std::to_string(number));
  }
  void FlagAt(const char* key, bool value) {
    Key(key);
    Flag(value);
  }

  std::string Take() { return std::move(m_text); }

 private:
  void Separate() {
    if (!m_first) m_text += ',';
    m_first = false;
  }
  void Character(char c) {
    if (c == '"' || c == '\\') {
      m_text += '\\';
      m_text += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      m_text += escape;
    } else {
      m_text += c;
    }
  }

  std::string m_text;
  bool m_first = true;
};

const char* ScopeName(Scope scope) {
  return scope == Scope::User ? "user" : "machine";
}

// Adds an array with one object per item; `addItem` adds the object's keys.
template <typename Item, typename AddItem>
void AddArray(CJson& json, const char* key, const std::vector<Item>& items, AddItem addItem) {
  json.Key(key);
  json.Open('[');
  for (const Item& item : items) {
    json.Open('{');
    addItem(item);
    json.Close('}');
  }
  json.Close(']');
}

void AddFindings(CJson& json, const std::vector<Finding>& findings, Language language) {
  AddArray(json, "findings", findings, [&](const Finding& finding) {
    const Sentences sentences = InWords(finding, language);
    json.TextAt("name", Name(finding.kind));
    json.TextAt("what", sentences.what);
    json.TextAt("cure", sentences.cure);
    json.FlagAt("note", IsNote(finding.kind));
    json.FlagAt("repairable", IsRepairable(finding.kind));
  });
}

void AddOutlooks(CJson& json, const Facts& facts) {
  AddArray(json, "outlooks", facts.outlooks, [&](const OutlookInstall& outlook) {
    json.NumberAt("version", outlook.version);
    json.NumberAt("bitness", outlook.bitness);
    json.TextAt("path", outlook.path);
    json.TextAt("fileVersion", outlook.fileVersion);
  });
}

void AddRegistration(CJson& json, const Facts& facts) {
  AddArray(json, "classes", facts.classes, [&](const ClassRegistration& registration) {
    json.TextAt("scope", ScopeName(registration.scope));
    json.NumberAt("bitness", registration.bitness);
    json.TextAt("path", registration.path);
    json.FlagAt("exists", registration.fileExists);
    json.NumberAt("fileBitness", registration.fileBitness);
    json.TextAt("version", registration.fileVersion);
  });
  AddArray(json, "addInKeys", facts.addInKeys, [&](const AddInKey& key) {
    json.TextAt("scope", ScopeName(key.scope));
    json.NumberAt("bitness", key.bitness);
    json.NumberAt("loadBehavior", key.loadBehavior ? int64_t{*key.loadBehavior} : -1);
  });
}

void AddLibraries(CJson& json, const Facts& facts) {
  AddArray(json, "libraries", facts.libraries, [&](const UsbLibrary& library) {
    json.NumberAt("bitness", library.bitness);
    json.TextAt("path", library.path);
    json.NumberAt("fileBitness", library.fileBitness);
    json.NumberAt("missingOrdinals", static_cast<int64_t>(library.missingOrdinals.size()));
  });
}

void AddBases(CJson& json, const Facts& facts) {
  if (!facts.bases) return;
  AddArray(json, "bases", *facts.bases, [&](const UsbBase& base) {
    json.TextAt("description", base.description);
    json.FlagAt("free", base.isFree);
  });
}

void AddSessions(CJson& json, const Facts& facts) {
  AddArray(json, "sessions", facts.sessions, [&](const SessionTimes& session) {
    json.TextAt("began", session.began);
    if (session.start) json.NumberAt("start", *session.start);
    if (session.folderSwitch) json.NumberAt("folderSwitch", *session.folderSwitch);
    if (session.shutdown) json.NumberAt("shutdown", *session.shutdown);
  });
}

}  // namespace

std::string TextReport(const Facts& facts, const std::vector<Finding>& findings,
                       Language language) {
  CTextReport report(language);
  AddFindings(report, findings, language);
  AddFacts(report, facts, language);
  return report.Take();
}

std::string JsonReport(const Facts& facts, const std::vector<Finding>& findings,
                       Language language) {
  CJson json;
  json.Open('{');
  AddFindings(json, findings, language);
  json.TextAt("windows", facts.windows);
  json.NumberAt("windowsBitness", facts.windowsBitness);
  AddOutlooks(json, facts);
  AddRegistration(json, facts);
  AddLibraries(json, facts);
  json.TextAt("settings", facts.settings.path);
  json.FlagAt("logIsOn", facts.settings.logIsOn);
  AddBases(json, facts);
  AddSessions(json, facts);
  json.FlagAt("outlookRuns", facts.running.runs);
  if (facts.running.answers) {
    json.FlagAt("connected", facts.running.connected.value_or(false));
  }
  json.Close('}');
  return json.Take() + "\n";
}

}  // namespace quor::doctor
