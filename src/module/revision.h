#ifndef QUOR_MODULE_REVISION_H
#define QUOR_MODULE_REVISION_H

namespace quor {

// The commit that this was built from, "7de243b1c0" say; with "-modified" when the sources were not
// as committed, "unknown" when they were not in a repository.
const char* BuildRevision() noexcept;

}  // namespace quor

#endif
