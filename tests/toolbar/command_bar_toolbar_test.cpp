#include "toolbar/command_bar_toolbar.h"

#include <gtest/gtest.h>

#include "resources/resource_loader.h"
#include "tests/toolbar/noted_actions.h"
#include "tests/toolbar/test_owner.h"
#include "toolbar/bar_position.h"
#include "workbench/commandbars/command_bars.h"

namespace quor {
namespace {

using workbench::BarFace;
using workbench::ControlFace;

constexpr wchar_t kBarName[] = L"Telephone Plug-in";

// A command-bar toolbar in the stand-in's command bars: the add-in's calls, the user's actions, and
// what is left behind.
class CommandBarToolbar : public testing::Test, protected IFaceSource, protected ILogWriter {
 protected:
  CommandBarToolbar() {
    m_state.record = {1, 1, 1, 1, 0b0011, 1, 1};
    m_state.cells.cellRegistered = 0b0111;
    m_configuration.callerLists = {{L"Tom & Co 555", L"Tom & Co", L"555"}};
    m_configuration.speedDials = {{L"Anna", L"123"}};
    m_configuration.histories = {{L"Anna", L"", L"123"}, {L"456", L"", L"456"}};
  }
  CControlFaces Faces() const override { return {m_state, m_configuration, m_resources}; }
  std::wstring DialText() const override { return {}; }
  void WriteLine(std::string_view) noexcept override {}

  void Create(const ToolBarRecord& place = {}) {
    m_toolbar.Create(CCommandBars(IDispatchPtr(m_bars.get())), kBarName, place, true);
  }
  // Fills everything that start-up fills.
  void Fill() {
    m_toolbar.ShowDialList();
    m_toolbar.PutCallFromCellButton();
    m_toolbar.PutCallerList();
    m_toolbar.PutSpeedDialButton();
    m_toolbar.SetDialText(L"456");
  }
  BarFace Bar() const {
    for (const BarFace& bar : m_bars->Faces()) {
      if (bar.name == kBarName) return bar;
    }
    return {};
  }
  ControlFace Face(std::vector<std::wstring> path) const {
    const std::vector<ControlFace> faces = m_bars->ControlFaces();
    const ControlFace* found = workbench::FindFace(faces, path);
    return found != nullptr ? *found : ControlFace{};
  }
  std::vector<size_t> ItemCounts() const {
    return {Bar().controls.size(), Face({L"Call from cell"}).items.size(),
            Face({L"Caller list"}).items.size(), Face({L"Speed dial"}).items.size(),
            Face({L"Speed dial Tag 10"}).items.size()};
  }

