#ifndef QUOR_DIALOGS_SPEED_DIAL_ERASE_H
#define QUOR_DIALOGS_SPEED_DIAL_ERASE_H

#include "dialogs/modeless_dialog.h"
#include "dialogs/speed_dial_store.h"

namespace quor {

// Asks before a speed dial entry is erased: "Erase ?", and which one.
class CSpeedDialErase final : public CModelessDialog {
 public:
  // All must outlive the window.
  CSpeedDialErase(const DialogHost& host, ISpeedDialStore& store) noexcept;

  // Shows the window for the entry at `index`; opened for another entry it asks about that one
  // instead. The owner is Outlook's main window; null when there is none.
  void Open(HWND outlook, size_t index, const SpeedDialEntry& entry) noexcept;

 private:
  void OnButton(int id) override;

  ISpeedDialStore& m_store;
  size_t m_index = 0;
};

}  // namespace quor

#endif
