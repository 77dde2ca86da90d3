#ifndef QUOR_TELEPHONE_DIALLER_H
#define QUOR_TELEPHONE_DIALLER_H

#include <cstdint>
#include <string>
#include <string_view>

#include "telephone/collaborators.h"
#include "telephone/number_check.h"
#include "telephone/telephone_state.h"

namespace quor {

// Turns a number that was typed, picked or clicked into a call request, and keeps the dial-number
// list (Configuration::histories): `name` is the text the box shows, `number` what was dialled,
// `fileAs` the contact it belongs to, if any.
class CDialler {
 public:
  CDialler(TelephoneState& state, const TelephoneCollaborators& with) noexcept
      : m_state(state), m_with(with) {}

  // Every dialling path ends here. `listIndex` is 0 for a number typed or handed over by a menu,
  // and the 1-based entry of the dial-number list when the user picked one; an index the list does
  // not have counts as typed. True when a call request was posted. A number that cannot be dialled
  // is answered by the message pop-up; one given while no line is held is dropped silently.
  bool DialCall(int listIndex, std::wstring_view destination);

  // Fills the slot's request record and posts the call request: on the line last set by the
  // ribbon's line button, or on the one the add-in holds. False when there is none or the post
  // failed. `number` must have passed the checks of DialCall; an empty one answers.
  bool DialUSB(std::string_view number) noexcept;

  // The toolbar dial box's change event, with the box's text and list index.
  void OnChangeComboBox(std::wstring_view text, int listIndex);

  // What the ribbon's dial box holds: it is typed or picked first and dialled by a line button.
  void StoreBoxText(std::wstring_view text) { m_boxText = text; }
  const std::wstring& BoxText() const noexcept { return m_boxText; }
  // Dials it. The ribbon tells only the text of a picked entry, and the list may have changed
  // since; so the entry is looked for by its text now.
  bool DialBoxText();

  // The handler of WindowRequest::ClearDial. With DialClear 0 the box keeps its text.
  void OnClearDial();
  void ClearDialNumber();

 private:
  uint32_t ChooseLine() const noexcept;
  bool CheckNumber(std::string_view number);
  void Remember(const CallEntry& call);
  void SetDialText(std::wstring_view text);

  TelephoneState& m_state;
  const TelephoneCollaborators& m_with;
  std::wstring m_boxText;
};

}  // namespace quor

#endif
