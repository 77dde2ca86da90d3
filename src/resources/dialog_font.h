#ifndef QUOR_RESOURCES_DIALOG_FONT_H
#define QUOR_RESOURCES_DIALOG_FONT_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quor {

// A dialog's font. The dialog manager derives the size of dialog units from it.
struct DialogFont {
  uint16_t points = 0;
  uint16_t weight = 0;  // 400 is normal
  bool italic = false;
  uint8_t charset = 1;  // 1 is DEFAULT_CHARSET
  std::u16string face;
};

// Returns a copy of an extended dialog template (DLGTEMPLATEEX) with another font. A template that
// is not extended, has no font or is truncated is copied unchanged.
std::vector<std::byte> WithFont(std::span<const std::byte> dialog, const DialogFont& font);

}  // namespace quor

#endif
