#ifndef QUOR_RESOURCES_DIALOG_FONT_H
#define QUOR_RESOURCES_DIALOG_FONT_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quor {

// The font of a dialog, from which the dialog manager derives the size of the dialog's units.
struct DialogFont {
  uint16_t points = 0;
  uint16_t weight = 0;  // 400 is normal
  bool italic = false;
  uint8_t charset = 1;  // 1 is DEFAULT_CHARSET
  std::u16string face;
};

// A copy of an extended dialog template (DLGTEMPLATEEX) in another font. A template of another
// kind, without a font or cut short is copied as it stands.
std::vector<std::byte> WithFont(std::span<const std::byte> dialog, const DialogFont& font);

}  // namespace quor

#endif
