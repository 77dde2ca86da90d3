#ifndef QUOR_SETTINGS_CONFIGURATION_MERGE_H
#define QUOR_SETTINGS_CONFIGURATION_MERGE_H

#include "settings/configuration.h"

namespace quor {

// Which of two changes of one setting stays: the file's or the one in memory. Lists never ask: one
// that memory has changed and not saved stays.
enum class MergeConflict { FileWins, MemoryWins };

// Takes over what somebody has changed in the file by hand. `known` is what the file held when it
// was last read or written, `file` what it holds now; what differs in neither stays as memory has
// it.
void MergeFileChanges(const Configuration& known, const Configuration& file, MergeConflict conflict,
                      Configuration& memory);

// Whether both hold the same entries in all three lists.
bool HaveSameLists(const Configuration& one, const Configuration& other);

}  // namespace quor

#endif
