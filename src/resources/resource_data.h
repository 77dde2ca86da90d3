#ifndef QUOR_RESOURCES_RESOURCE_DATA_H
#define QUOR_RESOURCES_RESOURCE_DATA_H

#include <windows.h>

#include <cstddef>
#include <span>

namespace quor {

inline constexpr LANGID kNeutralLanguage = MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL);

// The bytes of a module's resource; empty if there is none. Valid while the module is loaded.
std::span<const std::byte> ResourceData(HMODULE module, const wchar_t* type, int id,
                                        LANGID language = kNeutralLanguage) noexcept;

}  // namespace quor

#endif
