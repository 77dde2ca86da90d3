#include "resources/message_font.h"

#include <windows.h>

#include "resources/system_resolution.h"

namespace quor {
namespace {

constexpr int kPointsPerInch = 72;

}  // namespace

std::optional<DialogFont> MessageFont() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
    return std::nullopt;
  }
  const LOGFONTW& font = metrics.lfMessageFont;
  // A positive height would include the font's leading; Windows supplies a negative one.
  const int points =
      font.lfHeight < 0 ? MulDiv(-font.lfHeight, kPointsPerInch, SystemDotsPerInch()) : 0;
  const std::wstring_view face(font.lfFaceName);
  if (points <= 0 || face.empty()) return std::nullopt;
  return DialogFont{static_cast<uint16_t>(points), static_cast<uint16_t>(font.lfWeight),
                    font.lfItalic != FALSE, font.lfCharSet,
                    std::u16string(face.begin(), face.end())};
}

}  // namespace quor
