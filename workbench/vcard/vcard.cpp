#include "workbench/vcard/vcard.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "workbench/vcard/card_lines.h"

namespace quor::workbench {
namespace {

constexpr size_t kMostErrors = 100;

std::string Trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

int HexDigit(char character) noexcept {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'a' && character <= 'f') return character - 'a' + 10;
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  for (size_t i = 0; i < text.size(); ++i) {
    const int high = i + 2 < text.size() && text[i] == '%' ? HexDigit(text[i + 1]) : -1;
    const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
    if (low < 0) {
      decoded += text[i];
      continue;
    }
    decoded += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return decoded;
}

// A "tel:+1-555-0100;ext=12;phone-context=..." URI as a person would write the number.
std::string NumberFromUri(std::string_view uri) {
  uri.remove_prefix(4);
  const size_t end = std::min(uri.find(';'), uri.size());
  std::string number = PercentDecoded(uri.substr(0, end));
  std::string_view parameters = uri.substr(end);
  while (!parameters.empty()) {
    parameters.remove_prefix(1);
    const std::string_view parameter = parameters.substr(0, parameters.find(';'));
    if (UpperAscii(parameter.substr(0, 4)) == "EXT=") {
      number += " x" + PercentDecoded(parameter.substr(4));
    }
    parameters.remove_prefix(parameter.size());
  }
  return number;
}

// The TYPE values of a TEL, and whether it is the preferred one.
class CTypes {
 public:
  explicit CTypes(const CardProperty& property) {
    for (const auto& [name, value] : property.parameters) {
      if (name == "TYPE") m_types.push_back(UpperAscii(value));
      if (name == "PREF" && value == "1") m_types.emplace_back("PREF");
    }
  }

  bool Has(std::string_view type) const {
    return std::find(m_types.begin(), m_types.end(), type) != m_types.end();
  }

 private:
  std::vector<std::string> m_types;
};

// The fields that may hold the number, the preferred one first.
std::vector<NumberKind> KindsFor(const CTypes& types) {
  struct NamedKind {
    const char* type;
    NumberKind kind;
  };
  static constexpr NamedKind kNamed[] = {
      {"X-ASSISTANT", NumberKind::Assistant},
      {"X-CALLBACK", NumberKind::Callback},
      {"X-COMPANY", NumberKind::CompanyMain},
      {"X-PRIMARY", NumberKind::Primary},
      {"X-RADIO", NumberKind::Radio},
      {"X-TELEX", NumberKind::Telex},
      {"X-TTY", NumberKind::TtyTdd},
      {"TEXTPHONE", NumberKind::TtyTdd},
      {"X-OTHER", NumberKind::Other},
      {"PAGER", NumberKind::Pager},
      {"CAR", NumberKind::Car},
      {"ISDN", NumberKind::Isdn},
  };
  if (types.Has("FAX")) {
    if (types.Has("WORK")) return {NumberKind::BusinessFax, NumberKind::OtherFax};
    if (types.Has("HOME")) return {NumberKind::HomeFax, NumberKind::OtherFax};
    return {NumberKind::OtherFax};
  }
  const auto* named = std::find_if(std::begin(kNamed), std::end(kNamed),
                                   [&types](const NamedKind& one) { return types.Has(one.type); });
  if (named != std::end(kNamed)) return {named->kind, NumberKind::Other};
  if (types.Has("CELL")) return {NumberKind::Mobile, NumberKind::Other};
  if (types.Has("WORK")) return {NumberKind::Business, NumberKind::Business2, NumberKind::Other};
  if (types.Has("HOME")) return {NumberKind::Home, NumberKind::Home2, NumberKind::Other};
  if (types.Has("PREF")) return {NumberKind::Primary, NumberKind::Other};
  return {NumberKind::Other, NumberKind::Primary};
}

std::string FileAsFor(const Card& card) {
  if (!card.fileAs.empty()) return card.fileAs;
  if (!card.group && !card.lastName.empty() && !card.firstName.empty()) {
    return card.lastName + ", " + card.firstName;
  }
  for (const std::string* name : {&card.lastName, &card.firstName, &card.company}) {
    if (!card.group && !name->empty()) return *name;
  }
  return card.fullName;
}

class CReader {
 public:
  explicit CReader(std::string_view text) : m_lines(text) {}

  CardFile Read() {
    std::string line;
    int number = 0;
    CardProperty property;
    while (m_lines.Next(line, number)) {
      property.line = number;
      ReadLine(line, property);
    }
    if (m_inCard) Error(m_card.line, "the card does not end");
    return std::move(m_file);
  }

 private:
  void Error(int line, std::string text) {
    if (m_file.errors.size() < kMostErrors) m_file.errors.push_back({line, std::move(text)});
  }

