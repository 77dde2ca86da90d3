#ifndef QUOR_TELEPHONE_CONTROL_STATE_H
#define QUOR_TELEPHONE_CONTROL_STATE_H

#include "telephone/telephone_state.h"

namespace quor {

// Which telephone controls may be used, and what the line buttons say. The rules with answer are
// those of a ringing line; command bar, ribbon and contact windows ask the same questions.

inline constexpr int kDialBoxControl = 0;
inline constexpr int kLine1Control = 1;
inline constexpr int kLine2Control = 2;
inline constexpr int kCallerListControl = 3;
inline constexpr int kCallFromCellControl = 4;
inline constexpr int kSpeedDialControl = 5;
inline constexpr int kOptionsControl = 6;
inline constexpr int kControlCount = 7;

// False for any other index.
bool IsControlEnabled(const TelephoneState& state, int controlIndex, bool withAnswer) noexcept;

// The line buttons, as GetLineCaption counts them.
inline constexpr int kLine1Button = 0;
inline constexpr int kLine2Button = 1;
inline constexpr int kCellButton = 2;

// What a line button's caption says that a click does; Call for any other index.
enum class LineAction { Call, Disconnect, Cancel, Answer };
LineAction GetLineAction(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept;

// The string number of that caption; IDS_NONE for any other index.
int GetLineCaption(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept;

// The item of a cell (0 = Cell1 .. 3 = Cell4) in the call-from-cell menu; false for any other.
bool IsCellItemEnabled(const TelephoneState& state, int cell) noexcept;

}  // namespace quor

#endif
