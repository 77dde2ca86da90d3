#include "workbench/scenario/indications.h"

#include <map>
#include <optional>
#include <stdexcept>

#include "workbench/base/base_frames.h"
#include "workbench/scenario/numbers.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

// The name=value words of one indication. A field that is never read is a spelling mistake.
class CFields {
 public:
  explicit CFields(std::span<const std::string> words) {
    for (const std::string& word : words) {
      const size_t equals = word.find('=');
      if (equals == std::string::npos) throw CScenarioError("\"" + word + "\" is not field=value");
      if (!m_fields.emplace(word.substr(0, equals), word.substr(equals + 1)).second) {
        throw CScenarioError("field \"" + word.substr(0, equals) + "\" is given twice");
      }
    }
  }

  std::optional<std::string> Text(const std::string& name) {
    const auto found = m_fields.find(name);
    if (found == m_fields.end()) return std::nullopt;
    std::string value = found->second;
    m_fields.erase(found);
    return value;
  }

  std::optional<uint8_t> OptionalByte(const std::string& name) {
    const std::optional<std::string> text = Text(name);
    if (!text) return std::nullopt;
    return ParseByte(*text);
  }

  uint8_t Byte(const std::string& name, uint8_t otherwise) {
    return OptionalByte(name).value_or(otherwise);
  }

  uint8_t LineType() {
    const std::optional<std::string> text = Text("line");
    if (!text) return kAllLineTypes[0];
    const std::optional<uint8_t> named = LineTypeFromName(*text);
    return named ? *named : ParseByte(*text);
  }

  LineReport Report() {
    LineReport report;
    report.line1 = Byte("line1", report.line1);
    report.line2 = Byte("line2", report.line2);
    report.cell = Byte("cell", report.cell);
    report.log = Byte("log", report.log);
    return report;
  }

  void ExpectNoneLeft() const {
    if (!m_fields.empty()) {
      throw CScenarioError("unknown field \"" + m_fields.begin()->first + "\"");
    }
  }

 private:
  static uint8_t ParseByte(const std::string& text) {
    const std::optional<uint8_t> value = ParseNumber<uint8_t>(text);
    if (!value) throw CScenarioError("\"" + text + "\" is not a byte");
    return *value;
  }

  std::map<std::string, std::string> m_fields;
};

Bytes Status(CFields& fields) {
  LineReport report = fields.Report();
  report.cellSub = fields.Byte("cellsub", report.cellSub);
  return StatusFrame(fields.Byte("result", 0), report);
}

Bytes ReceiveCall(CFields& fields) {
  return ReceiveCallFrame(fields.LineType(), fields.Report());
}

Bytes CallerId(CFields& fields) {
  CallerIdReport report;
  report.lineType = fields.LineType();
  report.number = fields.Text("number").value_or("");
  report.name = fields.Text("name").value_or("");
  report.noNumber = fields.Byte("no-number", 0);
  report.noName = fields.Byte("no-name", 0);
  report.longDistance = fields.Byte("long-distance", 0) != 0;
  report.unit = fields.Byte("unit", 0);
  report.length = fields.OptionalByte("length");
  return CallerIdFrame(report);
}

Bytes ClosePopup(CFields& fields) {
  return ClosePopupFrame(fields.LineType());
}

Bytes Registration(CFields& fields) {
  CellRegistration registration;
  registration.info = fields.Byte("info", 0);
  for (size_t i = 0; i < registration.names.size(); ++i) {
    registration.names[i] = fields.Text("cell" + std::to_string(i + 1)).value_or("");
  }
  return CellRegistrationFrame(registration);
}

using Builder = Bytes (*)(CFields&);

const std::map<std::string, Builder>& Builders() {
  static const std::map<std::string, Builder> builders = {{"status", Status},
                                                          {"receive-call", ReceiveCall},
                                                          {"caller-id", CallerId},
                                                          {"close-popup", ClosePopup},
                                                          {"cell-registration", Registration}};
  return builders;
}

void ReplaceDelimiters(Bytes& frame, const std::string& delimiters) {
  const Bytes bytes = ParseHex({&delimiters, 1});
  if (bytes.size() != 2) throw CScenarioError("end= takes two bytes");
  frame[frame.size() - 2] = bytes[0];
  frame[frame.size() - 1] = bytes[1];
}

}  // namespace

bool IsIndicationName(const std::string& word) {
  return Builders().contains(word);
}

Bytes IndicationFromWords(std::span<const std::string> words) {
  if (words.empty()) throw CScenarioError("the indication's name is missing");
  const auto builder = Builders().find(words.front());
  if (builder == Builders().end()) {
    throw CScenarioError("unknown indication \"" + words.front() + "\"");
  }
  CFields fields(words.subspan(1));
  const std::optional<std::string> delimiters = fields.Text("end");
  try {
    Bytes frame = builder->second(fields);
    fields.ExpectNoneLeft();
    if (delimiters) ReplaceDelimiters(frame, *delimiters);
    return frame;
  } catch (const std::invalid_argument& error) {
    throw CScenarioError(error.what());
  }
}

}  // namespace quor::workbench
