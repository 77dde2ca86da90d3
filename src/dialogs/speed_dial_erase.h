#ifndef QUOR_DIALOGS_SPEED_DIAL_ERASE_H
#define QUOR_DIALOGS_SPEED_DIAL_ERASE_H

#include "dialogs/modeless_dialog.h"
#include "dialogs/speed_dial_store.h"

namespace quor {

// Asks for confirmation before a speed dial entry is erased: "Erase ?" with the entry.
class CSpeedDialErase final : public CModelessDialog {
 public:
  // All must outlive the window.
  CSpeedDialErase(const DialogHost& host, ISpeedDialStore& store) noexcept;

  // Shows the window for the entry at `index`. If it is already open for another entry, it changes
  // to this one. The owner is Outlook's main window, or null.
  void Open(HWND outlook, size_t index, const SpeedDialEntry& entry) noexcept;

 private:
  void OnButton(int id) override;

  ISpeedDialStore& m_store;
  size_t m_index = 0;
};

}  // namespace quor

#endif
