#ifndef QUOR_CONTACTS_FOLDER_WALK_LINES_H
#define QUOR_CONTACTS_FOLDER_WALK_LINES_H

namespace quor {

// Log lines for the failures of one walk over subfolders; null logs nothing.
struct FolderWalkLines {
  const char* folders;
  const char* count;
  const char* last;
  const char* visitLast;
  const char* previous;
  const char* visitPrevious;
};

// For a walk that registers or reads the folders.
inline constexpr FolderWalkLines kCollectLines = {
    "Failed Get Contact Folders\n",    "Failed Get Contact Folders Count\n",
    "Failed Get Contact SubFolder\n",  "Failed Collect Contact SubFolder\n",
    "Failed Get Contact SubFolder2\n", "Failed Collect Contact SubFolder2\n"};
// For a walk that counts items or registers an added folder: the same, but failed visits are not
// logged.
inline constexpr FolderWalkLines kCountLines = {kCollectLines.folders,  kCollectLines.count,
                                                kCollectLines.last,     nullptr,
                                                kCollectLines.previous, nullptr};
inline constexpr FolderWalkLines kUnregisterLines = {
    nullptr, "Failed Get Contact Folders Count 2\n", "Failed Get Contact SubFolder 2-1\n",
    nullptr, "Failed Get Contact SubFolder 2-2\n",   nullptr};
inline constexpr FolderWalkLines kNoLines = {};

}  // namespace quor

#endif
