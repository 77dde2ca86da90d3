#include "settings/entry_text.h"

#include <cstdint>

namespace quor {
namespace {

bool IsHighSurrogate(uint32_t code) noexcept {
  return code >= 0xD800 && code <= 0xDBFF;
}

bool IsLowSurrogate(uint32_t code) noexcept {
  return code >= 0xDC00 && code <= 0xDFFF;
}

// Carriage returns are not kept: an XML parser reads them back as line feeds.
bool CanBeKept(uint32_t code) noexcept {
  return code == L'\t' || code == L'\n' || (code >= 0x20 && code < 0xD800) ||
         (code >= 0xE000 && code < 0xFFFE) || (code >= 0x10000 && code <= 0x10FFFF);
}

}  // namespace

std::wstring_view CutText(std::wstring_view text, size_t limit) noexcept {
  if (text.size() <= limit) return text;
  const bool halved = limit > 0 && IsHighSurrogate(static_cast<uint32_t>(text[limit - 1]));
  return text.substr(0, limit - (halved ? 1 : 0));
}

std::wstring StorableText(std::wstring_view text) {
  const auto unit = [&text](size_t at) {
    return at < text.size() ? static_cast<uint32_t>(text[at]) : 0u;
  };
  std::wstring storable;
  // Copies one unit beyond the limit, so that CutText sees whether the last surrogate pair is
  // complete.
  for (size_t at = 0; at < text.size() && storable.size() <= kEntryTextLimit; ++at) {
    const uint32_t code = unit(at);
    if (IsHighSurrogate(code) && IsLowSurrogate(unit(at + 1))) {
      storable.append(text, at, 2);
      ++at;
    } else if (code == L'\r') {
      if (unit(at + 1) != L'\n') storable.push_back(L'\n');
    } else if (CanBeKept(code)) {
      storable.push_back(text[at]);
    }
  }
  storable.resize(CutText(storable, kEntryTextLimit).size());
  return storable;
}

CallEntry StorableEntry(const CallEntry& entry) {
  return {StorableText(entry.name), StorableText(entry.fileAs), StorableText(entry.number)};
}

SpeedDialEntry StorableEntry(const SpeedDialEntry& entry) {
  return {StorableText(entry.name), StorableText(entry.number)};
}

}  // namespace quor