  void Spoil(int line, std::string text) {
    if (!m_spoilt) Error(line, std::move(text));
    m_spoilt = true;
  }

  void ReadLine(std::string_view line, CardProperty& property) {
    if (!ParseProperty(line, property)) {
      if (m_inCard) {
        Spoil(property.line, "no property");
      } else if (!m_strayNoted) {
        Error(property.line, "text outside a card");
        m_strayNoted = true;
      }
      return;
    }
    const bool ofCard = UpperAscii(Trimmed(property.value)) == "VCARD";
    if (property.name == "BEGIN" && ofCard) {
      Begin(property.line);
    } else if (!m_inCard) {
      if (!m_strayNoted) Error(property.line, "text outside a card");
      m_strayNoted = true;
    } else if (property.name == "END" && ofCard) {
      End(property.line);
    } else {
      ReadProperty(property);
    }
  }

  void Begin(int line) {
    if (m_inCard) Error(line, "a card begins within a card");
    m_card = Card();
    m_card.line = line;
    m_inCard = true;
    m_spoilt = false;
    m_versionSeen = false;
    m_strayNoted = false;
  }

  void End(int line) {
    m_inCard = false;
    if (!m_versionSeen) Spoil(line, "the card has no version");
    if (m_spoilt) return;
    if (m_card.fullName.empty() && !m_card.group) {
      m_card.fullName = Trimmed(m_card.firstName + ' ' + m_card.lastName);
    }
    m_card.fileAs = FileAsFor(m_card);
    m_file.cards.push_back(std::move(m_card));
  }

  void ReadProperty(const CardProperty& property) {
    const std::string& name = property.name;
    if (!IsUtf8(property.value)) return Spoil(property.line, name + " is not UTF-8");
    if (property.value.find('\0') != std::string::npos) {
      return Spoil(property.line, name + " contains a NUL");
    }
    if (name == "VERSION") return ReadVersion(property);
    if (name == "TEL") return ReadNumber(property);
    if (name == "N") return ReadName(property);
    if (name == "ORG") {
      m_card.company = StructuredText(property.value).front();
    } else if (name == "KIND" || name == "X-ADDRESSBOOKSERVER-KIND") {
      m_card.group = UpperAscii(Trimmed(property.value)) == "GROUP";
    } else if (name == "MEMBER" || name == "X-ADDRESSBOOKSERVER-MEMBER") {
      m_card.members.push_back(UnescapedText(property.value));
    } else if (std::string* text = TextNamed(name)) {
      *text = UnescapedText(property.value);
    }
  }

  std::string* TextNamed(std::string_view name) {
    if (name == "FN") return &m_card.fullName;
    if (name == "NOTE") return &m_card.note;
    if (name == "UID") return &m_card.uid;
    if (name == "X-FILE-AS") return &m_card.fileAs;
    return name == "X-FOLDER" ? &m_card.folder : nullptr;
  }

  void ReadVersion(const CardProperty& property) {
    m_versionSeen = true;
    const std::string version = Trimmed(property.value);
    if (version != "3.0" && version != "4.0") {
      Spoil(property.line, "version " + version + " is not 3.0 or 4.0");
    }
  }

  void ReadName(const CardProperty& property) {
    std::vector<std::string> parts = StructuredText(property.value);
    parts.resize(3);
    m_card.lastName = Trimmed(parts[0]);
    m_card.firstName = Trimmed(parts[1] + ' ' + parts[2]);
  }

  void ReadNumber(const CardProperty& property) {
    const std::string text = UnescapedText(property.value);
    const bool uri = UpperAscii(std::string_view(text).substr(0, 4)) == "TEL:";
    CardNumber number;
    number.number = Trimmed(uri ? NumberFromUri(text) : text);
    if (number.number.empty()) return;
    if (!IsUtf8(number.number) || number.number.find('\0') != std::string::npos) {
      return Error(property.line, "the number's escapes are not valid text");
    }
    for (const NumberKind kind : KindsFor(CTypes(property))) {
      if (HasNumber(kind)) continue;
      number.kind = kind;
      m_card.numbers.push_back(std::move(number));
      return;
    }
    Error(property.line, "no field is left for the number " + number.number);
  }

  bool HasNumber(NumberKind kind) const {
    return std::any_of(m_card.numbers.begin(), m_card.numbers.end(),
                       [kind](const CardNumber& one) { return one.kind == kind; });
  }

  CCardLines m_lines;
  CardFile m_file;
  Card m_card;
  bool m_inCard = false;
  bool m_spoilt = false;
  bool m_versionSeen = false;
  bool m_strayNoted = false;
};

}  // namespace

CardFile ReadCards(std::string_view text) {
  return CReader(text).Read();
}

}  // namespace quor::workbench
