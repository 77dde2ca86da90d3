#include "workbench/ribbon/xml_reader.h"

#include <algorithm>
#include <cstdint>

namespace quor::workbench {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr int kDeepest = 256;  // nested elements

using Scope = std::vector<std::pair<std::string, std::string>>;  // prefix and URI, innermost last

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsNameStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsNameChar(char c) {
  return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool IsXmlCharacter(uint32_t code) {
  return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
         (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

void AppendUtf8(std::string& text, uint32_t code) {
  const auto tail = [&text](uint32_t bits) { text += static_cast<char>(0x80 | (bits & 0x3F)); };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    tail(code);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | (code >> 12));
    tail(code >> 6);
    tail(code);
  } else {
    text += static_cast<char>(0xF0 | (code >> 18));
    tail(code >> 12);
    tail(code >> 6);
    tail(code);
  }
}

class CXmlReader {
 public:
  explicit CXmlReader(std::string_view text) : m_text(text) {
    if (m_text.starts_with(kByteOrderMark)) m_at = kByteOrderMark.size();
  }

  XmlElement Document() {
    if (Ahead("<?xml")) SkipPast("?>");
    SkipBetween();
    Expect("<");
    XmlElement root = Element(0);
    SkipBetween();
    if (m_at != m_text.size()) Fail("there is something behind the root element");
    return root;
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const { throw CDocumentError(m_line, what); }

  char Peek() const {
    if (m_at == m_text.size()) Fail("the document ends too early");
    return m_text[m_at];
  }

  char Next() {
    const char c = Peek();
    ++m_at;
    if (c == '\n') ++m_line;
    if (static_cast<unsigned char>(c) < 0x20 && !IsBlank(c)) Fail("a control character");
    return c;
  }

  bool Ahead(std::string_view what) const { return m_text.substr(m_at).starts_with(what); }

  bool Take(std::string_view what) {
    if (!Ahead(what)) return false;
    for (size_t i = 0; i < what.size(); ++i)
      Next();
    return true;
  }

  void Expect(std::string_view what) {
    Peek();
    if (!Take(what)) Fail("expected " + std::string(what));
  }

  void SkipPast(std::string_view end) {
    while (!Take(end))
      Next();
  }

  bool SkipBlanks() {
    const size_t before = m_at;
    while (m_at < m_text.size() && IsBlank(m_text[m_at]))
      Next();
    return m_at != before;
  }

  bool SkipComment() {
    if (!Take("<!--")) return false;
    SkipPast("--");
    Expect(">");
    return true;
  }

  // Skips blanks, comments and processing instructions.
  void SkipBetween() {
    for (;;) {
      SkipBlanks();
      if (SkipComment()) continue;
      if (Ahead("<?xml")) Fail("an XML declaration that is not at the beginning");
      if (Take("<?")) {
        SkipPast("?>");
        continue;
      }
      if (Ahead("<!DOCTYPE")) Fail("a document type definition is not allowed");
      if (Ahead("<!")) Fail("text is not allowed here");
      return;
    }
  }

  std::string Name() {
    if (!IsNameStart(Peek())) Fail("expected a name");
    std::string name;
    while (m_at < m_text.size() && IsNameChar(m_text[m_at]))
      name += Next();
    return name;
  }

  void Reference(std::string& value) {
    std::string name;
    while (!Take(";")) {
      name += Next();
      if (name.size() > 10) Fail("an unfinished reference");
    }
    if (name.starts_with('#')) {
      AppendUtf8(value, CharacterNumber(name));
      return;
    }
    constexpr std::pair<std::string_view, char> kKnown[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, character] : kKnown) {
      if (name == known) {
        value += character;
        return;
      }
    }
    Fail("unknown entity &" + name + ";");
  }

  uint32_t CharacterNumber(const std::string& name) const {
    const bool hexadecimal = name.size() > 1 && name[1] == 'x';
    const std::string digits = name.substr(hexadecimal ? 2 : 1);
    const char* allowed = hexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
    if (digits.empty() || digits.find_first_not_of(allowed) != std::string::npos) {
      Fail("bad reference &" + name + ";");
    }
    const unsigned long long code = std::stoull(digits, nullptr, hexadecimal ? 16 : 10);
    if (code > 0x10FFFF || !IsXmlCharacter(static_cast<uint32_t>(code))) {
      Fail("a reference to a character XML does not have");
    }
    return static_cast<uint32_t>(code);
  }

  std::string AttributeValue() {
    const char quote = Next();
    if (quote != '"' && quote != '\'') Fail("an attribute value without quotes");
    std::string value;
    for (;;) {
      const char c = Next();
      if (c == quote) return value;
      if (c == '<') Fail("< in an attribute value");
      if (c == '&') {
        Reference(value);
      } else {
        value += IsBlank(c) ? ' ' : c;
      }
    }
  }

  void Attributes(XmlElement& element, Scope& scope) {
    std::vector<std::string> seen;
    while (SkipBlanks() && Peek() != '>' && Peek() != '/') {
      const std::string name = Name();
      if (std::find(seen.begin(), seen.end(), name) != seen.end()) {
        Fail("attribute " + name + " is there twice");
      }
      seen.push_back(name);
      SkipBlanks();
      Expect("=");
      SkipBlanks();
      std::string value = AttributeValue();
      if (name == "xmlns") {
        scope.emplace_back("", std::move(value));
      } else if (name.starts_with("xmlns:")) {
        scope.emplace_back(name.substr(6), std::move(value));
      } else {
        element.attributes.emplace_back(name, std::move(value));
      }
    }
  }

  void ResolveName(XmlElement& element, const std::string& name) const {
    const size_t colon = name.find(':');
    const std::string prefix = colon == std::string::npos ? "" : name.substr(0, colon);
    element.name = colon == std::string::npos ? name : name.substr(colon + 1);
    const auto found = std::find_if(m_scope.rbegin(), m_scope.rend(),
                                    [&](const auto& one) { return one.first == prefix; });
    if (found != m_scope.rend()) {
      element.space = found->second;
    } else if (!prefix.empty()) {
      Fail("the prefix " + prefix + " is not declared");
    }
  }

  // Starts after the "<".
  XmlElement Element(int depth) {
    if (depth > kDeepest) Fail("elements are nested too deep");
    XmlElement element;
    element.line = m_line;
    const std::string name = Name();
    const size_t outer = m_scope.size();
    Attributes(element, m_scope);
    ResolveName(element, name);
    if (!Take("/>")) {
      Expect(">");
      Children(element, name, depth);
    }
    m_scope.resize(outer);
    return element;
  }

  void Children(XmlElement& element, const std::string& name, int depth) {
    for (;;) {
      SkipBetween();
      if (Take("</")) break;
      Peek();
      if (!Take("<")) Fail("text in " + element.name);
      element.children.push_back(Element(depth + 1));
    }
    if (Name() != name) Fail("the end tag does not fit " + name);
    SkipBlanks();
    Expect(">");
  }

  std::string_view m_text;
  size_t m_at = 0;
  int m_line = 1;
  Scope m_scope;
};

}  // namespace

XmlElement ReadXml(std::string_view text) {
  return CXmlReader(text).Document();
}

}  // namespace quor::workbench
