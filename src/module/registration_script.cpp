#include "module/registration_script.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quor {
namespace {

constexpr size_t kLongestScript = 65536;
constexpr size_t kLongestName = 255;  // the registry's limit
constexpr size_t kDeepestKey = 16;
constexpr std::string_view kModule = "%MODULE%";

enum class TokenKind { End, Error, OpenBrace, CloseBrace, Equals, Word, Text };

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;  // a word, or the text between apostrophes

  bool IsWord(std::string_view word) const { return kind == TokenKind::Word && text == word; }
  bool IsKeyword() const { return IsWord("val") || IsWord("NoRemove") || IsWord("ForceRemove"); }
  bool IsName() const {
    return (kind == TokenKind::Word && !IsKeyword()) || kind == TokenKind::Text;
  }
};

bool IsPrintable(char character) {
  return character > ' ' && character <= '~';
}

class CScanner {
 public:
  explicit CScanner(std::string_view text) : m_rest(text) {}

  Token Next() {
    SkipBlanksAndComments();
    if (m_rest.empty()) return {};
    const char first = m_rest.front();
    if (first == '\'') return QuotedText();
    if (IsPrintable(first) && kMarks.find(first) == std::string_view::npos) return Word();
    m_rest.remove_prefix(1);
    switch (first) {
      case '{':
        return {TokenKind::OpenBrace, {}};
      case '}':
        return {TokenKind::CloseBrace, {}};
      case '=':
        return {TokenKind::Equals, {}};
      default:
        return {TokenKind::Error, {}};
    }
  }

 private:
  static constexpr std::string_view kMarks = "{}=';";

  void SkipBlanksAndComments() {
    for (;;) {
      m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t\r\n"), m_rest.size()));
      if (!m_rest.starts_with(';')) return;
      m_rest.remove_prefix(std::min(m_rest.find('\n'), m_rest.size()));
    }
  }

  Token Word() {
    Token token{TokenKind::Word, {}};
    while (!m_rest.empty() && IsPrintable(m_rest.front()) &&
           kMarks.find(m_rest.front()) == std::string_view::npos) {
      token.text.push_back(m_rest.front());
      m_rest.remove_prefix(1);
    }
    return token;
  }

  Token QuotedText() {
    Token token{TokenKind::Text, {}};
    for (;;) {
      m_rest.remove_prefix(1);
      if (m_rest.starts_with("''")) {
        m_rest.remove_prefix(1);
      } else if (m_rest.starts_with('\'')) {
        m_rest.remove_prefix(1);
        return token;
      }
      if (m_rest.empty() || (!IsPrintable(m_rest.front()) && m_rest.front() != ' ')) {
        return {TokenKind::Error, {}};
      }
      token.text.push_back(m_rest.front());
    }
  }

  std::string_view m_rest;
};

std::wstring Widen(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

class CParser {
 public:
  CParser(std::string_view text, std::wstring_view modulePath)
      : m_scanner(text), m_modulePath(modulePath) {
    Advance();
  }

  bool Parse() {
    while (m_token.kind != TokenKind::End) {
      if (m_token.IsWord("HKCR")) {
        m_root = RegistryRoot::Classes;
      } else if (m_token.IsWord("HKLM")) {
        m_root = RegistryRoot::LocalMachine;
      } else {
        return false;
      }
      Advance();
      if (!Take(TokenKind::OpenBrace) || !Keys({}, 1)) return false;
    }
    return true;
  }

  RegistrationScript&& TakeScript() { return std::move(m_script); }

 private:
  void Advance() { m_token = m_scanner.Next(); }

  bool Take(TokenKind kind) {
    if (m_token.kind != kind) return false;
    Advance();
    return true;
  }

  bool TakeWord(std::string_view word) {
    if (!m_token.IsWord(word)) return false;
    Advance();
    return true;
  }

  // Parses keys below `parent` up to and including its closing brace.
  bool Keys(const std::wstring& parent, size_t depth) {
    while (m_token.kind != TokenKind::CloseBrace) {
      if (!Key(parent, depth)) return false;
    }
    Advance();
    return true;
  }

  bool Key(const std::wstring& parent, size_t depth) {
    RegistryKey key;
    key.root = m_root;
    if (TakeWord("NoRemove")) {
      key.removal = KeyRemoval::Never;
    } else if (TakeWord("ForceRemove")) {
      key.removal = KeyRemoval::WithContents;
    }
    std::wstring name;
    if (depth > kDeepestKey || !Name(name)) return false;
    key.path = parent.empty() ? name : parent + L'\\' + name;
    if (m_token.kind == TokenKind::Equals && !Value({}, key)) return false;

    const size_t index = m_script.size();
    const std::wstring path = key.path;
    m_script.push_back(std::move(key));
    return !Take(TokenKind::OpenBrace) || Contents(index, path, depth + 1);
  }

  // Parses what the braces of the key at `index` contain.
  bool Contents(size_t index, const std::wstring& path, size_t depth) {
    while (TakeWord("val")) {
      std::wstring name;
      if (!Name(name) || !Value(std::move(name), m_script[index])) return false;
    }
    return Keys(path, depth);
  }

  bool Name(std::wstring& name) {
    if (!m_token.IsName() || m_token.text.empty() || m_token.text.size() > kLongestName ||
        m_token.text.find('\\') != std::string::npos) {
      return false;
    }
    name = Widen(m_token.text);
    Advance();
    return true;
  }

  bool Value(std::wstring name, RegistryKey& key) {
    if (!Take(TokenKind::Equals)) return false;
    if (TakeWord("s")) {
      if (m_token.kind != TokenKind::Text) return false;
      key.values.push_back({std::move(name), WithModulePath(m_token.text)});
    } else if (TakeWord("d")) {
      uint32_t number = 0;
      if (m_token.kind != TokenKind::Word || !Number(m_token.text, number)) return false;
      key.values.push_back({std::move(name), number});
    } else {
      return false;
    }
    Advance();
    return true;
  }

  std::wstring WithModulePath(std::string_view text) const {
    std::wstring result;
    for (size_t at = text.find(kModule); at != std::string_view::npos; at = text.find(kModule)) {
      result += Widen(text.substr(0, at));
      result += m_modulePath;
      text.remove_prefix(at + kModule.size());
    }
    return result + Widen(text);
  }

  static bool Number(std::string_view text, uint32_t& number) {
    uint64_t value = 0;
    for (const char digit : text) {
      if (digit < '0' || digit > '9') return false;
      value = value * 10 + static_cast<uint64_t>(digit - '0');
      if (value > std::numeric_limits<uint32_t>::max()) return false;
    }
    number = static_cast<uint32_t>(value);
    return true;
  }

  CScanner m_scanner;
  std::wstring_view m_modulePath;
  Token m_token;
  RegistryRoot m_root = RegistryRoot::Classes;
  RegistrationScript m_script;
};

}  // namespace

std::optional<RegistrationScript> ParseRegistrationScript(std::string_view text,
                                                          std::wstring_view modulePath) {
  if (text.size() > kLongestScript) return std::nullopt;
  CParser parser(text, modulePath);
  if (!parser.Parse()) return std::nullopt;
  return parser.TakeScript();
}

}  // namespace quor
