#ifndef QUOR_SETTINGS_ENTRY_TEXT_H
#define QUOR_SETTINGS_ENTRY_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "settings/configuration.h"

namespace quor {

// Longest text of a list entry, in UTF-16 units: far more than any name, and little enough that
// full lists make a file that is read again.
inline constexpr size_t kEntryTextLimit = 4096;

// The first `limit` units of a text, one fewer where the cut would halve a surrogate pair.
std::wstring_view CutText(std::wstring_view text, size_t limit) noexcept;

// The text as the file gives it back: without the characters that XML 1.0 has no way to write
// (control characters other than tab and line feed, halves of surrogate pairs, U+FFFE and U+FFFF; a
// parser would refuse the whole file for one of them), with line feeds as the only line ends, and
// cut to kEntryTextLimit.
std::wstring StorableText(std::wstring_view text);

// Every entry passes here on its way into a list, so that what a list holds is what a file keeps.
CallEntry StorableEntry(const CallEntry& entry);
SpeedDialEntry StorableEntry(const SpeedDialEntry& entry);

}  // namespace quor

#endif
