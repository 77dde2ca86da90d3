#ifndef QUOR_SETTINGS_ENTRY_TEXT_H
#define QUOR_SETTINGS_ENTRY_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "settings/configuration.h"

namespace quor {

// Longest text of a list entry, in UTF-16 units: much more than any name needs, and small enough
// that a file with full lists stays below the size limit for reading.
inline constexpr size_t kEntryTextLimit = 4096;

// The first `limit` units of a text, or one fewer where the cut would split a surrogate pair.
std::wstring_view CutText(std::wstring_view text, size_t limit) noexcept;

// The text as a save and a load return it. Characters that XML 1.0 cannot express are removed,
// because a parser would refuse the whole file: control characters except tab and line feed,
// unpaired surrogates, U+FFFE and U+FFFF. Line ends become line feeds. The result is cut to
// kEntryTextLimit.
std::wstring StorableText(std::wstring_view text);

// Apply to every entry before it enters a list, so that the list and the file hold the same texts.
CallEntry StorableEntry(const CallEntry& entry);
SpeedDialEntry StorableEntry(const SpeedDialEntry& entry);

}  // namespace quor

#endif
