#include "resources/placement.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

constexpr ScreenArea kWork = {0, 0, 1920, 1040};

TEST(Placement, CentresOverTheAnchor) {
  EXPECT_EQ(CentreOver({100, 100, 1100, 900}, 400, 200, kWork), (ScreenPoint{400, 400}));
}

TEST(Placement, StaysInsideTheWorkAreaOfItsMonitor) {
  const ScreenArea second = {-1280, 0, 0, 984};
  EXPECT_EQ(CentreOver({-1380, 900, -1180, 1000}, 400, 200, second), (ScreenPoint{-1280, 784}));
  EXPECT_EQ(CentreOver({-100, -100, 40, 20}, 400, 200, second), (ScreenPoint{-400, 0}));
  // Larger than the screen: the title bar stays reachable.
  EXPECT_EQ(CentreOver(second, 2000, 1500, second), (ScreenPoint{-1280, 0}));
}

TEST(Placement, CallerWindowLeavesTheToolbarFree) {
  // High enough to be centred.
  EXPECT_EQ(CentreBelowToolbar({0, 0, 1000, 900}, 400, 200, kWork), (ScreenPoint{300, 350}));
  // A low Outlook window: below its toolbar, even if that is below the window.
  EXPECT_EQ(CentreBelowToolbar({0, 100, 1000, 400}, 400, 200, kWork), (ScreenPoint{300, 300}));
  // Outlook on the second monitor and larger than it: completely visible there.
  EXPECT_EQ(CentreBelowToolbar({-1300, -20, 20, 1060}, 400, 200, {-1280, 0, 0, 984}),
            (ScreenPoint{-840, 420}));
  // No room below: the screen's edge limits it.
  EXPECT_EQ(CentreBelowToolbar({0, 800, 1000, 1040}, 400, 200, kWork), (ScreenPoint{300, 840}));
}

}  // namespace
}  // namespace quor
