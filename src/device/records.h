#ifndef QUOR_DEVICE_RECORDS_H
#define QUOR_DEVICE_RECORDS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "device/line_type.h"

namespace quor {

// The base's last reports, in fixed-size records. The device link writes them, the telephone
// controller reads them. Texts are in the ANSI code page. Events allocate nothing.

// The five report bytes are sent as LINE1, LINE2, CELL, LOG, CELLSUB; the telephone controller
// reads LOG as the dial state.
struct StatusRecord {
  uint8_t result;  // result of the last request; 1 = busy reply
  uint8_t line1;
  uint8_t line2;
  uint8_t cell;
  uint8_t log;
  uint8_t cellSub;

  bool operator==(const StatusRecord&) const = default;
};
static_assert(sizeof(StatusRecord) == 6);

// All 0xFF: nothing reported yet, so the next status report counts as a change.
inline constexpr StatusRecord kNothingReported = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

struct IncomingCallRecord {
  uint8_t lineType;
  uint8_t line1;
  uint8_t line2;
  uint8_t cell;
  uint8_t log;
  uint8_t cellSub;  // holds the frame's carriage return, 0x0D, for a well-formed frame
};
static_assert(sizeof(IncomingCallRecord) == 6);

struct CallerIdRecord {
  uint8_t noNum;         // 0 to 15: why the number is absent
  uint8_t noName;        // 0 to 15: why the name is absent
  uint8_t longDistance;  // 0 or 1
  char name[17];         // up to 16 characters, NUL-terminated
  char number[25];       // up to 24 characters, NUL-terminated
  uint8_t lineType;      // 0 after the pop-up was closed
  uint8_t lineUnitNo;
};
static_assert(sizeof(CallerIdRecord) == 47);

struct LastCallerRecord {
  uint8_t lineType;
  char number[25];
};
static_assert(sizeof(LastCallerRecord) == 26);

inline constexpr int kCellCount = 4;

struct CellRegistrationRecord {
  uint8_t regInfo;             // bit 0 = Cell1 .. bit 3 = Cell4
  char names[kCellCount][14];  // at most 14 characters each, without a terminator if 14
};
static_assert(sizeof(CellRegistrationRecord) == 57);

// A call request waiting to be sent. An empty number answers a ringing line.
struct DialRecord {
  uint8_t lineType;
  uint8_t numberLength;
  char number[25];  // up to 24 characters, NUL-terminated
};
static_assert(sizeof(DialRecord) == 27);

// The text of a fixed-size field: up to the first NUL, or the whole field without one.
template <size_t kSize>
std::string_view FieldText(const char (&field)[kSize]) noexcept {
  return {field, static_cast<size_t>(std::find(field, field + kSize, '\0') - field)};
}

struct DeviceRecords {
  StatusRecord status = kNothingReported;
  StatusRecord lastStatus = kNothingReported;
  std::array<IncomingCallRecord, kSlotCount> incomingCall{};
  std::array<CallerIdRecord, kSlotCount> callerId{};
  std::array<LastCallerRecord, kSlotCount> lastCaller{};
  std::array<DialRecord, kSlotCount> dial{};
  std::array<uint8_t, kSlotCount> onHookLine{};
  CellRegistrationRecord cells{};
};

}  // namespace quor

#endif
