#ifndef QUOR_WORKBENCH_BASE_BASE_FRAMES_H
#define QUOR_WORKBENCH_BASE_BASE_FRAMES_H

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quor::workbench {

// The base's side of the wire: sends indications and reads requests. Written independently of the
// add-in, so that both cannot share a misunderstanding.

using Bytes = std::vector<uint8_t>;

// Line types on the wire: 1 and 2 the fixed lines, 0x11 to 0x14 the mobiles.
inline constexpr std::array<uint8_t, 6> kAllLineTypes = {0x01, 0x02, 0x11, 0x12, 0x13, 0x14};

// "line1", "cell3" and so on; nothing for any other word.
std::optional<uint8_t> LineTypeFromName(const std::string& name);
// "line1" to "cell4", or "0x.." for an unknown code.
std::string LineTypeName(uint8_t lineType);

struct LineReport {
  uint8_t line1 = 1;
  uint8_t line2 = 1;
  uint8_t cell = 1;
  uint8_t log = 0;
  uint8_t cellSub = 0;
};

struct CallerIdReport {
  uint8_t noNumber = 0;  // 0 to 15
  uint8_t noName = 0;    // 0 to 15
  bool longDistance = false;
  std::string name;               // up to 16 bytes
  std::string number;             // up to 24 of " 1234567890*#-()"
  std::optional<uint8_t> length;  // sent instead of the number's real length
  uint8_t lineType = 0x01;
  uint8_t unit = 0;
};

struct CellRegistration {
  uint8_t info = 0;
  std::array<std::string, 4> names;  // up to 14 bytes each, padded with blanks
};

// Builds whole indications with their delimiters. Throws std::invalid_argument for values that a
// base cannot send.
Bytes StatusFrame(uint8_t result, const LineReport& report);
Bytes ReceiveCallFrame(uint8_t lineType, const LineReport& report);
Bytes CallerIdFrame(const CallerIdReport& report);
Bytes ClosePopupFrame(uint8_t lineType);
Bytes CellRegistrationFrame(const CellRegistration& registration);

struct BaseRequest {
  enum class Kind { Startup, Call, OnHook, Unknown };
  Kind kind = Kind::Unknown;
  uint8_t lineType = 0;
  std::string number;  // of a call; empty if it answers
};

// Reads one request as the add-in writes it, carriage return included.
BaseRequest ReadRequest(std::span<const uint8_t> bytes);

}  // namespace quor::workbench

#endif
