#ifndef QUOR_DEVICE_FRAME_FORMAT_H
#define QUOR_DEVICE_FRAME_FORMAT_H

#include <cstddef>
#include <cstdint>

namespace quor {

// The serial protocol of the telephone base; all its bytes are defined here. For line types see
// device/line_type.h.
//
// Request, add-in to base:
//   0x2B code payload... 0x0D             (no line feed is sent)
// Indication, base to add-in, its length fixed by its type:
//   0x26 type body... 0x0D 0x0A

inline constexpr uint8_t kRequestStart = 0x2B;     // "+"
inline constexpr uint8_t kIndicationStart = 0x26;  // "&"
inline constexpr uint8_t kCarriageReturn = 0x0D;
inline constexpr uint8_t kLineFeed = 0x0A;

// Start byte, code and carriage return around the payload.
inline constexpr size_t kRequestOverhead = 3;

enum class RequestCode : uint8_t {
  Startup = 0x31,  // no payload
  Call = 0x32,     // line type, number length as two ASCII digits, the number's characters
  OnHook = 0x33,   // line type
};

// A longer number is sent whole, with the length digits "00".
inline constexpr size_t kMaxCountedNumberLength = 99;

enum class Indication : uint8_t {
  SetStatus = 0x01,
  ReceiveCall = 0x02,
  CallerId = 0x03,
  ClosePopUp = 0x04,
  CellRegistration = 0x05,
};

// Start byte and type, read first: the type gives the frame's length.
inline constexpr size_t kHeaderSize = 2;

// Whole frames, header and delimiters included.
inline constexpr size_t kSetStatusSize = 10;
inline constexpr size_t kReceiveCallSize = 9;
inline constexpr size_t kCallerIdSize = 39;
inline constexpr size_t kClosePopUpSize = 5;
inline constexpr size_t kCellRegistrationSize = 61;

// Number of bytes after the header of an indication; 0 for an unknown type.
constexpr size_t IndicationBodySize(uint8_t type) noexcept {
  switch (static_cast<Indication>(type)) {
    case Indication::SetStatus:
      return kSetStatusSize - kHeaderSize;
    case Indication::ReceiveCall:
      return kReceiveCallSize - kHeaderSize;
    case Indication::CallerId:
      return kCallerIdSize - kHeaderSize;
    case Indication::ClosePopUp:
      return kClosePopUpSize - kHeaderSize;
    case Indication::CellRegistration:
      return kCellRegistrationSize - kHeaderSize;
  }
  return 0;
}

// SetStatus: Result, L1, L2, CELL, LOG, CELLSUB from offset 2.
// ReceiveCall: LineType, L1, L2, CELL, LOG from offset 2.
inline constexpr size_t kReportOffset = 2;

// CallerId.
inline constexpr size_t kCidReasonsOffset = 2;  // low nibble NoNum, high nibble NoName
inline constexpr size_t kCidFlagsOffset = 3;
inline constexpr uint8_t kCidLongDistanceMask = 0x04;
inline constexpr size_t kCidNameOffset = 4;  // padded on the right with spaces
inline constexpr size_t kCidNameSize = 16;
inline constexpr size_t kCidNumberLengthOffset = 20;
inline constexpr size_t kCidNumberOffset = 21;  // two digit codes per byte, high nibble first
inline constexpr size_t kCidNumberSize = 12;
inline constexpr size_t kCidLineTypeOffset = 33;
inline constexpr size_t kCidLineUnitNoOffset = 36;

// Indexed by the four-bit digit code.
inline constexpr char kDigitCharacters[] = " 1234567890*#-()";

// ClosePopUp.
inline constexpr size_t kClosePopUpLineTypeOffset = 2;

// CellRegistration: RegInfo, then four names of 14 bytes.
inline constexpr size_t kCellRegInfoOffset = 2;
inline constexpr size_t kCellNamesOffset = 3;

}  // namespace quor

#endif
