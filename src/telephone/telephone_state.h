#ifndef QUOR_TELEPHONE_TELEPHONE_STATE_H
#define QUOR_TELEPHONE_TELEPHONE_STATE_H

#include <cstdint>
#include <type_traits>

#include "device/line_type.h"
#include "device/records.h"

namespace quor {

// State of a line, or of the cell side as a whole. The base may send any byte; one not listed here
// disables the line and gives it the disconnect caption.
inline constexpr uint8_t kStateNoBase = 0;
inline constexpr uint8_t kStateIdle = 1;
inline constexpr uint8_t kStateBusy = 2;    // in use elsewhere; all channels while a call rings
inline constexpr uint8_t kStateInCall = 3;  // a call that the add-in may end
inline constexpr uint8_t kStateOtherCall = 4;
inline constexpr uint8_t kStateTaken = 5;  // taken by the add-in, waiting for a number

// Seven bytes, saved when the add-in takes a line and restored when it releases the line.
struct TelephoneRecord {
  uint8_t dialState;  // 1 enables the dial-number box
  uint8_t line1State;
  uint8_t line2State;
  uint8_t cellState;      // one state for the four cells
  uint8_t cellSub;        // cells available for calls: bit 0 = Cell1 .. bit 3 = Cell4
  uint8_t lineAvailable;  // 1 if a line or the cell side is idle; enables the speed dial
  uint8_t dialState2;     // second copy of dialState; enables the caller list

  bool operator==(const TelephoneRecord&) const = default;
};
static_assert(sizeof(TelephoneRecord) == 7);

// Which of the base's records last filled the caller information.
inline constexpr uint8_t kInfoCallerId = 3;
inline constexpr uint8_t kInfoPopup = 4;
inline constexpr uint8_t kInfoCellRegistration = 5;

// The current event. Each caller-ID or pop-up record clears it completely, so that no value of an
// earlier call remains. Texts are in the ANSI code page and NUL-terminated.
struct CallerInformation {
  uint8_t infoKind;
  uint8_t popupLine;  // line type of a pop-up record, 0 = none
  uint8_t noNum;      // why the number is absent, see withheld_caller.h
  uint8_t noName;
  char name[17];
  uint8_t numberLength;
  char number[25];
  uint8_t cidLine;     // line type on which the call arrives, 0 = none
  uint8_t lineUnitNo;  // for a cell: 0 to 3 = Cell1 to Cell4
};

// The cell registration record, its names terminated.
struct CellInformation {
  uint8_t cellRegistered;  // bit 0 = Cell1 .. bit 3 = Cell4
  char names[kCellCount][15];
};
static_assert(sizeof(CellInformation) == 61);

// Outlook versions with a ribbon dial without taking a line first.
inline constexpr int32_t kFirstRibbonVersion = 14;

// The telephone's complete state, as plain data. Rules read it; operations change it before they
// call other objects.
struct TelephoneState {
  TelephoneRecord record{};
  TelephoneRecord savedState{};  // the record before the add-in took a line

  uint32_t pendingClearLine = 0;  // line type whose return to idle clears the dial box, 0 = none
  uint32_t cellDialLine = 0;      // cell whose dial request the base has not answered yet, 0 = none
  uint32_t lastLineClickTime = 0;  // milliseconds tick
  uint32_t lastDialTime = 0;       // milliseconds tick

  CallerInformation caller{};
  CellInformation cells{};

  int32_t appVersion = 0;  // m_appVersion, Outlook's major version; 0 until known

  bool HasRibbon() const noexcept { return appVersion >= kFirstRibbonVersion; }
};
static_assert(std::is_trivially_copyable_v<TelephoneState>);

}  // namespace quor

#endif
