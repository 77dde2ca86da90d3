#include "workbench/base/base_frames.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace quor::workbench {

namespace {

constexpr uint8_t kIndicationStart = 0x26;
constexpr uint8_t kRequestStart = 0x2B;
constexpr uint8_t kCarriageReturn = 0x0D;
constexpr uint8_t kLineFeed = 0x0A;
constexpr std::string_view kDigits = " 1234567890*#-()";
constexpr std::array<const char*, 6> kLineNames = {"line1", "line2", "cell1",
                                                   "cell2", "cell3", "cell4"};

void AppendPadded(Bytes& frame, const std::string& text, size_t width) {
  if (text.size() > width) {
    throw std::invalid_argument("\"" + text + "\" is longer than " + std::to_string(width));
  }
  frame.insert(frame.end(), text.begin(), text.end());
  frame.insert(frame.end(), width - text.size(), ' ');
}

void AppendPackedNumber(Bytes& frame, const std::string& number) {
  constexpr size_t kPackedBytes = 12;
  if (number.size() > 2 * kPackedBytes)
    throw std::invalid_argument("a number has at most 24 digits");
  Bytes packed(kPackedBytes, 0);
  for (size_t i = 0; i < number.size(); ++i) {
    const size_t code = kDigits.find(number[i]);
    if (code == std::string_view::npos) {
      throw std::invalid_argument(std::string("'") + number[i] + "' is not a digit of the wire");
    }
    packed[i / 2] |= static_cast<uint8_t>(i % 2 == 0 ? code << 4 : code);
  }
  frame.insert(frame.end(), packed.begin(), packed.end());
}

Bytes Finish(Bytes frame) {
  frame.push_back(kCarriageReturn);
  frame.push_back(kLineFeed);
  return frame;
}

std::string ReadCallNumber(std::span<const uint8_t> bytes) {
  // '+' '2' line, two length digits, number, CR
  constexpr size_t kNumberAt = 5;
  return bytes.size() > kNumberAt + 1 ? std::string(bytes.begin() + kNumberAt, bytes.end() - 1)
                                      : std::string();
}

}  // namespace

std::optional<uint8_t> LineTypeFromName(const std::string& name) {
  const auto found = std::find(kLineNames.begin(), kLineNames.end(), name);
  if (found == kLineNames.end()) return std::nullopt;
  return kAllLineTypes[static_cast<size_t>(found - kLineNames.begin())];
}

std::string LineTypeName(uint8_t lineType) {
  const auto found = std::find(kAllLineTypes.begin(), kAllLineTypes.end(), lineType);
  if (found != kAllLineTypes.end()) {
    return kLineNames[static_cast<size_t>(found - kAllLineTypes.begin())];
  }
  constexpr char kHex[] = "0123456789ABCDEF";
  return {'0', 'x', kHex[lineType >> 4], kHex[lineType & 0x0F]};
}

Bytes StatusFrame(uint8_t result, const LineReport& report) {
  return Finish({kIndicationStart, 0x01, result, report.line1, report.line2, report.cell,
                 report.log, report.cellSub});
}

Bytes ReceiveCallFrame(uint8_t lineType, const LineReport& report) {
  return Finish(
      {kIndicationStart, 0x02, lineType, report.line1, report.line2, report.cell, report.log});
}

Bytes CallerIdFrame(const CallerIdReport& report) {
  if (report.noNumber > 15 || report.noName > 15) {
    throw std::invalid_argument("the reasons for a missing number or name go from 0 to 15");
  }
  constexpr uint8_t kLongDistance = 0x04;
  Bytes frame = {kIndicationStart, 0x03, static_cast<uint8_t>(report.noNumber | report.noName << 4),
                 report.longDistance ? kLongDistance : uint8_t{0}};
  AppendPadded(frame, report.name, 16);
  frame.push_back(report.length.value_or(static_cast<uint8_t>(report.number.size())));
  AppendPackedNumber(frame, report.number);
  frame.push_back(report.lineType);
  frame.insert(frame.end(), 2, 0);
  frame.push_back(report.unit);
  return Finish(std::move(frame));
}

Bytes ClosePopupFrame(uint8_t lineType) {
  return Finish({kIndicationStart, 0x04, lineType});
}

Bytes CellRegistrationFrame(const CellRegistration& registration) {
  Bytes frame = {kIndicationStart, 0x05, registration.info};
  for (const std::string& name : registration.names)
    AppendPadded(frame, name, 14);
  return Finish(std::move(frame));
}

BaseRequest ReadRequest(std::span<const uint8_t> bytes) {
  BaseRequest request;
  if (bytes.size() < 3 || bytes.front() != kRequestStart || bytes.back() != kCarriageReturn) {
    return request;
  }
  const bool hasLine = bytes.size() >= 4;
  if (bytes[1] == '1' && bytes.size() == 3) {
    request.kind = BaseRequest::Kind::Startup;
  } else if (bytes[1] == '2' && bytes.size() >= 6) {
    request.kind = BaseRequest::Kind::Call;
    request.number = ReadCallNumber(bytes);
  } else if (bytes[1] == '3' && bytes.size() == 4) {
    request.kind = BaseRequest::Kind::OnHook;
  }
  if (request.kind != BaseRequest::Kind::Unknown && hasLine) request.lineType = bytes[2];
  return request;
}

}  // namespace quor::workbench
