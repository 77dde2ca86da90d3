#include <gtest/gtest.h>
#include <oleacc.h>

#include "dialogs/data_pop_dlg.h"
#include "dialogs/msg_pop_dlg.h"
#include "dialogs/simple_window.h"
#include "resources/resource_ids.h"
#include "telephone/telephone_state.h"
#include "tests/dialogs/dialog_stage.h"

namespace quor {
namespace {

struct CAnswers final : IAnswerHandler {
  explicit CAnswers(const CDialogStage& dialogStage) : stage(dialogStage) {}
  void OnAnswer(int slot) override {
    slots.push_back(slot);
    held = stage.Held();
    if (refuses) throw 1;
  }
  const CDialogStage& stage;
  std::vector<int> slots;
  HeldDuringCall held;
  bool refuses = false;
};

constexpr DWORD kQuietTime = 500;           // milliseconds
constexpr DWORD kQuiet = kQuietTime + 100;  // plus the clock's resolution

class CallerWindow : public testing::Test {
 protected:
  CallerWindow() { m_window.SetOutlookWindow(m_stage.outlook); }

  void Ring(int slot, CallerValue name = {L"Müller & Söhne", 0}) {
    m_window.Create();
    m_window.Fill(name, {L"5551234", 0}, slot);
    m_window.Show();
    RunLoop();
  }
  // Shows a call and waits until keys count.
  void RingAndWait(int slot) {
    Ring(slot);
    Sleep(kQuiet);
  }
  template <typename Strokes>
  std::string TypeWithoutPause(const Strokes& strokes);
  HWND Button(int id) { return GetDlgItem(VisibleDialog(), id); }
  bool CanAnswer() { return IsWindowEnabled(GetDlgItem(VisibleDialog(), IDOK)) != FALSE; }

  CDialogStage m_stage;
  CAnswers m_answers{m_stage};
  CSimpleWindow m_window{m_stage.host, m_answers};
};

TEST_F(CallerWindow, IsCreatedHiddenAndTakesNoFocus) {
  SetFocus(m_stage.outlook);
  ASSERT_EQ(m_window.Create(), S_OK);
  EXPECT_FALSE(m_window.IsVisible());
  EXPECT_EQ(GetFocus(), m_stage.outlook);
}

TEST_F(CallerWindow, SaysWhyANameIsMissing) {
  Ring(0, {L"", IDS_UNAVAILABLE_NAME_AND_NUMBER});
  EXPECT_EQ(TextOf(VisibleDialog(), IDC_CALLER_NAME), L"Unavailable Name & No.");
}

TEST_F(CallerWindow, FollowsTheLineOfItsSlotAlone) {
  struct {
    int slot;
    uint8_t states[3];
  } const own[] = {{0, {1, 2, 2}}, {1, {2, 1, 2}}, {2, {2, 2, 1}}, {5, {2, 2, 1}}};
  for (const auto& [slot, states] : own) {
    Ring(slot);
    for (const auto& [otherSlot, others] : own) {
      m_window.Follow(others[0], others[1], others[2]);
      const bool isOwn = std::equal(states, states + 3, others);
      EXPECT_EQ(m_window.IsVisible(), !isOwn) << slot << ' ' << otherSlot;
      Ring(slot);
    }
  }
}

TEST_F(CallerWindow, AnAnsweredCallStaysVisibleButCannotBeAnswered) {
  Ring(1);
  m_window.Follow(2, kStateInCall, 2);
  EXPECT_TRUE(m_window.IsVisible());
  EXPECT_FALSE(CanAnswer());
  EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDCANCEL);  // the keyboard still works
  m_window.Follow(2, kStateOtherCall, 2);
  EXPECT_FALSE(CanAnswer());
  Ring(1);
  EXPECT_TRUE(CanAnswer());
}

TEST_F(CallerWindow, IgnoresReportsWhileHidden) {
  Ring(0);
  m_window.Hide();
  m_window.Follow(kStateInCall, 1, 1);
  m_window.Show();
  EXPECT_TRUE(CanAnswer());
}

// Outlook may release the add-in, and unload it, inside any call that an answer causes.
TEST_F(CallerWindow, HoldsTheAddInWhileItAnswers) {
  Ring(0);
  SendMessageW(Button(IDOK), BM_CLICK, 0, 0);
  ASSERT_EQ(m_answers.slots.size(), 1u);
  EXPECT_GT(m_answers.held.references, 1u);
  EXPECT_GT(m_answers.held.moduleLocks, 0);  // held by the procedure that filters keys
  EXPECT_EQ(m_stage.addin.references, 1u);
  EXPECT_EQ(ModuleLockCount(), 0);
}

TEST_F(CallerWindow, IsUsedWithTheKeyboardAlone) {
  RingAndWait(3);
  PressKey(VK_RETURN);
  EXPECT_EQ(m_answers.slots, std::vector<int>{3});
  EXPECT_FALSE(m_window.IsVisible());

  RingAndWait(0);
  PressKey(VK_TAB);
  EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDCANCEL);
  PressKey(VK_RETURN);
  EXPECT_FALSE(m_window.IsVisible());
  RingAndWait(0);
  PressKey(VK_ESCAPE);
  EXPECT_FALSE(m_window.IsVisible());
  RingAndWait(0);
  PressAlt(L'c');
  EXPECT_FALSE(m_window.IsVisible());
  EXPECT_EQ(m_answers.slots, std::vector<int>{3});
  RingAndWait(4);
  PressAlt(L'a');
  EXPECT_EQ(m_answers.slots, (std::vector<int>{3, 4}));
}

