#include "toolbar/control_faces.h"

#include <gtest/gtest.h>

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

TEST_F(ControlFaces, EndWithTheTenthEntry) {
  configuration.callerLists.resize(12);
  EXPECT_TRUE(Faces().Caller(9).visible);
  EXPECT_FALSE(Faces().Caller(10).visible);
  EXPECT_TRUE(Faces().SpeedDial(9).visible);
  EXPECT_FALSE(Faces().SpeedDial(10).visible);
}

}  // namespace
}  // namespace quor
