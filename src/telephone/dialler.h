#ifndef QUOR_TELEPHONE_DIALLER_H
#define QUOR_TELEPHONE_DIALLER_H

#include <cstdint>
#include <string>
#include <string_view>

#include "telephone/collaborators.h"
#include "telephone/number_check.h"
#include "telephone/telephone_state.h"

namespace quor {

// Turns a typed, picked or clicked number into a call request, and keeps the dial-number list
// (Configuration::histories): `name` is the text in the box, `number` what was dialled, `fileAs`
// the contact's name, if any.
class CDialler {
 public:
  CDialler(TelephoneState& state, const TelephoneCollaborators& collaborators) noexcept
      : m_state(state), m_collaborators(collaborators) {}

  // All ways to dial end here. `listIndex` is the 1-based entry that the user picked from the
  // dial-number list, and 0 for a number that was typed or comes from a menu; an index beyond the
  // list counts as 0. True when a call request was posted. Shows the message pop-up if the number
  // cannot be dialled; drops it silently if no line is taken.
  bool DialCall(int listIndex, std::wstring_view destination);

  // Fills the slot's request record and posts the call request, for the line last chosen on the
  // ribbon or taken by the add-in. False if there is no such line or the post failed. `number` must
  // have passed the checks of DialCall; an empty one answers.
  bool DialUSB(std::string_view number) noexcept;

  // Handles the toolbar dial box's change event: the box's text and list index.
  void OnChangeComboBox(std::wstring_view text, int listIndex);

  // The text of the ribbon's dial box. It is typed or picked first; a line button then dials it.
  void StoreDialText(std::wstring_view text) { m_dialText = text; }
  const std::wstring& DialText() const noexcept { return m_dialText; }
  // Dials that text. The ribbon passes only the text of a picked entry, and the list may have
  // changed since, so the entry is looked up by its text now.
  bool DialStoredText();

  // Posts WindowRequest::ClearDial, for callers inside a control's own click handler.
  void PostClearDialNumber() noexcept;
  // Handles it. If DialClear is 0, the box keeps its text.
  void OnClearDial();
  void ClearDialNumber();

 private:
  uint32_t ChooseLine() const noexcept;
  bool CheckNumber(std::string_view number);
  void Remember(const CallEntry& call);
  void SetDialText(std::wstring_view text);

  TelephoneState& m_state;
  const TelephoneCollaborators& m_collaborators;
  std::wstring m_dialText;
};

}  // namespace quor

#endif
