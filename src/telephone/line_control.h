#ifndef QUOR_TELEPHONE_LINE_CONTROL_H
#define QUOR_TELEPHONE_LINE_CONTROL_H

#include <cstdint>
#include <string_view>

#include "telephone/collaborators.h"
#include "telephone/control_refresh.h"
#include "telephone/dialler.h"
#include "telephone/line_states.h"
#include "telephone/telephone_state.h"

namespace quor {

// Applies the base's reports and the user's clicks to the lines, and posts the requests that
// follow. Line types are those of line_type.h; any other code means the cell side.
class CLineControl {
 public:
  CLineControl(TelephoneState& state, CControlRefresh& refresh, CDialler& dialler,
               const TelephoneCollaborators& collaborators) noexcept
      : m_state(state), m_refresh(refresh), m_dialler(dialler), m_collaborators(collaborators) {}

  // Stores a report, by the rules of SetUSBStateV14 if there is a ribbon. Always true.
  bool SetUSBState(uint8_t line1, uint8_t line2, uint8_t dial, uint8_t cell, uint8_t cellSub);
  bool SetUSBStateV14(uint8_t line1, uint8_t line2, uint8_t dial, uint8_t cell, uint8_t cellSub);

  // The add-in takes (state 5) or releases (state 1) a line. False without any change within the
  // debounce time, for any other state, and if the line already has that state.
  bool SetLineState(uint32_t lineType, uint8_t newState);
  uint8_t GetLineState(uint32_t lineType) const noexcept;

  // Handles a click on a line button or on a cell's menu item, by the rules of the running Outlook
  // version. True if the click had an effect.
  bool Click(uint32_t lineType);
  bool ClickLineButton(uint32_t lineType);
  bool ClickLineButtonV14(uint32_t lineType);

  // Whether a click dials at once: with a ribbon, an idle line does.
  bool DialsAtOnce(uint32_t lineType) const noexcept;
  // ClickLineButtonV14 for such a line, with the given number instead of the dial box's. Does
  // nothing if the line has become busy. If nothing is dialled, no state changes: the box and the
  // pending clear stay as they were.
  bool DialOnLine(uint32_t lineType, std::wstring_view number);

  // The caller window's "Answer" button. Sends the same request as an answering line button, and
  // also answers calls on Cell2 to Cell4, which no line button does.
  void AnswerUSB(int slot) noexcept;
  // Hangs up. False for a code without a slot or if the post failed.
  bool DropUSB(uint32_t lineType) noexcept;

 private:
  bool AnswerRinging(uint32_t lineType) noexcept;
  void ChooseLine(uint32_t lineType) noexcept;
  bool Take(uint32_t lineType);
  bool Release(uint32_t lineType);
  bool TakeOrRelease(uint32_t lineType, uint8_t newState, uint32_t cellDialLine);
  void DisableOtherCells();

  TelephoneState& m_state;
  CControlRefresh& m_refresh;
  CDialler& m_dialler;
  const TelephoneCollaborators& m_collaborators;
};

}  // namespace quor

#endif
