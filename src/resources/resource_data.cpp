#include "resources/resource_data.h"

namespace quor {

std::span<const std::byte> ResourceData(HMODULE module, const wchar_t* type, int id,
                                        LANGID language) noexcept {
  HRSRC found = FindResourceExW(module, type, MAKEINTRESOURCEW(id), language);
  if (found == nullptr) return {};
  HGLOBAL loaded = LoadResource(module, found);
  const void* bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
  if (bytes == nullptr) return {};
  return {static_cast<const std::byte*>(bytes), SizeofResource(module, found)};
}

}  // namespace quor
