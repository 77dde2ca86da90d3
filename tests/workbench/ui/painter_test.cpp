#include "workbench/ui/painter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quor::workbench {
namespace {

ControlFace Control(ControlKind kind, int handle, const wchar_t* caption) {
  ControlFace face;
  face.kind = kind;
  face.handle = handle;
  face.caption = caption;
  return face;
}

std::vector<ControlFace> Controls() {
  std::vector<ControlFace> controls = {
      Control(ControlKind::ComboBox, 1, L"Dial"), Control(ControlKind::Button, 2, L"Line"),
      Control(ControlKind::Menu, 3, L"Cells"), Control(ControlKind::Button, 4, L"Hidden")};
  controls[0].entries = {L"111", L"222"};
  controls[1].enabled = false;
  controls[3].visible = false;
  return controls;
}

WindowFace Face(Skin skin) {
  WindowFace face;
  face.skin = skin;
  BarFace bar;
  bar.visible = true;
  bar.controls = Controls();
  face.bars = {bar};
  RibbonGroupFace group;
  group.insertBefore = L"GroupMailNew";
  group.controls = Controls();
  face.ribbon.groups = {group};
  return face;
}

const HitArea* HitOf(const std::vector<HitArea>& hits, HitArea::Kind kind, int handle) {
  const auto found = std::find_if(hits.begin(), hits.end(), [&](const HitArea& hit) {
    return hit.kind == kind && hit.handle == handle;
  });
  return found == hits.end() ? nullptr : &*found;
}

class Painter : public testing::TestWithParam<Skin> {};

TEST_P(Painter, EveryVisibleControlCanBeHit) {
  CCanvas canvas(800, 400, 100);
  SceneOptions scene;
  scene.width = 800;
  scene.height = 400;
  const std::vector<HitArea> hits = PaintWindow(canvas, Face(GetParam()), scene);
  EXPECT_TRUE(HitOf(hits, HitArea::Kind::ComboText, 1));
  EXPECT_TRUE(HitOf(hits, HitArea::Kind::ComboArrow, 1));
  ASSERT_TRUE(HitOf(hits, HitArea::Kind::Button, 2));
  EXPECT_FALSE(HitOf(hits, HitArea::Kind::Button, 2)->enabled);
  EXPECT_TRUE(HitOf(hits, HitArea::Kind::Menu, 3));
  EXPECT_FALSE(HitOf(hits, HitArea::Kind::Button, 4));
}

TEST_P(Painter, OpenMenusAndListsLieAboveTheRest) {
  CCanvas canvas(800, 400, 100);
  SceneOptions scene;
  scene.width = 800;
  scene.height = 400;
  scene.open = {{3, {Control(ControlKind::Menu, 31, L"Sub")}},
                {31, {Control(ControlKind::Button, 32, L"Item")}}};
  std::vector<HitArea> hits = PaintWindow(canvas, Face(GetParam()), scene);
  ASSERT_EQ(hits.back().handle, 32);
  EXPECT_EQ(hits.back().depth, 2);
  const HitArea* menu = HitOf(hits, HitArea::Kind::Menu, 3);
  const HitArea* sub = HitOf(hits, HitArea::Kind::Menu, 31);
  EXPECT_GE(sub->rect.y, menu->rect.Bottom());
  EXPECT_GE(hits.back().rect.x, sub->rect.Right() - 4);  // a submenu opens beside its menu
  scene.open = {{1, {}}};
  hits = PaintWindow(canvas, Face(GetParam()), scene);
  EXPECT_EQ(hits.back().kind, HitArea::Kind::ComboEntry);
  EXPECT_EQ(hits.back().index, 1u);
}

INSTANTIATE_TEST_SUITE_P(Skins, Painter, testing::Values(Skin::Toolbars, Skin::Ribbon));

}  // namespace
}  // namespace quor::workbench
