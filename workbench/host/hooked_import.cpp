#include "workbench/host/hooked_import.h"

#include <cstring>
#include <utility>

namespace quor::workbench {

namespace {

template <typename T>
const T* At(HMODULE module, DWORD offset) {
  return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module) + offset);
}

FARPROC* FindImport(HMODULE module, const char* function) {
  const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
  const IMAGE_DATA_DIRECTORY& directory =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (directory.VirtualAddress == 0) return nullptr;
  const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* name = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    const auto* slot = At<FARPROC>(module, library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* import =
          At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData));
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), function) == 0) {
        return const_cast<FARPROC*>(slot);
      }
    }
  }
  return nullptr;
}

void WriteSlot(FARPROC* slot, FARPROC address) {
  DWORD protection = 0;
  VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection);
  *slot = address;
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
}

}  // namespace

bool HookedImport::Hook(HMODULE module) {
  if (slot) return true;
  slot = FindImport(module, name);
  if (!slot) return false;
  original = *slot;
  WriteSlot(slot, replacement);
  return true;
}

void HookedImport::Unhook() {
  if (slot) WriteSlot(std::exchange(slot, nullptr), original);
}

}  // namespace quor::workbench
