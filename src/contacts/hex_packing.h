#ifndef QUOR_CONTACTS_HEX_PACKING_H
#define QUOR_CONTACTS_HEX_PACKING_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quor {

enum class HexCase : uint8_t { Upper, Lower };

// Packs a text of an even number of hexadecimal digits, two to a byte, into text.size() / 2 bytes.
// False, with the bytes in an undefined state, if UnpackHex would not give back the very same text.
bool PackHex(std::string_view text, HexCase hexCase, std::span<uint8_t> bytes) noexcept;
void UnpackHex(std::span<const uint8_t> bytes, HexCase hexCase, std::span<char> text) noexcept;

}  // namespace quor

#endif
