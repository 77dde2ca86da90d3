#include <gtest/gtest.h>
// commctrl.h and oleacc.h need windows.h before them.
#include <windows.h>

#include <commctrl.h>
#include <oleacc.h>

#include <algorithm>

#include "com/com_pointers.h"
#include "dialogs/data_pop_dlg.h"
#include "dialogs/msg_pop_dlg.h"
#include "dialogs/name_reason.h"
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
  }
  const CDialogStage& stage;
  std::vector<int> slots;
  HeldDuringCall held;
};

constexpr DWORD kQuietTime = 500;           // milliseconds
constexpr DWORD kQuiet = kQuietTime + 100;  // plus the clock's resolution

class CallerWindow : public testing::Test {
 protected:
  CallerWindow() { m_window.SetOutlookWindow(m_stage.outlook); }

  void Ring(int slot, const CallerValue& name = {L"Müller & Söhne", 0}) {
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
  bool IsUnmoved() { return m_window.IsVisible() && GetFocus() == Button(IDOK); }
  template <typename Strokes>
  void ExpectUnmovedBy(const Strokes& strokes);
  HWND Button(int id) { return GetDlgItem(VisibleDialog(), id); }

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

TEST_F(CallerWindow, IsVisibleUntilItsOwnLineIsIdle) {
  const struct {
    int slot;
    uint8_t line1, line2, cell;
    bool visible;
  } rows[] = {{0, 2, 1, 1, true}, {0, 1, 2, 2, false}, {1, 1, 2, 1, true}, {1, 2, 1, 2, false},
              {2, 1, 1, 2, true}, {2, 2, 2, 1, false}, {5, 1, 1, 2, true}, {5, 2, 2, 1, false}};
  for (const auto& row : rows) {
    Ring(row.slot);
    m_window.Follow(row.line1, row.line2, row.cell);
    EXPECT_EQ(m_window.IsVisible(), row.visible) << row.slot;
  }
}

TEST_F(CallerWindow, TheKeyboardStillWorksWhenACallIsAnswered) {
  Ring(1);
  m_window.Follow(2, kStateInCall, 2);
  EXPECT_FALSE(IsWindowEnabled(Button(IDOK)));
  EXPECT_EQ(GetFocus(), Button(IDCANCEL));
  m_window.Follow(2, kStateOtherCall, 2);
  EXPECT_FALSE(IsWindowEnabled(Button(IDOK)));
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
  const struct {
    std::vector<WPARAM> keys;
    wchar_t withAlt;
    bool answers;
  } rows[] = {{{VK_RETURN}, 0, true},
              {{VK_TAB, VK_RETURN}, 0, false},
              {{VK_ESCAPE}, 0, false},
              {{}, L'c', false},
              {{}, L'a', true}};
  for (const auto& row : rows) {
    m_answers.slots.clear();
    RingAndWait(3);
    for (const WPARAM key : row.keys)
      PressKey(key);
    if (row.withAlt != 0) PressAlt(row.withAlt);
    EXPECT_FALSE(m_window.IsVisible());
    EXPECT_EQ(m_answers.slots, std::vector<int>(row.answers, 3));
  }
}

// Shows a call and types. If the machine pauses the typing for half a second, keys count; the
// typing is then repeated.
template <typename Strokes>
void CallerWindow::ExpectUnmovedBy(const Strokes& strokes) {
  bool unmoved;
  DWORD start;
  do {
    start = GetTickCount();
    Ring(0);
    strokes();
    unmoved = IsUnmoved();
  } while (GetTickCount() - start >= kQuietTime);
  EXPECT_TRUE(unmoved);
}

// Typing while the window appears has no effect, whether it comes through the queue, through a loop
// that translates keys to characters, or directly to a control.
TEST_F(CallerWindow, AKeyMeantForAnotherWindowDoesNothing) {
  for (const WPARAM key : {VK_SPACE, VK_RETURN, VK_ESCAPE, VK_TAB, VK_RIGHT}) {
    SCOPED_TRACE(key);
    ExpectUnmovedBy([key] { PressKey(key); });
    ExpectUnmovedBy([&] {
      for (const HWND target : {Button(IDOK), Button(IDCANCEL), VisibleDialog()}) {
        SendMessageW(target, WM_KEYDOWN, key, 1);
        SendMessageW(target, WM_CHAR, key, 1);
        SendMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
      }
    });
  }
  ExpectUnmovedBy([] {
    for (const wchar_t letter : {L'a', L'c', L'C'}) {
      PressAlt(letter);
      SendMessageW(VisibleDialog(), WM_SYSCHAR, letter, 0x20000001);
    }
    SendMessageW(VisibleDialog(), WM_SYSKEYDOWN, VK_F4, 0x20000001);
  });
}

// A key that was down before the window appeared and is released or repeated in it; also for the
// next call in the same window.
TEST_F(CallerWindow, AHeldKeyDoesNothingHoweverLong) {
  RingAndWait(0);
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_SPACE, 0x40000001);
  RunLoop();
  SendMessageW(Button(IDOK), WM_KEYUP, VK_SPACE, static_cast<LPARAM>(0xC0000001));
  EXPECT_TRUE(IsUnmoved());
  Sleep(kQuiet);
  ExpectUnmovedBy([] { PressKey(VK_SPACE); });
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

CSimpleWindow* g_answered;

LRESULT CALLBACK ShowNextCall(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_SETFOCUS) g_answered->Fill({L"Next", 0}, {L"1", 0}, 1);
  return DefWindowProcW(window, message, first, second);
}

// A window may run a message loop when the focus returns to it.
TEST_F(CallerWindow, AnswersTheCallWhoseButtonWasPressed) {
  SetFocus(m_stage.outlook);
  Ring(0);
  g_answered = &m_window;
  SetWindowLongPtrW(m_stage.outlook, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ShowNextCall));
  SendMessageW(Button(IDOK), BM_CLICK, 0, 0);
  EXPECT_EQ(m_answers.slots, std::vector<int>{0});
}