  TelephoneState m_state{};
  Configuration m_configuration;
  CResourceLoader m_resources{GetModuleHandleW(nullptr)};
  CDiagnosticLog m_log{*this};
  CNotedActions m_actions;
  CPictureLoader m_pictures{m_resources};
  workbench::CModel m_model;
  workbench::CModelPtr<workbench::CCommandBars> m_bars =
      workbench::MakeObject<workbench::CCommandBars>(
          m_model, std::make_shared<workbench::CControlRegistry>(),
          workbench::CCommandBars::Kind::Shown);
  CTestOwner m_owner;
  CCommandBarToolbar m_toolbar{*this, m_actions, m_pictures, m_owner, m_log};
};

TEST_F(CommandBarToolbar, HasItsSevenControlsInOrder) {
  Create();
  std::wstring captions;
  for (const ControlFace& control : Bar().controls) {
    const bool drawn = control.hasPicture && control.hasMask && control.showsCaption;
    captions += control.caption + (drawn ? L" with picture\n" : L"\n");
  }
  EXPECT_EQ(captions,
            L"Dial number\nCall from line1 with picture\nCall from line2 with picture\n"
            L"Call from cell\nCaller list\nSpeed dial\nOptions with picture\n");
}

TEST_F(CommandBarToolbar, ASecondFillMakesNoNewItemsAndHardlyAnyCalls) {
  Create();
  Fill();
  m_model.ResetFigures();
  m_toolbar.PutCallFromCellButton();
  m_toolbar.PutSpeedDialButton();
  EXPECT_EQ(m_model.TotalCalls(), 0u);
  m_state.record.cellSub = 0b0111;
  m_toolbar.PutCallFromCellButton();
  EXPECT_EQ(m_model.TotalCalls(), 1u);
}

// If Office reports our own setting as a change, it is ignored.
TEST_F(CommandBarToolbar, ItsOwnTextIsNoChange) {
  Create();
  const std::vector<std::wstring> box = {L"Telephone Dial Tag"};
  m_model.AddHook({"CommandBarComboBox.Text=", 1, [&] { m_bars->EnterText(box, L"1"); }});
  m_toolbar.SetDialText(L"1");
  EXPECT_TRUE(m_actions.Take().empty());
}

TEST_F(CommandBarToolbar, FloatsWhereItWasButOnTheScreen) {
  Create({1, 400, 30, 100, 200, 0, kBarIsFloating, 1});
  EXPECT_EQ(Bar().position, kBarIsFloating);
  EXPECT_EQ(Bar().left, 100);
  EXPECT_EQ(Bar().top, 200);
  m_toolbar.Delete();
  Create({1, 400, 30, 99999, 200, 0, kBarIsFloating, 1});  // on a monitor that is gone
  EXPECT_LT(Bar().left, GetSystemMetrics(SM_CXSCREEN));
}

const std::vector<size_t> kComplete = {7, 4, 10, 10, 4};
const std::vector<size_t> kNone = {0, 0, 0, 0, 0};

// Each call of the start-up fails once: afterwards the bar is complete or missing, and nothing is
// held. Later operations work.
TEST_F(CommandBarToolbar, SurvivesEveryFailure) {
  for (uint64_t call = 1;; ++call) {
    m_model.AddFault({"*", call, call, E_FAIL});
    const uint64_t before = m_model.FaultsFired();
    bool made = true;
    try {
      Create();
      Fill();
    } catch (const _com_error& error) {
      made = Bar().visible;
      EXPECT_EQ(error.Error(), E_FAIL);
    }
    m_model.WithdrawAll();
    if (made) Fill();
    EXPECT_EQ(ItemCounts(), made ? kComplete : kNone) << call;
    if (made) m_toolbar.Delete();
    m_toolbar.Release();
    ASSERT_TRUE(m_model.HeldFromOutside().empty()) << call;
    ASSERT_TRUE(m_model.AdvisedSinks().empty()) << call;
    if (m_model.FaultsFired() == before) break;
    ASSERT_LT(call, 2000u);
  }
}

// A status report arrives inside each call: the newest state is shown in the end.
TEST_F(CommandBarToolbar, ShowsTheNewestStateWhenARedrawInterruptsAnother) {
  for (uint64_t call = 1;; ++call) {
    bool interrupted = false;
    m_state.record.line1State = 1;
    m_configuration.speedDials[0].name = L"Anna";
    Create();
    m_model.AddHook({"*", call, [&] {
                       interrupted = true;
                       m_state.record.line1State = 3;
                       m_state.record.cellSub ^= 0b0111;
                       m_configuration.speedDials[0].name = L"Bert";
                       m_toolbar.Redraw();
                       Fill();
                     }});
    m_toolbar.Redraw();
    Fill();
    m_model.WithdrawAll();
    EXPECT_EQ(ItemCounts(), kComplete) << call;
    EXPECT_EQ(Face({L"Telephone Line1 Tag"}).caption,
              interrupted ? L"Disconnect line1" : L"Call from line1")
        << call;
    for (size_t cell = 0; cell < kCellCount; ++cell) {
      const std::wstring tag = L"Call from Cell Tag " + std::to_wstring(cell + 1);
      EXPECT_EQ(Face({tag}).enabled, (m_state.record.cellSub & 0b0111 & (1 << cell)) != 0) << call;
    }
    EXPECT_EQ(Face({L"Speed dial Tag 1"}).caption, interrupted ? L"Bert" : L"Anna") << call;
    m_toolbar.Delete();
    m_toolbar.Release();
    if (!interrupted) break;
    ASSERT_LT(call, 2000u);
  }
}

}  // namespace
}  // namespace quor
