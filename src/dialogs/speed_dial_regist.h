#ifndef QUOR_DIALOGS_SPEED_DIAL_REGIST_H
#define QUOR_DIALOGS_SPEED_DIAL_REGIST_H

#include "dialogs/modeless_dialog.h"
#include "dialogs/speed_dial_store.h"
#include "telephone/collaborators.h"

namespace quor {

// Adds or edits a speed dial entry: "Name:", "Number:", "Save". Blanks and punctuation in a number
// are dropped. If a number cannot be dialled, the dialler's message is shown and the window stays
// open.
class CSpeedDialRegist final : public CModelessDialog {
 public:
  // All must outlive the window.
  CSpeedDialRegist(const DialogHost& host, ISpeedDialStore& store,
                   IMessagePopup& messages) noexcept;

  // Shows the window for the entry at `index`, filled with the entry, or with `offered` if the
  // entry is empty. The offered number is reduced to its dial characters. If the window is already
  // open for another entry, it is filled again. The owner is Outlook's main window, or null.
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
