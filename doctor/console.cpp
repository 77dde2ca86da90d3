#include "doctor/console.h"

#include "doctor/file_facts.h"

namespace quor::doctor {
namespace {

// Up to Windows 7 an unredirected handle may have a value, which means nothing in this process.
bool IsRedirected(HANDLE handle) noexcept {
  return GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

}  // namespace

CConsole::CConsole() noexcept : m_output(GetStdHandle(STD_OUTPUT_HANDLE)) {
  if (IsRedirected(m_output)) return;
  m_output = INVALID_HANDLE_VALUE;
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
  m_output = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  m_isAttached = true;
}

CConsole::~CConsole() {
  if (!m_isAttached) return;
  if (m_output != INVALID_HANDLE_VALUE) CloseHandle(m_output);
  FreeConsole();
}

void CConsole::Print(const std::string& utf8) const {
  DWORD written = 0;
  DWORD mode = 0;
  if (GetConsoleMode(m_output, &mode)) {
    const std::wstring text = Wide(utf8);
    WriteConsoleW(m_output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  } else {
    WriteFile(m_output, utf8.data(), static_cast<DWORD>(utf8.size()), &written, nullptr);
  }
}

std::optional<char> CConsole::Read() const noexcept {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  if (m_isAttached || !IsRedirected(input)) return std::nullopt;
  char character = 0;
  DWORD read = 0;
  if (!ReadFile(input, &character, 1, &read, nullptr) || read == 0) return '\0';
  return character;
}

}  // namespace quor::doctor
