#include "dialogs/dialog_keyboard.h"

#include <iterator>

#include "module/module.h"

namespace quor {
namespace {

// Window property with the dialog's filter; Windows calls the hook without any context.
constexpr wchar_t kFilter[] = L"QuorTelephoneToolbarDialog";

bool IsKeyboardMessage(UINT message) noexcept {
  return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

bool BeginsWith(HWND button, wchar_t letter) noexcept {
  wchar_t text[64];
  const int length = GetWindowTextW(button, text, static_cast<int>(std::size(text)));
  if (length == 0) return false;
  for (const wchar_t character : text) {
    if (character == L'\0') break;
    if (character == L'&') return false;  // has an access key of its own
  }
  CharUpperBuffW(text, 1);
  return text[0] == letter;
}

// The pop-ups' button texts are fixed and have no "&": Alt and the first letter presses a button.
bool PressByFirstLetter(HWND dialog, const MSG& message) noexcept {
  if (message.message != WM_SYSCHAR) return false;
  auto letter = static_cast<wchar_t>(message.wParam);
  CharUpperBuffW(&letter, 1);
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    const LRESULT code = SendMessageW(child, WM_GETDLGCODE, 0, 0);
    if ((code & DLGC_BUTTON) == 0 || !IsWindowEnabled(child) || !BeginsWith(child, letter)) {
      continue;
    }
    SendMessageW(child, BM_CLICK, 0, 0);
    return true;
  }
  return false;
}

// Whether the key belongs to one of our dialogs and was used or discarded there.
bool IsHandled(MSG& message) noexcept {
  const HWND dialog = GetAncestor(message.hwnd, GA_ROOT);
  if (dialog == nullptr) return false;
  auto* filter = static_cast<IKeyFilter*>(GetPropW(dialog, kFilter));
  if (filter == nullptr) return false;
  return !filter->AdmitsKey(message) || PressByFirstLetter(dialog, message) ||
         IsDialogMessageW(dialog, &message) != FALSE;
}

LRESULT CALLBACK GetMessageHook(int code, WPARAM removed, LPARAM parameter) {
  // A key may close the dialog and end the add-in. Nothing of either is used afterwards, but this
  // code must stay loaded.
  const CModuleLock loaded;
  auto& message = *reinterpret_cast<MSG*>(parameter);
  if (code == HC_ACTION && removed == PM_REMOVE && IsKeyboardMessage(message.message) &&
      IsHandled(message)) {
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removed, parameter);
}

}  // namespace

void CDialogKeyboard::Attach(HWND dialog, IKeyFilter& filter) noexcept {
  if (m_hook != nullptr) return;
  m_dialog = dialog;
  m_hook = SetWindowsHookExW(WH_GETMESSAGE, GetMessageHook, nullptr, GetCurrentThreadId());
  SetPropW(dialog, kFilter, &filter);
}

void CDialogKeyboard::Detach() noexcept {
  if (m_hook == nullptr) return;
  RemovePropW(m_dialog, kFilter);
  UnhookWindowsHookEx(m_hook);
  m_hook = nullptr;
}

}  // namespace quor
