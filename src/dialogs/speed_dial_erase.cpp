#include "dialogs/speed_dial_erase.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"

namespace quor {

CSpeedDialErase::CSpeedDialErase(const DialogHost& host, ISpeedDialStore& store) noexcept
    : CModelessDialog(host, IDD_SPEED_DIAL_ERASE), m_store(store) {}

void CSpeedDialErase::Open(HWND outlook, size_t index, const SpeedDialEntry& entry) noexcept {
  GuardCall(m_log, "speed dial erasure", [&] {
    RequireWindow(outlook);
    m_index = index;
    const std::wstring shown = entry.name + L"  " + entry.number;
    SetWindowTextW(Control(IDC_ERASE_ENTRY), shown.c_str());
    ShowInFront(outlook, CentreOver);
  });
}

void CSpeedDialErase::OnButton(int id) {
  Hide();
  if (id == IDOK) m_store.EraseEntry(m_index);
}

}  // namespace quor