// The window may move to a monitor with another scale when it is shown.
TEST_F(CallerWindow, ExplainsTheNameWhereItIsShown) {
  m_window.Create();
  m_window.Fill({L"Anna", 0, MatchReason{10, 9, 11, 0}}, {L"1", 0}, 0);
  MoveWindow(GetDlgItem(m_window.Window(), IDC_CALLER_NAME), 50, 60, 70, 20, FALSE);
  m_window.Show();
  HWND tip = nullptr;
  do {
    tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr);
  } while (tip != nullptr && GetWindow(tip, GW_OWNER) != m_window.Window());
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  ASSERT_TRUE(SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)));
  const RECT shown = {50, 60, 120, 80};
  EXPECT_TRUE(EqualRect(&tool.rect, &shown));
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

std::wstring NameOf(IAccessible& accessible) {
  _bstr_t name;
  accessible.get_accName(_variant_t(0L), name.GetAddress());
  return TextFromBstr(name);
}
std::wstring DescriptionOf(IAccessible& accessible) {
  _bstr_t description;
  accessible.get_accDescription(_variant_t(0L), description.GetAddress());
  return TextFromBstr(description);
}
class SpokenCallerWindow : public CallerWindow {
 protected:
  SpokenCallerWindow() { CoInitialize(nullptr); }
  ~SpokenCallerWindow() override {
    m_window.Destroy();
    CoUninitialize();
  }
};

std::vector<std::wstring> g_alerts;  // role, accessible name and description

void CALLBACK OnAlert(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
  IAccessible* accessible = nullptr;
  VARIANT self;
  ASSERT_EQ(AccessibleObjectFromEvent(window, static_cast<DWORD>(object), static_cast<DWORD>(child),
                                      &accessible, &self),
            S_OK);
  VARIANT role = {};
  ASSERT_EQ(accessible->get_accRole(self, &role), S_OK);
  g_alerts.push_back(std::to_wstring(role.lVal) + L": " + NameOf(*accessible) + L". " +
                     DescriptionOf(*accessible));
  accessible->Release();
}