// Shows a call, types, and returns what changed the window. If the machine pauses the typing for
// half a second, keys count; the typing is then repeated.
template <typename Strokes>
std::string CallerWindow::TypeWithoutPause(const Strokes& strokes) {
  std::string moved;
  DWORD start;
  do {
    m_answers.slots.clear();
    moved.clear();
    start = GetTickCount();
    Ring(0);
    strokes([&](const char* what) {
      if (m_window.IsVisible() && GetFocus() == Button(IDOK)) return;
      moved += what;
      moved += m_window.IsVisible() ? " (focus)\n" : " (hidden)\n";
    });
  } while (GetTickCount() - start >= kQuietTime);
  return moved;
}

// Typing while the window appears has no effect, whether it comes through the queue, through a loop
// that translates keys to characters, or directly to a control.
TEST_F(CallerWindow, AKeyMeantForAnotherWindowDoesNothing) {
  for (const WPARAM key : {VK_SPACE, VK_RETURN, VK_ESCAPE, VK_TAB, VK_RIGHT}) {
    EXPECT_EQ(TypeWithoutPause([&](const auto& check) {
                PressKey(key);
                check("posted");
                for (const HWND target : {Button(IDOK), Button(IDCANCEL), VisibleDialog()}) {
                  SendMessageW(target, WM_KEYDOWN, key, 1);
                  SendMessageW(target, WM_CHAR, key, 1);
                  SendMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
                  check("sent");
                }
              }),
              "")
        << key;
  }
  EXPECT_EQ(TypeWithoutPause([&](const auto& check) {
              for (const wchar_t letter : {L'a', L'c', L'C'}) {
                PressAlt(letter);
                SendMessageW(VisibleDialog(), WM_SYSCHAR, letter, 0x20000001);
                check("access key");
              }
              SendMessageW(VisibleDialog(), WM_SYSKEYDOWN, VK_F4, 0x20000001);
              check("Alt+F4");
            }),
            "");
}

// A key that was down before the window appeared and is released or repeated in it; also for the
// next call in the same window.
TEST_F(CallerWindow, AHeldKeyDoesNothingHoweverLong) {
  const auto isUnmoved = [&] { return m_window.IsVisible() && GetFocus() == Button(IDOK); };
  RingAndWait(0);
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_SPACE, 0x40000001);
  RunLoop();
  SendMessageW(Button(IDOK), WM_KEYUP, VK_SPACE, static_cast<LPARAM>(0xC0000001));
  EXPECT_TRUE(isUnmoved());
  Sleep(kQuiet);
  EXPECT_EQ(TypeWithoutPause([&](const auto& check) {
              PressKey(VK_SPACE);
              check("next call");
            }),
            "");
  SendMessageW(Button(IDOK), BM_CLICK, 0, 0);
  EXPECT_EQ(m_answers.slots, std::vector<int>{0}) << "the mouse works at once";
}

TEST_F(CallerWindow, GivesTheKeyboardBackWhereItWas) {
  const HWND mail = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20,
                                    m_stage.outlook, nullptr, nullptr, nullptr);
  const HWND other = CreateWindowExW(0, L"STATIC", L"Other", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9,
                                     nullptr, nullptr, nullptr, nullptr);
  SetActiveWindow(m_stage.outlook);
  SetFocus(mail);
  Ring(0);
  Ring(1);
  EXPECT_NE(GetFocus(), mail);
  m_window.Follow(2, kStateIdle, 2);
  EXPECT_EQ(GetFocus(), mail);
  Ring(0);
  SendMessageW(Button(IDCANCEL), BM_CLICK, 0, 0);
  EXPECT_EQ(GetFocus(), mail);

  Ring(0);
  SetActiveWindow(other);
  m_window.Hide();
  EXPECT_EQ(GetActiveWindow(), other) << "the user is elsewhere";
  SetActiveWindow(m_stage.outlook);
  SetFocus(mail);
  Ring(0);
  DestroyWindow(mail);
  m_window.Hide();
  EXPECT_FALSE(m_window.IsVisible());
  DestroyWindow(other);
}

TEST_F(CallerWindow, LeavesOtherWindowsTheirKeys) {
  Ring(0);
  PostMessageW(m_stage.outlook, WM_KEYDOWN, VK_TAB, 1);
  MSG message = {};
  PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_KEYDOWN));
}

