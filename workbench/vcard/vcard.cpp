#include "workbench/vcard/vcard.h"

#include <algorithm>

namespace quor::workbench {
namespace {

std::string Upper(std::string_view text) {
  std::string upper(text);
  for (char& one : upper) {
    if (one >= 'a' && one <= 'z') one = static_cast<char>(one - 'a' + 'A');
  }
  return upper;
}

// The decoded parts of a value, which are separated by unescaped semicolons.
std::vector<std::string> Parts(std::string_view value) {
  std::vector<std::string> parts(1);
  for (size_t i = 0; i < value.size(); ++i) {
    if (value[i] == ';') {
      parts.emplace_back();
    } else if (value[i] == '\\' && i + 1 < value.size()) {
      parts.back() += value[++i] == 'n' ? '\n' : value[i];
    } else {
      parts.back() += value[i];
    }
  }
  return parts;
}

std::string Text(std::string_view value) {
  const std::vector<std::string> parts = Parts(value);
  std::string text = parts.front();
  for (size_t i = 1; i < parts.size(); ++i)
    text += ';' + parts[i];
  return text;
}

// The fields that may hold a number of these types, the preferred one first. `types` is the text
// between name and value in upper case: ";VALUE=uri;TYPE="work,fax"".
std::vector<const char*> PropertiesFor(const std::string& types) {
  const auto has = [&types](const char* type) { return types.find(type) != std::string::npos; };
  static constexpr char kOther[] = "OtherTelephoneNumber";
  if (has("FAX")) {
    static constexpr char kOtherFax[] = "OtherFaxNumber";
    return {has("WORK")   ? "BusinessFaxNumber"
            : has("HOME") ? "HomeFaxNumber"
                          : kOtherFax,
            kOtherFax};
  }
  constexpr std::pair<const char*, const char*> kNamed[] = {
      {"X-ASSISTANT", "AssistantTelephoneNumber"},
      {"X-CALLBACK", "CallbackTelephoneNumber"},
      {"X-COMPANY", "CompanyMainTelephoneNumber"},
      {"X-PRIMARY", "PrimaryTelephoneNumber"},
      {"X-RADIO", "RadioTelephoneNumber"},
      {"X-TELEX", "TelexNumber"},
      {"X-TTY", "TTYTDDTelephoneNumber"},
      {"X-OTHER", kOther},
      {"PAGER", "PagerNumber"},
      {"CAR", "CarTelephoneNumber"},
      {"ISDN", "ISDNNumber"},
      {"CELL", "MobileTelephoneNumber"}};
  for (const auto& [type, property] : kNamed) {
    if (has(type)) return {property, kOther};
  }
  if (has("WORK")) return {"BusinessTelephoneNumber", "Business2TelephoneNumber", kOther};
  if (has("HOME")) return {"HomeTelephoneNumber", "Home2TelephoneNumber", kOther};
  return {kOther, "PrimaryTelephoneNumber"};
}

class CReader {
 public:
  explicit CReader(std::string_view text) : m_rest(text) {}

  std::vector<Card> Read() {
    bool inCard = false;
    for (std::string line; NextLine(line);) {
      const size_t colon = line.find(':');
      if (colon == std::string::npos) Fail("no property");
      const std::string head = Upper(line.substr(0, colon));
      const std::string value = line.substr(colon + 1);
      if (head == "BEGIN") {
        if (inCard) Fail("a card begins within a card");
        m_card = {};
      } else if (!inCard) {
        Fail("text outside a card");
      } else if (head == "END") {
        EndCard();
      } else {
        ReadProperty(head, value);
      }
      inCard = head != "END";
    }
    if (inCard) Fail("the card does not end");
    return std::move(m_cards);
  }

 private:
  [[noreturn]] void Fail(const std::string& text) const { throw CCardError(m_line, text); }

  // Continuation lines begin with a blank; empty lines are skipped.
  bool NextLine(std::string& line) {
    line.clear();
    while (!m_rest.empty() && (line.empty() || m_rest.front() == ' ')) {
      const size_t end = std::min(m_rest.find('\n'), m_rest.size() - 1);
      std::string_view piece = m_rest.substr(0, end + 1);
      m_rest.remove_prefix(end + 1);
      ++m_line;
      while (piece.ends_with('\n') || piece.ends_with('\r'))
        piece.remove_suffix(1);
      line += line.empty() ? piece : piece.substr(1);
    }
    return !line.empty();
  }

  void ReadProperty(const std::string& head, const std::string& value) {
    const std::string name = head.substr(0, head.find(';'));
    if (name == "TEL") {
      ReadNumber(head.substr(name.size()), Text(value));
    } else if (name == "N") {
      std::vector<std::string> parts = Parts(value);
      parts.resize(2);
      m_card.lastName = parts[0];
      m_card.firstName = parts[1];
    } else if (name == "KIND") {
      m_card.group = Upper(value) == "GROUP";
    } else {
      constexpr std::pair<const char*, std::string Card::*> kTexts[] = {
          {"FN", &Card::fullName},      {"NOTE", &Card::note},       {"ORG", &Card::company},
          {"X-FILE-AS", &Card::fileAs}, {"X-FOLDER", &Card::folder},
      };
      for (const auto& [known, text] : kTexts) {
        if (name == known) m_card.*text = Text(value);
      }
    }
  }

  void ReadNumber(const std::string& types, const std::string& value) {
    const std::string number = value.starts_with("tel:") ? value.substr(4) : value;
    for (const char* property : PropertiesFor(types)) {
      const bool taken =
          std::any_of(m_card.numbers.begin(), m_card.numbers.end(),
                      [=](const CardNumber& one) { return one.property == property; });
      if (taken) continue;
      m_card.numbers.push_back({property, number});
      return;
    }
    Fail("no field is left for the number " + number);
  }

  void EndCard() {
    if (m_card.fileAs.empty() && !m_card.group) {
      const bool both = !m_card.lastName.empty() && !m_card.firstName.empty();
      m_card.fileAs = m_card.lastName + (both ? ", " : "") + m_card.firstName;
      if (m_card.fileAs.empty()) m_card.fileAs = m_card.company;
    }
    if (m_card.fileAs.empty()) m_card.fileAs = m_card.fullName;
    m_cards.push_back(std::move(m_card));
  }

  std::string_view m_rest;
  int m_line = 0;
  Card m_card;
  std::vector<Card> m_cards;
};

}  // namespace

std::vector<Card> ReadCards(std::string_view text) {
  return CReader(text).Read();
}

}  // namespace quor::workbench
