#include <gtest/gtest.h>
#include <oleacc.h>

#include <algorithm>

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
  template <typename Strokes>
  std::string TypeWithoutPause(const Strokes& strokes);
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

TEST_F(CallerWindow, SaysWhyANameIsMissing) {
  Ring(0, {L"", IDS_UNAVAILABLE_NAME_AND_NUMBER});
  EXPECT_EQ(TextOf(VisibleDialog(), IDC_CALLER_NAME), L"Unavailable Name & No.");
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

std::wstring Taken(HRESULT result, BSTR text) {
  std::wstring taken(result == S_OK && text != nullptr ? text : L"");
  SysFreeString(text);
  return taken;
}
VARIANT Self() {
  VARIANT self = {};
  self.vt = VT_I4;
  return self;
}
std::wstring NameOf(IAccessible& accessible) {
  BSTR name = nullptr;
  const HRESULT result = accessible.get_accName(Self(), &name);
  return Taken(result, name);
}
std::wstring DescriptionOf(IAccessible& accessible) {
  BSTR description = nullptr;
  const HRESULT result = accessible.get_accDescription(Self(), &description);
  return Taken(result, description);
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
  Ring(1, {L"", IDS_UNAVAILABLE_NAME_AND_NUMBER});
  m_window.Fill({L"", IDS_PRIVATE_CALLER}, {L"", IDS_PRIVATE_CALLER}, 0);
  m_window.Show();
  RunLoop();
  EXPECT_EQ(g_alerts, (std::vector<std::wstring>{
                          L"8: Incoming Call: Müller & Söhne. ",
                          L"8: Incoming Call: Lee, Anna. 9 of 11 digits: Mobile of Lee, Anna",
                          L"8: Incoming Call: 5551234. ", L"8: Incoming Call: Private caller. "}));
  UnhookWinEvent(hook);
}

TEST(NameReason, CountsDigitsAndOtherContacts) {
  const CDialogStage stage;
  const std::pair<CallerValue, const wchar_t*> rows[] = {
      {{L"100 %1 & Co", 0, MatchReason{2, 12, 14, 2}},
       L"12 of 14 digits: Business of 100 %1 & Co\r\n2 more contacts end in these digits"},
      {{L"N", 0, MatchReason{12, 7, 7, 0}}, L"7 of 7 digits: Primary of N"},
      {{L"N", 0, MatchReason{1, 6, 10, 0}},
       L"6 of 10 digits: Assistant of N\r\nNo other contact ends in these digits"},
      {{L"N", 0, MatchReason{1, 4, 4, 0}}, L"4 of 4 digits: Assistant of N"},
      {{L"", IDS_UNKNOWN, MatchReason{1, 9, 9, 0}}, L""},
      {{L"N", 0}, L""}};
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

// As high contrast sets them; gives the user's back.
class CBlackScheme {
 public:
  CBlackScheme() {
    std::transform(kElements, kElements + kCount, m_before, GetSysColor);
    SetSysColors(kCount, kElements, kColours);
  }
  ~CBlackScheme() { SetSysColors(kCount, kElements, m_before); }

  static constexpr COLORREF kBackground = RGB(0, 0, 0);
  static constexpr COLORREF kText = RGB(255, 255, 0);

 private:
  static constexpr int kCount = 3;
  static constexpr int kElements[kCount] = {COLOR_BTNFACE, COLOR_WINDOWTEXT, COLOR_BTNTEXT};
  static constexpr COLORREF kColours[kCount] = {kBackground, kText, kText};
  COLORREF m_before[kCount];
};

TEST_F(CallerWindow, IsDrawnInTheColoursOfHighContrast) {
  const CBlackScheme scheme;
  Ring(0);
  const HDC context = CreateCompatibleDC(nullptr);
  int texts = 0;
  for (HWND child = GetWindow(VisibleDialog(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    wchar_t name[32] = {};
    GetClassNameW(child, name, 32);
    if (std::wstring(name) != L"Static") continue;
    const auto brush = reinterpret_cast<HBRUSH>(SendMessageW(VisibleDialog(), WM_CTLCOLORSTATIC,
                                                             reinterpret_cast<WPARAM>(context),
                                                             reinterpret_cast<LPARAM>(child)));
    LOGBRUSH drawn = {};
    GetObjectW(brush, sizeof drawn, &drawn);
    EXPECT_EQ(drawn.lbColor, CBlackScheme::kBackground);
    EXPECT_EQ(GetBkColor(context), CBlackScheme::kBackground);
    EXPECT_EQ(GetTextColor(context), CBlackScheme::kText);
    ++texts;
  }
  EXPECT_EQ(texts, 6);
  DeleteDC(context);
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
