#ifndef QUOR_DIALOGS_SIMPLE_WINDOW_H
#define QUOR_DIALOGS_SIMPLE_WINDOW_H

#include <cstdint>
#include <string>
#include <string_view>

#include "dialogs/accessible_texts.h"
#include "dialogs/focus_return.h"
#include "dialogs/key_guard.h"
#include "dialogs/modeless_dialog.h"
#include "dialogs/tool_tip.h"
#include "telephone/collaborators.h"

namespace quor {

// Handles the "Answer" button. Called inside a boundary: exceptions are allowed.
class IAnswerHandler {
 public:
  // Slot of the call shown: 0 Line1, 1 Line2, 2 to 5 Cell1 to Cell4.
  virtual void OnAnswer(int slot) = 0;

 protected:
  ~IAnswerHandler() = default;
};

// The simple caller window: caller and line, with the buttons "Answer" and "Close", both of which
// hide it. It follows the line's state until the call ends.
//
// The window comes to the front by itself, so a key meant for another window must not answer the
// call: keys have no effect until half a second has passed without one (key_quiet.h). When the
// window is hidden, the focus returns to where it was.
class CSimpleWindow final : public CModelessDialog {
 public:
  // All must outlive the window.
  CSimpleWindow(const DialogHost& host, IAnswerHandler& answer) noexcept;
  ~CSimpleWindow() { Destroy(); }

  // Creates the window hidden and without an owner, so that a call is visible while Outlook is
  // minimised.
  HRESULT Create() noexcept { return CreateHidden(nullptr); }
  // Outlook's main window, which determines the monitor; null if unknown.
  void SetOutlookWindow(HWND outlook) noexcept { m_outlook = outlook; }

  void Fill(const CallerValue& name, const CallerValue& number, int slot);
  void Show();
  void Hide();
  void Follow(uint8_t line1, uint8_t line2, uint8_t cell);

 private:
  void OnCreated() override;
  void OnActivation(bool active) override;
  void OnButton(int id) override;
  bool AdmitsKey(const MSG& message) noexcept override;

  // Sets the announcement for screen readers, and the reason for the name as its description and
  // its tooltip.
  void Explain(const CallerValue& name, const CallerValue& number);
  std::wstring Shown(const CallerValue& value) const;
  void SetCaptionText(std::wstring_view text);
  void SetItemText(int id, std::wstring_view text);

  IAnswerHandler& m_answer;
  HWND m_outlook = nullptr;
  int m_slot = 0;
  unsigned m_shown = 0;  // number of times it was shown
  CKeyGuard m_keys;
  CAccessibleTexts m_announcement;   // of the window
  CAccessibleTexts m_nameExplained;  // of the name
  CToolTip m_nameTip;
  CFocusReturn m_focus;
};

}  // namespace quor

#endif
