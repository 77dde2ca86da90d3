#include "addin/slice_clock.h"

#include <windows.h>

namespace quor {
namespace {

// QueryPerformanceFrequency and QueryPerformanceCounter do not fail on supported systems.

int64_t CountsPerSecond() noexcept {
  LARGE_INTEGER frequency = {};
  QueryPerformanceFrequency(&frequency);
  return frequency.QuadPart;
}

int64_t Now() noexcept {
  LARGE_INTEGER now = {};
  QueryPerformanceCounter(&now);
  return now.QuadPart;
}

}  // namespace

CSliceClock::CSliceClock() noexcept : m_length(CountsPerSecond() * kMilliseconds / 1000) {}

void CSliceClock::Start() noexcept {
  m_end = Now() + m_length;
}

bool CSliceClock::IsOver() const noexcept {
  return Now() >= m_end;
}

}  // namespace quor
