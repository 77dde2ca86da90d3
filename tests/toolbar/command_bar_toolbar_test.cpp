#include "toolbar/command_bar_toolbar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/toolbar/bar_stage.h"
#include "toolbar/bar_position.h"

namespace quor {
namespace {

using testing::ElementsAre;
using workbench::ControlFace;

class CommandBarToolbar : public testing::Test, public CBarStage {};

TEST_F(CommandBarToolbar, HasItsSevenControlsInOrder) {
  Create();
  std::vector<std::wstring> captions;
  std::vector<bool> drawn;
  for (const ControlFace& control : Bar().controls) {
    captions.push_back(control.caption);
    drawn.push_back(control.hasPicture && control.hasMask && control.showsCaption);
  }
  EXPECT_THAT(captions, ElementsAre(L"Dial number", L"Call from line1", L"Call from line2",
                                    L"Call from cell", L"Caller list", L"Speed dial", L"Options"));
  EXPECT_THAT(drawn, ElementsAre(false, true, true, false, false, false, true));
}

TEST_F(CommandBarToolbar, ASecondFillMakesNoNewItemsAndHardlyAnyCalls) {
  Create();
  Fill();
  model.ResetFigures();
  toolbar.PutCallFromCellButton();
  toolbar.PutSpeedDialButton();
  EXPECT_EQ(model.TotalCalls(), 0u);
  state.record.cellSub = 0b0111;
  toolbar.PutCallFromCellButton();
  EXPECT_EQ(model.TotalCalls(), 1u);
  EXPECT_TRUE(Face({L"Call from cell", L"Cell3"}).enabled);
}

// If Office reports our own setting as a change, it is ignored.
TEST_F(CommandBarToolbar, ItsOwnTextIsNoChange) {
  Create();
  const std::vector<std::wstring> box = {L"Telephone Dial Tag"};
  model.AddHook({"CommandBarComboBox.Text=", 1, [&] { bars->EnterText(box, L"1"); }});
  toolbar.SetDialText(L"1");
  EXPECT_TRUE(actions.Take().empty());
}

TEST_F(CommandBarToolbar, FloatsWhereItWasButOnTheScreen) {
  Create();
  bars->MoveBar(kBarName, static_cast<workbench::mso::BarPosition>(kBarIsFloating), 100, 200, 0);
  ToolBarRecord place;
  toolbar.SavePlace(place);
  toolbar.Delete();
  Create(place);
  EXPECT_EQ(Bar().position, kBarIsFloating);
  EXPECT_EQ(Bar().left, 100);
  EXPECT_EQ(Bar().top, 200);
  place.left = 99999;  // on a monitor that is gone
  toolbar.Delete();
  Create(place);
  EXPECT_LT(Bar().left, GetSystemMetrics(SM_CXSCREEN));
}

std::vector<size_t> ItemCounts(const CBarStage& stage) {
  return {stage.Bar().controls.size(), stage.Face({L"Call from cell"}).items.size(),
          stage.Face({L"Caller list"}).items.size(), stage.Face({L"Speed dial"}).items.size(),
          stage.Face({L"Speed dial Tag 10"}).items.size()};
}
const std::vector<size_t> kComplete = {7, 4, 10, 10, 4};
const std::vector<size_t> kNone = {0, 0, 0, 0, 0};

// Each call of the start-up fails once: afterwards the bar is complete or missing, and nothing is
// held. Later operations work.
TEST_F(CommandBarToolbar, SurvivesEveryFailure) {
  for (uint64_t call = 1;; ++call) {
    model.AddFault({"*", call, call, E_FAIL});
    const uint64_t before = model.FaultsFired();
    bool made = true;
    try {
      Create();
      Fill();
    } catch (const _com_error& error) {
      made = Bar().visible;
      EXPECT_EQ(error.Error(), E_FAIL);
    }
    model.WithdrawAll();
    if (made) Fill();
    EXPECT_EQ(ItemCounts(*this), made ? kComplete : kNone) << call;
    if (made) toolbar.Delete();
    toolbar.Release();
    ASSERT_TRUE(model.HeldFromOutside().empty()) << call;
    ASSERT_TRUE(model.AdvisedSinks().empty()) << call;
    if (model.FaultsFired() == before) break;
    ASSERT_LT(call, 2000u);
  }
}

// A status report arrives inside each call: the newest state is shown in the end.
TEST_F(CommandBarToolbar, ShowsTheNewestStateWhenARedrawInterruptsAnother) {
  for (uint64_t call = 1;; ++call) {
    bool interrupted = false;
    state.record.line1State = 1;
    configuration.speedDials[0].name = L"Anna";
    Create();
    model.AddHook({"*", call, [&] {
                     interrupted = true;
                     state.record.line1State = 3;
                     state.record.cellSub ^= 0b0111;
                     configuration.speedDials[0].name = L"Bert";
                     toolbar.Redraw();
                     Fill();
                   }});
    toolbar.Redraw();
    Fill();
    model.WithdrawAll();
    EXPECT_EQ(ItemCounts(*this), kComplete) << call;
    EXPECT_EQ(Face({L"Telephone Line1 Tag"}).caption,
              interrupted ? L"Disconnect line1" : L"Call from line1")
        << call;
    for (size_t cell = 0; cell < kCellCount; ++cell) {
      const std::wstring tag = L"Call from Cell Tag " + std::to_wstring(cell + 1);
      EXPECT_EQ(Face({tag}).enabled, (state.record.cellSub & 0b0111 & (1 << cell)) != 0) << call;
    }
    EXPECT_EQ(Face({L"Speed dial Tag 1"}).caption, interrupted ? L"Bert" : L"Anna") << call;
    toolbar.Delete();
    toolbar.Release();
    if (!interrupted) break;
    ASSERT_LT(call, 2000u);
  }
}

}  // namespace
}  // namespace quor