TEST_F(CallerWindow, AnswersNoCallThatIsGone) {
  Ring(0);
  const HWND answer = GetDlgItem(VisibleDialog(), IDOK);
  m_window.Hide();
  SendMessageW(GetParent(answer), WM_COMMAND, IDOK, 0);
  Ring(1);
  m_window.Follow(2, kStateInCall, 2);
  SendMessageW(GetParent(answer), WM_COMMAND, IDOK, 0);
  EXPECT_TRUE(m_answers.slots.empty());
}

TEST_F(CallerWindow, LetsNothingEscapeFromAnAnswer) {
  m_answers.refuses = true;
  Ring(0);
  SendMessageW(GetDlgItem(VisibleDialog(), IDOK), BM_CLICK, 0, 0);
  EXPECT_NE(m_stage.lines.text.find("** Error : dialog message"), std::string::npos);
}

TEST_F(CallerWindow, LogsWhatItCannotShow) {
  m_window.Fill({L"Smith", 0}, {L"1", 0}, 0);
  EXPECT_EQ(m_stage.lines.text,
            "** CSimpleWindow::SetDlgItemText error.\n** CSimpleWindow::SetDlgItemText error.\n"
            "** CSimpleWindow::SetDlgItemText error.\n");
  m_window.Show();
  m_window.Follow(1, 1, 1);
  m_window.Destroy();
  EXPECT_FALSE(m_window.IsWindow());
}

std::vector<std::wstring> g_alerts;  // accessible names

void CALLBACK OnAlert(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
  IAccessible* accessible = nullptr;
  VARIANT self;
  BSTR name = nullptr;
  ASSERT_EQ(AccessibleObjectFromEvent(window, static_cast<DWORD>(object), static_cast<DWORD>(child),
                                      &accessible, &self),
            S_OK);
  ASSERT_EQ(accessible->get_accName(self, &name), S_OK);
  g_alerts.emplace_back(name);
  SysFreeString(name);
  accessible->Release();
}

TEST_F(CallerWindow, IsAnnouncedToAScreenReader) {
  ASSERT_EQ(CoInitialize(nullptr), S_OK);
  const HWINEVENTHOOK hook =
      SetWinEventHook(EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr, OnAlert,
                      GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
  g_alerts.clear();
  Ring(0);
  EXPECT_EQ(g_alerts, std::vector<std::wstring>{L"Incoming Call"});
  Ring(1);  // another call in the same window
  EXPECT_EQ(g_alerts.size(), 2u);
  UnhookWinEvent(hook);
  CoUninitialize();
}

TEST_F(CallerWindow, LeavesTheToolbarUncovered) {
  Ring(0);
  RECT own = {};
  RECT outlook = {};
  GetWindowRect(VisibleDialog(), &own);
  GetWindowRect(m_stage.outlook, &outlook);
  EXPECT_GE(own.top, outlook.top + (own.bottom - own.top));
  EXPECT_NEAR(own.left + own.right, outlook.left + outlook.right, 2);
}

class MessagePopUp : public testing::Test {
 protected:
  MessagePopUp() { m_popUp.SetOwner(m_stage.outlook); }

  CDialogStage m_stage;
  CMsgPopDlg m_popUp{m_stage.host};
};

TEST_F(MessagePopUp, ComesBackAfterItWasClosedOrItsOwnerWent) {
  m_popUp.ShowMessage(IDS_LINE_BUSY);
  PressKey(VK_RETURN);
  EXPECT_FALSE(m_popUp.IsVisible());
  m_popUp.ShowMessage(IDS_LINE_BUSY);
  SendMessageW(VisibleDialog(), WM_CLOSE, 0, 0);
  EXPECT_FALSE(m_popUp.IsVisible());
  EXPECT_TRUE(m_popUp.IsWindow());

  m_stage.CloseOutlook();
  EXPECT_FALSE(m_popUp.IsWindow());
  m_popUp.SetOwner(nullptr);
  m_popUp.ShowMessage(IDS_LINE_BUSY);
  EXPECT_TRUE(m_popUp.IsVisible());
}

TEST_F(MessagePopUp, AnOwnerThatIsNoWindowIsLogged) {
  m_popUp.SetOwner(reinterpret_cast<HWND>(0x7FFFFFF0));
  m_popUp.ShowMessage(IDS_LINE_BUSY);
  EXPECT_FALSE(m_popUp.IsWindow());
  EXPECT_EQ(m_stage.lines.text.find("** Error : message pop-up failed."), 0u);
}

TEST(LoadingWindow, IsDrawnBeforeTheLoadBegins) {
  CDialogStage stage;
  CDataPopDlg window(stage.host);
  ASSERT_EQ(window.Create(stage.outlook), S_OK);
  EXPECT_FALSE(window.IsVisible());
  window.Show();
  ASSERT_TRUE(window.IsVisible());
  EXPECT_FALSE(GetUpdateRect(GetWindow(VisibleDialog(), GW_CHILD), nullptr, FALSE));
  window.Hide();
  EXPECT_FALSE(window.IsVisible());
  EXPECT_TRUE(window.IsWindow());
}

}  // namespace
}  // namespace quor
