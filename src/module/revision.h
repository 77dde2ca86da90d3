#ifndef QUOR_MODULE_REVISION_H
#define QUOR_MODULE_REVISION_H

namespace quor {

// The commit of this build, such as "7de243b1c0"; with "-modified" if the sources had changes that
// were not committed; "unknown" if they were not in a repository.
const char* BuildRevision() noexcept;

}  // namespace quor

#endif