// Even if another window stays in front.
TEST_F(SpokenCallerWindow, AnnouncesTheCaller) {
  const HWINEVENTHOOK hook =
      SetWinEventHook(EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr, OnAlert,
                      GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
  g_alerts.clear();
  Ring(0);
  Ring(1, {L"Lee, Anna", 0, MatchReason{10, 9, 11, 0}});  // another call in the same window
  Ring(1, {L"", IDS_PRIVATE_CALLER});
  m_window.Fill({L"", IDS_UNAVAILABLE_NAME_AND_NUMBER}, {L"", IDS_UNAVAILABLE_NUMBER}, 0);
  m_window.Show();
  RunLoop();
  EXPECT_EQ(g_alerts,
            (std::vector<std::wstring>{
                L"8: Incoming Call: Müller & Söhne. ",
                L"8: Incoming Call: Lee, Anna. 9 of 11 digits: Mobile of Lee, Anna",
                L"8: Incoming Call: 5551234. ", L"8: Incoming Call: Unavailable Name & No.. "}));
  UnhookWinEvent(hook);
}

TEST(NameReason, CountsDigitsAndOtherContacts) {
  const CDialogStage stage;
  const std::pair<CallerValue, const wchar_t*> rows[] = {
      {{L"100 %1 & Co", 0, MatchReason{2, 12, 14, 2}},
       L"12 of 14 digits: Business of 100 %1 & Co\r\n2 more contacts end in these digits"},
      {{L"N", 0, MatchReason{1, 6, 10, 0}},
       L"6 of 10 digits: Assistant of N\r\nNo other contact ends in these digits"},
      {{L"N", 0, MatchReason{1, 4, 4, 0}}, L"4 of 4 digits: Assistant of N"},
      {{L"", IDS_UNKNOWN, MatchReason{1, 9, 9, 0}}, L""}};
  for (const auto& [name, reason] : rows)
    EXPECT_EQ(NameReason(name, stage.resources), reason);
}

// A screen reader may keep what it has asked for, and ask on when the window is gone.
TEST_F(SpokenCallerWindow, SurvivesAScreenReaderThatHoldsOn) {
  Ring(0, {L"Anna", 0, MatchReason{10, 9, 11, 0}});
  IAccessible* accessible = nullptr;
  ASSERT_EQ(
      AccessibleObjectFromWindow(VisibleDialog(), static_cast<DWORD>(OBJID_CLIENT),
                                 __uuidof(IAccessible), reinterpret_cast<void**>(&accessible)),
      S_OK);
  Ring(0, {L"Ben", 0});
  EXPECT_EQ(NameOf(*accessible), L"Incoming Call: Ben") << "as it is now";
  LONG children = 0;
  EXPECT_EQ(accessible->get_accChildCount(&children), S_OK);
  EXPECT_EQ(children, 8);
  EXPECT_GT(ModuleLockCount(), 0);
  m_window.Destroy();
  NameOf(*accessible);
  DescriptionOf(*accessible);
  accessible->get_accChildCount(&children);
  EXPECT_EQ(accessible->Release(), 0u);
  EXPECT_EQ(ModuleLockCount(), 0);
}

TEST_F(CallerWindow, IsDrawnInTheColoursOfHighContrast) {
  constexpr COLORREF kBackground = RGB(0, 0, 0);
  constexpr COLORREF kText = RGB(255, 255, 0);
  constexpr int kElements[] = {COLOR_BTNFACE, COLOR_WINDOWTEXT, COLOR_BTNTEXT};
  constexpr COLORREF kScheme[] = {kBackground, kText, kText};
  COLORREF before[3];
  std::transform(std::begin(kElements), std::end(kElements), before, GetSysColor);
  SetSysColors(3, kElements, kScheme);
  Ring(0);
  const HDC context = CreateCompatibleDC(nullptr);
  for (const int id : {IDC_CALLER_LINE, IDC_CALLER_NAME, IDC_CALLER_NUMBER}) {
    const auto brush = reinterpret_cast<HBRUSH>(
        SendMessageW(VisibleDialog(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(GetDlgItem(VisibleDialog(), id))));
    LOGBRUSH drawn = {};
    GetObjectW(brush, sizeof drawn, &drawn);
    EXPECT_EQ(drawn.lbColor, kBackground);
    EXPECT_EQ(GetBkColor(context), kBackground);
    EXPECT_EQ(GetTextColor(context), kText);
  }
  DeleteDC(context);
  SetSysColors(3, kElements, before);
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

TEST(MessagePopUp, AnOwnerThatIsNoWindowIsLogged) {
  CDialogStage stage;
  CMsgPopDlg popUp(stage.host);
  popUp.SetOwner(reinterpret_cast<HWND>(0x7FFFFFF0));
  popUp.ShowMessage(IDS_LINE_BUSY);
  EXPECT_FALSE(popUp.IsWindow());
  EXPECT_EQ(stage.lines.text.find("** Error : message pop-up failed."), 0u);
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
