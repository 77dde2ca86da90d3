#include "workbench/scenario/script.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "workbench/scenario/bytes.h"
#include "workbench/scenario/numbers.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr std::string_view kBlanks = " \t\r";

bool IsBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

std::string_view Trim(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Reads one line; End is the start of a comment or the end of the line.
class CWordReader {
 public:
  explicit CWordReader(std::string_view line) : m_line(line) {}

  size_t End() const { return m_at; }

  bool Next(std::string& word) {
    while (m_at < m_line.size() && IsBlank(m_line[m_at]))
      ++m_at;
    if (m_at == m_line.size() || m_line[m_at] == '#') return false;
    word.clear();
    while (m_at < m_line.size() && !IsBlank(m_line[m_at])) {
      if (m_line[m_at] == '"') {
        ReadQuoted(word);
      } else {
        word += m_line[m_at++];
      }
    }
    return true;
  }

 private:
  void ReadQuoted(std::string& word) {
    ++m_at;
    while (m_at < m_line.size() && m_line[m_at] != '"') {
      if (m_line[m_at] == '\\') {
        word += ReadEscape();
      } else {
        word += m_line[m_at++];
      }
    }
    if (m_at == m_line.size()) throw CScenarioError("a quoted text does not end");
    ++m_at;
  }

  char ReadEscape() {
    if (m_at + 1 >= m_line.size()) throw CScenarioError("a quoted text does not end");
    const char kind = m_line[m_at + 1];
    m_at += 2;
    switch (kind) {
      case '"':
      case '\\':
        return kind;
      case 'n':
        return '\n';
      case 'r':
        return '\r';
      case 't':
        return '\t';
      case 'x': {
        const std::string_view digits = m_line.substr(m_at, 2);
        uint8_t value = 0;
        if (!ParseHexByte(digits, value)) throw CScenarioError("\\x needs two hexadecimal digits");
        m_at += 2;
        return static_cast<char>(value);
      }
      default:
        throw CScenarioError(std::string("unknown escape \\") + kind);
    }
  }

  std::string_view m_line;
  size_t m_at = 0;
};

// The colon of a command with a block is at the end of its last word, outside quotes.
bool TakeBlockMark(Statement& statement) {
  if (statement.source.back() != ':') return false;
  std::string& last = statement.words.back();
  last.pop_back();
  if (last.empty()) statement.words.pop_back();
  if (statement.words.empty()) throw CScenarioError("a block needs a command");
  return true;
}

Statement ParseStatement(std::string_view line, int number) {
  Statement statement;
  statement.line = number;
  CWordReader reader(line);
  std::string word;
  while (reader.Next(word))
    statement.words.push_back(word);
  statement.source = Trim(line.substr(0, reader.End()));
  if (!statement.words.empty()) statement.hasBlock = TakeBlockMark(statement);
  return statement;
}

// Evaluates "14+" or "<14"; nothing for any other word.
std::optional<bool> Condition(std::string_view word, int outlookVersion) {
  const bool below = word.starts_with('<');
  if (!below && !word.ends_with('+')) return std::nullopt;
  const std::string_view digits = below ? word.substr(1) : word.substr(0, word.size() - 1);
  const std::optional<int> version = ParseInBase<int>(digits, 10);
  if (!version) return std::nullopt;
  return below ? outlookVersion < *version : outlookVersion >= *version;
}

// The text after a block line's bar; nothing if its condition is false.
std::optional<std::string_view> BlockLine(std::string_view afterBar, int outlookVersion) {
  const size_t blank = std::min(afterBar.find(' '), afterBar.size());
  const std::string_view text = afterBar.substr(std::min(blank + 1, afterBar.size()));
  if (blank == 0) return text;
  const std::optional<bool> met = Condition(afterBar.substr(0, blank), outlookVersion);
  if (!met) throw CScenarioError("after | comes a blank, or a condition such as 14+ or <14");
  return *met ? std::optional(text) : std::nullopt;
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view line) {
  std::vector<std::string> words;
  CWordReader reader(line);
  std::string word;
  while (reader.Next(word))
    words.push_back(word);
  return words;
}

namespace {

// Replaces "{outlook}" in a block by the running version.
std::string WithVersion(std::string_view text, int outlookVersion) {
  constexpr std::string_view kPlace = "{outlook}";
  std::string result(text);
  const size_t at = result.find(kPlace);
  if (at != std::string::npos) result.replace(at, kPlace.size(), std::to_string(outlookVersion));
  return result;
}

class CScriptReader {
 public:
  explicit CScriptReader(int outlookVersion) : m_version(outlookVersion) {}

  void Read(std::string_view line, int number) {
    const size_t first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
      m_beginsStep = true;
      return;
    }
    if (line[first] == '|') return ReadBlockLine(line.substr(first + 1));
    Statement statement = ParseStatement(line, number);
    if (statement.words.empty()) return;
    const std::optional<bool> met = Condition(statement.words.front(), m_version);
    if (met) statement.words.erase(statement.words.begin());
    if (statement.words.empty()) throw CScenarioError("a condition needs a command");
    m_takesBlock = statement.hasBlock;
    m_leftOut = !met.value_or(true);
    if (m_leftOut) return;
    statement.beginsStep = std::exchange(m_beginsStep, false);
    m_statements.push_back(std::move(statement));
  }

  std::vector<Statement> Take() { return std::move(m_statements); }

 private:
  void ReadBlockLine(std::string_view afterBar) {
    if (!m_takesBlock) {
      throw CScenarioError("a line that begins with | belongs under a command that ends in :");
    }
    const std::optional<std::string_view> text = BlockLine(afterBar, m_version);
    if (text && !m_leftOut) m_statements.back().block.push_back(WithVersion(*text, m_version));
  }

  int m_version;
  bool m_beginsStep = false;
  bool m_takesBlock = false;
  bool m_leftOut = false;
  std::vector<Statement> m_statements;
};

}  // namespace

std::vector<Statement> ParseScript(std::string_view text, int outlookVersion) {
  CScriptReader reader(outlookVersion);
  for (int number = 1; !text.empty(); ++number) {
    const size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    try {
      reader.Read(line, number);
    } catch (const CScenarioError& error) {
      throw CScenarioError("line " + std::to_string(number) + ": " + error.what());
    }
  }
  return reader.Take();
}

bool AppliesTo(const std::vector<Statement>& statements, int outlookVersion) {
  constexpr int kFirstWithRibbon = 14;
  for (const Statement& statement : statements) {
    const std::vector<std::string>& words = statement.words;
    if (words.size() < 3 || words[0] != "applies" || words[1] != "to") continue;
    return std::any_of(words.begin() + 2, words.end(), [&](const std::string& word) {
      if (word == "command-bar") return outlookVersion < kFirstWithRibbon;
      if (word == "ribbon") return outlookVersion >= kFirstWithRibbon;
      return word == std::to_string(outlookVersion);
    });
  }
  return true;
}

}  // namespace quor::workbench
