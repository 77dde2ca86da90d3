// A SiUSBXp.dll for doctor.exe: lists as many bases as the environment variable BASES says, and
// returns BASES_OPEN from SI_Open.
#include <windows.h>

#include <cstdlib>
#include <cstring>

namespace {

int Setting(const char* name) {
  const char* text = std::getenv(name);
  return text != nullptr ? std::atoi(text) : 0;
}

}  // namespace

extern "C" {

int WINAPI SI_GetNumDevices(LPDWORD count) {
  *count = static_cast<DWORD>(Setting("BASES"));
  return 0;
}

int WINAPI SI_GetProductString(DWORD, LPVOID text, DWORD) {
  constexpr char kProduct[] = "Cordless base";
  std::memcpy(text, kProduct, sizeof kProduct);
  return 0;
}

int WINAPI SI_Open(DWORD, HANDLE* handle) {
  *handle = nullptr;
  return Setting("BASES_OPEN");
}

int WINAPI SI_Close(HANDLE) {
  return 0;
}

int WINAPI Unused() {
  return 0xFF;
}

}  // extern "C"
