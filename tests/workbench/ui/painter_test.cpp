#include "workbench/ui/painter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quor::workbench {
namespace {

constexpr Colour kWhite = 0xFFFFFF;

uint32_t PixelAt(const CCanvas& canvas, int x, int y) {
  return canvas.Bits()[y * canvas.PixelWidth() + x] & 0xFFFFFF;
}

Pixels Plain(uint32_t colour) {
  return {1, 1, {colour}};
}

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

TEST(Canvas, ScalesWhatItDraws) {
  CCanvas canvas(10, 10, 200);
  canvas.Fill({0, 0, 10, 10}, kWhite);
  canvas.Fill({2, 3, 1, 1}, 0xFF0000);
  EXPECT_EQ(canvas.PixelWidth(), 20);
  EXPECT_EQ(PixelAt(canvas, 5, 7), 0xFF0000u);
  EXPECT_EQ(PixelAt(canvas, 6, 7), kWhite);
  EXPECT_EQ(PixelAt(canvas, 3, 7), kWhite);
}

TEST(Canvas, HonoursAlphaAndGreysDisabledPictures) {
  CCanvas canvas(4, 1, 100);
  canvas.Fill({0, 0, 4, 1}, kWhite);
  canvas.Image({0, 0, 1, 1}, Plain(0x80800000), false);
  canvas.Image({1, 0, 1, 1}, Plain(0), false);
  canvas.Image({2, 0, 1, 1}, Plain(0xFFFF0000), true);
  EXPECT_EQ(PixelAt(canvas, 0, 0) >> 16, 0xFFu);
  EXPECT_NEAR(PixelAt(canvas, 0, 0) & 0xFF, 0x7F, 2);
  EXPECT_EQ(PixelAt(canvas, 1, 0), kWhite);
  const uint32_t grey = PixelAt(canvas, 2, 0);
  EXPECT_EQ(grey & 0xFF, grey >> 16);
  EXPECT_NE(grey, kWhite);
}

TEST(Canvas, DrawsTextWithoutAScreen) {
  CCanvas canvas(60, 20, 100);
  canvas.Fill({0, 0, 60, 20}, kWhite);
  canvas.Text({0, 0, 60, 20}, L"Text", {.size = 12, .colour = 0x0000FF});
  const uint32_t* bits = canvas.Bits();
  EXPECT_TRUE(
      std::any_of(bits, bits + 60 * 20, [](uint32_t c) { return (c & 0xFFFF00) < 0x800000; }));
  EXPECT_GT(canvas.TextWidth(L"Text", {}), canvas.TextWidth(L"T", {}));
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
  EXPECT_GE(hits.back().rect.x, sub->rect.Right() - 4);  // a submenu opens to the side
  scene.open = {{1, {}}};
  hits = PaintWindow(canvas, Face(GetParam()), scene);
  EXPECT_EQ(hits.back().kind, HitArea::Kind::ComboEntry);
  EXPECT_EQ(hits.back().index, 1u);
}

INSTANTIATE_TEST_SUITE_P(Skins, Painter, testing::Values(Skin::Toolbars, Skin::Ribbon));

}  // namespace
}  // namespace quor::workbench
