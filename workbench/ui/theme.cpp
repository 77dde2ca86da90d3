#include "workbench/ui/theme.h"

namespace quor::workbench {
namespace {

constexpr Palette kToolbars = {
    .title = 0x0A5BD3,
    .titleText = 0xFFFFFF,
    .bar = 0xDDE9FB,
    .barEnd = 0x9DBEF1,
    .barEdge = 0x6D93CF,
    .tabText = 0x000000,
    .accent = 0x003C9C,
    .text = 0x000000,
    .faintText = 0x7A8797,
    .separator = 0x6A8CCB,
    .field = 0xFFFFFF,
    .fieldEdge = 0x7F9DB9,
    .pane = 0xF4F8FE,
    .paneHead = 0x5E8DDC,
    .paneHeadEnd = 0x2A5FB8,
    .paneHeadText = 0xFFFFFF,
    .selection = 0x316AC5,
    .selectionText = 0xFFFFFF,
    .menu = 0xF6F6F6,
    .menuGutter = 0xC3DAF9,
    .menuEdge = 0x002D96,
    .highlight = 0xFFE6A8,
    .highlightEdge = 0x000080,
    .status = 0xC7DCF8,
    .statusText = 0x1E395B,
};

constexpr Palette kLight = {
    .title = 0xFFFFFF,
    .titleText = 0x444444,
    .bar = 0xFFFFFF,
    .barEnd = 0xF7F8FA,
    .barEdge = 0xD5D8DD,
    .tabText = 0x444444,
    .accent = 0x0F6CBD,
    .text = 0x262626,
    .faintText = 0x8A8D91,
    .separator = 0xD8DADD,
    .field = 0xFFFFFF,
    .fieldEdge = 0xABADB3,
    .pane = 0xF5F6F8,
    .paneHead = 0xF5F6F8,
    .paneHeadEnd = 0xF5F6F8,
    .paneHeadText = 0x0F6CBD,
    .selection = 0xCDE6F7,
    .selectionText = 0x1B1B1B,
    .menu = 0xFFFFFF,
    .menuGutter = 0xFFFFFF,
    .menuEdge = 0xC6C6C6,
    .highlight = 0xCDE6F7,
    .highlightEdge = 0x92C0E0,
    .status = 0x0F6CBD,
    .statusText = 0xFFFFFF,
};

constexpr Palette kDark = {
    .title = 0x1F1F1F,
    .titleText = 0xE6E6E6,
    .bar = 0x2B2B2B,
    .barEnd = 0x2B2B2B,
    .barEdge = 0x454545,
    .tabText = 0xE0E0E0,
    .accent = 0x62ABF5,
    .text = 0xF0F0F0,
    .faintText = 0x8C8C8C,
    .separator = 0x4A4A4A,
    .field = 0x1F1F1F,
    .fieldEdge = 0x6A6A6A,
    .pane = 0x242424,
    .paneHead = 0x242424,
    .paneHeadEnd = 0x242424,
    .paneHeadText = 0x62ABF5,
    .selection = 0x2F4F6E,
    .selectionText = 0xFFFFFF,
    .menu = 0x303030,
    .menuGutter = 0x303030,
    .menuEdge = 0x5A5A5A,
    .highlight = 0x3F4A55,
    .highlightEdge = 0x5C7185,
    .status = 0x1F1F1F,
    .statusText = 0xC8C8C8,
};

}  // namespace

const Palette& PaletteOf(Skin skin, Theme theme) noexcept {
  if (skin == Skin::Toolbars) return kToolbars;
  return theme == Theme::Dark ? kDark : kLight;
}

}  // namespace quor::workbench
