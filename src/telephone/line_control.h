#ifndef QUOR_TELEPHONE_LINE_CONTROL_H
#define QUOR_TELEPHONE_LINE_CONTROL_H

#include <cstdint>
#include <string_view>

#include "telephone/bar_state.h"
#include "telephone/collaborators.h"
#include "telephone/dialler.h"
#include "telephone/line_states.h"
#include "telephone/telephone_state.h"

namespace quor {

// Reports of the base and clicks of the user, applied to the lines, and the requests that follow.
// Line types are those of line_type.h; the cell side answers for any other code.
class CLineControl {
 public:
  CLineControl(TelephoneState& state, CBarState& bar, CDialler& dialler,
               const TelephoneCollaborators& with) noexcept
      : m_state(state), m_bar(bar), m_dialler(dialler), m_with(with) {}

  // Stores a report; with a ribbon, as SetUSBStateV14 does. Always true.
  bool SetUSBState(uint8_t line1, uint8_t line2, uint8_t dial, uint8_t cell, uint8_t cellSub);
  bool SetUSBStateV14(uint8_t line1, uint8_t line2, uint8_t dial, uint8_t cell, uint8_t cellSub);

  // The add-in takes (5) or releases (1) a line. False, and nothing changed, within the debounce
  // time, for any other state, and when the line is in that state already.
  bool SetLineState(uint32_t lineType, uint8_t newState);
  uint8_t GetLineState(uint32_t lineType) const noexcept;

  // A click on a line button or on a cell's menu item, in the way of the running Outlook. True when
  // something came of it.
  bool Click(uint32_t lineType);
  bool ClickLineButton(uint32_t lineType);
  bool ClickLineButtonV14(uint32_t lineType);

  // Whether a click would dial at once: on the ribbon that is what an idle line does.
  bool DialsAtOnce(uint32_t lineType) const noexcept;
  // ClickLineButtonV14 for such a line, with a number other than the dial box's. A line that has
  // become busy since is left alone. When nothing is dialled, nothing has changed: the box and the
  // call that will clear it stay as they were.
  bool DialOnLine(uint32_t lineType, std::wstring_view number);

  // The "Answer" button of the caller window. Sends what an answering line button sends, also for
  // the cells whose calls no line button answers.
  void AnswerUSB(int slot) noexcept;
  // Hangs up. False for a code without a slot and when the post failed.
  bool DropUSB(uint32_t lineType) noexcept;

 private:
  bool AnswerRinging(uint32_t lineType) noexcept;
  void ChooseLine(uint32_t lineType) noexcept;
  bool Take(uint32_t lineType);
  bool Release(uint32_t lineType);
  bool TakeOrRelease(uint32_t lineType, uint8_t newState, uint32_t cellDialLine);
  void DisableOtherCells();

  TelephoneState& m_state;
  CBarState& m_bar;
  CDialler& m_dialler;
  const TelephoneCollaborators& m_with;
};

}  // namespace quor

#endif
