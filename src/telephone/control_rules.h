#ifndef QUOR_TELEPHONE_CONTROL_RULES_H
#define QUOR_TELEPHONE_CONTROL_RULES_H

#include "telephone/telephone_state.h"

namespace quor {

// Enabled flags of the telephone controls and captions of the line buttons. `withAnswer` selects
// the rules for a ringing line. Command bar, ribbon and contact windows all use these functions.

inline constexpr int kDialBoxControl = 0;
inline constexpr int kLine1Control = 1;
inline constexpr int kLine2Control = 2;
inline constexpr int kCallerListControl = 3;
inline constexpr int kCallFromCellControl = 4;
inline constexpr int kSpeedDialControl = 5;
inline constexpr int kOptionsControl = 6;
inline constexpr int kControlCount = 7;

// False for an unknown index.
bool IsControlEnabled(const TelephoneState& state, int controlIndex, bool withAnswer) noexcept;

// The line buttons, as GetLineCaption numbers them.
inline constexpr int kLine1Button = 0;
inline constexpr int kLine2Button = 1;
inline constexpr int kCellButton = 2;

// What a click on a line button does, as its caption states it; Call for an unknown index.
enum class LineAction { Call, Disconnect, Cancel, Answer };
LineAction GetLineAction(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept;

// The caption's string number; IDS_NONE for an unknown index.
int GetLineCaption(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept;

// Whether the cell's item (0 = Cell1 .. 3 = Cell4) in the call-from-cell menu is enabled; false for
// any other index.
bool IsCellItemEnabled(const TelephoneState& state, int cell) noexcept;

}  // namespace quor

#endif
