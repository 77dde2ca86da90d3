#ifndef QUOR_SETTINGS_CONFIGURATION_MERGE_H
#define QUOR_SETTINGS_CONFIGURATION_MERGE_H

#include "settings/configuration.h"

namespace quor {

// Which of two conflicting changes to a setting wins. Does not apply to lists: a list changed in
// memory and not yet saved always wins.
enum class MergeConflict { FileWins, MemoryWins };

// Applies to `memory` the changes that the user made to the file. `known` is the file's content
// when it was last read or written, `file` its content now. A setting equal in both keeps the value
// in memory.
void MergeFileChanges(const Configuration& known, const Configuration& file, MergeConflict conflict,
                      Configuration& memory);

// Whether both hold the same entries in all three lists.
bool HaveSameLists(const Configuration& one, const Configuration& other);

}  // namespace quor

#endif
