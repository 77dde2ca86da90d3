#include "toolbar/control_faces.h"

#include <gtest/gtest.h>

#include <set>

#include "resources/resource_ids.h"
#include "tests/toolbar/faces_fixture.h"
#include "toolbar/toolbar_layout.h"

namespace quor {
namespace {

class ControlFaces : public testing::Test, protected FacesFixture {};

TEST_F(ControlFaces, AreDrawnWithAnswerOnlyWhileAButtonCanAnswer) {
  Lines(2, 2, 2, 17);
  EXPECT_EQ(Faces().BarControl(kCallFromCellControl).caption, L"#1148");
  EXPECT_TRUE(Faces().BarControl(kCallFromCellControl).enabled);
  Lines(2, 2, 2, 18);
  EXPECT_FALSE(Faces().BarControl(kCallFromCellControl).enabled);
  Lines(0, 2, 2, 1);
  EXPECT_FALSE(Faces().BarControl(kLine1Control).enabled);
  EXPECT_TRUE(Faces().Control(kLine1Control, true).enabled);
}

TEST_F(ControlFaces, CellsAreEnabledByRegistrationAndAvailability) {
  state.cells.cellRegistered = 0b0111;
  state.record.cellSub = 0b1001;
  state.caller.popupLine = 0x12;
  EXPECT_TRUE(Faces().Cell(0).enabled);
  EXPECT_TRUE(Faces().Cell(1).enabled);   // its pop-up is open
  EXPECT_FALSE(Faces().Cell(2).enabled);  // registered but not available
  EXPECT_FALSE(Faces().Cell(3).enabled);  // available but not registered
  EXPECT_EQ(Faces().Cell(3).caption, L"#1147");
  EXPECT_EQ(Faces().Cell(4).caption, L"");
}

TEST_F(ControlFaces, SpeedDialOffersWhatCanBeDone) {
  configuration.speedDials = {{L"Anna", L"123"}, {L"", L""}, {L"", L"456"}};
  EXPECT_EQ(Faces().SpeedDial(0).caption, L"Anna");
  EXPECT_EQ(Faces().SpeedDial(1).caption, L"#1162");
  EXPECT_EQ(Faces().SpeedDial(2).caption, L"456");
  EXPECT_EQ(Faces().SpeedDial(9).caption, L"#1162");
  EXPECT_FALSE(Faces().SpeedDial(10).visible);
  for (const auto action : {SpeedDialAction::Call, SpeedDialAction::Edit, SpeedDialAction::Erase}) {
    EXPECT_TRUE(Faces().SpeedDial(0, action).visible);
    EXPECT_FALSE(Faces().SpeedDial(1, action).visible);
  }
  EXPECT_FALSE(Faces().SpeedDial(0, SpeedDialAction::Add).visible);
  EXPECT_TRUE(Faces().SpeedDial(1, SpeedDialAction::Add).enabled);
  EXPECT_EQ(Faces().SpeedDial(1, SpeedDialAction::Add).caption, L"#1171");
}

TEST_F(ControlFaces, ACallersCaptionIsCutBeforeItsAmpersandsAreDoubled) {
  configuration.callerLists = {{L"Tom & " + std::wstring(60, L'x'), L"", L""}};
  EXPECT_EQ(Faces().Caller(0).caption, L"Tom && " + std::wstring(44, L'x'));
  EXPECT_EQ(MenuCaption(std::wstring(60, L'x')), std::wstring(50, L'x'));
}

TEST(ToolbarLayout, EveryTagIsUnique) {
  std::set<std::wstring> tags;
  size_t count = 0;
  const auto add = [&](const std::wstring& tag) { tags.insert(tag), ++count; };
  for (const ControlLayout& layout : kToolbarLayout)
    add(layout.tag);
  for (size_t i = 0; i < 10; ++i) {
    add(ItemTag(LayoutOf(kCallFromCellControl), i));
    add(ItemTag(LayoutOf(kCallerListControl), i));
    add(ItemTag(LayoutOf(kSpeedDialControl), i));
    for (const auto action : {SpeedDialAction::Call, SpeedDialAction::Add, SpeedDialAction::Edit,
                              SpeedDialAction::Erase}) {
      add(SpeedDialItemTag(i, action));
    }
  }
  EXPECT_EQ(tags.size(), count);
}

TEST(CallerMenu, ShowsFiftyUnitsAndHidesTheRest) {
  FacesFixture fixture;
  const std::wstring label(49, L'x');
  fixture.configuration.callerLists = {
      {label + L"yz", L"", L""},
      {label + std::wstring{wchar_t{0xD83D}, wchar_t{0xDE00}}, L"", L""},
      {L"Tom & Co", L"", L""}};
  EXPECT_EQ(fixture.Faces().Caller(0).caption, label + L"y");
  EXPECT_EQ(fixture.Faces().Caller(1).caption, label) << "no half character";
  EXPECT_EQ(fixture.Faces().Caller(2).caption, L"Tom && Co") << "no access key";
  for (size_t entry = 0; entry < 12; ++entry) {
    EXPECT_EQ(fixture.Faces().Caller(entry).visible, entry < 3);
    EXPECT_EQ(fixture.Faces().Caller(entry).enabled, entry < 3);
  }
  fixture.configuration.callerLists.resize(12);
  EXPECT_TRUE(fixture.Faces().Caller(9).visible);
  EXPECT_FALSE(fixture.Faces().Caller(10).visible);
}

}  // namespace
}  // namespace quor
