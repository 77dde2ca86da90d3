#ifndef QUOR_DIALOGS_SPEED_DIAL_REGIST_H
#define QUOR_DIALOGS_SPEED_DIAL_REGIST_H

#include "dialogs/modeless_dialog.h"
#include "dialogs/speed_dial_store.h"
#include "telephone/collaborators.h"

namespace quor {

// Adds or edits a speed dial entry: "Name:", "Number:", "Save". A number may be written or pasted
// with blanks and the like, which are dropped. One that could not be dialled is refused with the
// dialler's own message, and the window stays open.
class CSpeedDialRegist final : public CModelessDialog {
 public:
  // All must outlive the window.
  CSpeedDialRegist(const DialogHost& host, ISpeedDialStore& store,
                   IMessagePopup& messages) noexcept;

  // Shows the window for the entry at `index`, filled with what the entry holds or, when that is
  // nothing, with what is offered: a name, and a number as its contact or caller spells it, of
  // which the dial characters are taken. There is one window: opened for another entry it is filled
  // anew. The owner is Outlook's main window; null when there is none.
  void Open(HWND outlook, size_t index, const SpeedDialEntry& entry,
            const SpeedDialEntry& offered) noexcept;

 private:
  void Fill(const SpeedDialEntry& shown) noexcept;
  void OnButton(int id) override;
  void Save();

  ISpeedDialStore& m_store;
  IMessagePopup& m_messages;
  size_t m_index = 0;
};

}  // namespace quor

#endif
