#include "workbench/ui/theme.h"

namespace quor::workbench {
namespace {

// The colours of one part on toolbars, on the light and on the dark ribbon.
struct PartColours {
  Colour Palette::*part;
  Colour toolbars;
  Colour light;
  Colour dark;
};

constexpr PartColours kParts[] = {
    {&Palette::title, 0x0A5BD3, 0xFFFFFF, 0x1F1F1F},
    {&Palette::titleText, 0xFFFFFF, 0x444444, 0xE6E6E6},
    {&Palette::bar, 0xDDE9FB, 0xFFFFFF, 0x2B2B2B},
    {&Palette::barEnd, 0x9DBEF1, 0xF7F8FA, 0x2B2B2B},
    {&Palette::barEdge, 0x6D93CF, 0xD5D8DD, 0x454545},
    {&Palette::tabText, 0x000000, 0x444444, 0xE0E0E0},
    {&Palette::accent, 0x003C9C, 0x0F6CBD, 0x62ABF5},
    {&Palette::text, 0x000000, 0x262626, 0xF0F0F0},
    {&Palette::faintText, 0x7A8797, 0x8A8D91, 0x8C8C8C},
    {&Palette::separator, 0x6A8CCB, 0xD8DADD, 0x4A4A4A},
    {&Palette::field, 0xFFFFFF, 0xFFFFFF, 0x1F1F1F},
    {&Palette::fieldEdge, 0x7F9DB9, 0xABADB3, 0x6A6A6A},
    {&Palette::pane, 0xF4F8FE, 0xF5F6F8, 0x242424},
    {&Palette::paneHead, 0x5E8DDC, 0xF5F6F8, 0x242424},
    {&Palette::paneHeadEnd, 0x2A5FB8, 0xF5F6F8, 0x242424},
    {&Palette::paneHeadText, 0xFFFFFF, 0x0F6CBD, 0x62ABF5},
    {&Palette::selection, 0x316AC5, 0xCDE6F7, 0x2F4F6E},
    {&Palette::selectionText, 0xFFFFFF, 0x1B1B1B, 0xFFFFFF},
    {&Palette::menu, 0xF6F6F6, 0xFFFFFF, 0x303030},
    {&Palette::menuGutter, 0xC3DAF9, 0xFFFFFF, 0x303030},
    {&Palette::menuEdge, 0x002D96, 0xC6C6C6, 0x5A5A5A},
    {&Palette::highlight, 0xFFE6A8, 0xCDE6F7, 0x3F4A55},
    {&Palette::highlightEdge, 0x000080, 0x92C0E0, 0x5C7185},
    {&Palette::status, 0xC7DCF8, 0x0F6CBD, 0x1F1F1F},
    {&Palette::statusText, 0x1E395B, 0xFFFFFF, 0xC8C8C8},
};

Palette PaletteFrom(Colour PartColours::*look) {
  Palette palette = {};
  for (const PartColours& colours : kParts)
    palette.*colours.part = colours.*look;
  return palette;
}

}  // namespace

const Palette& PaletteOf(Skin skin, Theme theme) noexcept {
  static const Palette toolbars = PaletteFrom(&PartColours::toolbars);
  static const Palette light = PaletteFrom(&PartColours::light);
  static const Palette dark = PaletteFrom(&PartColours::dark);
  if (skin == Skin::Toolbars) return toolbars;
  return theme == Theme::Dark ? dark : light;
}

}  // namespace quor::workbench
