#ifndef QUOR_CONTACTS_FOLDER_WALK_LINES_H
#define QUOR_CONTACTS_FOLDER_WALK_LINES_H

namespace quor {

// What the log says of the failures of one walk over subfolders; null says nothing.
struct FolderWalkLines {
  const char* folders;
  const char* count;
  const char* last;
  const char* visitLast;
  const char* previous;
  const char* visitPrevious;
};

// A walk that registers or reads the folders.
inline constexpr FolderWalkLines kCollectLines = {
    "Failed Get Contact Folders\n",    "Failed Get Contact Folders Count\n",
    "Failed Get Contact SubFolder\n",  "Failed Collect Contact SubFolder\n",
    "Failed Get Contact SubFolder2\n", "Failed Collect Contact SubFolder2\n"};
// The same without the lines of a failed visit: it counts the items, or registers an added folder.
inline constexpr FolderWalkLines kCountLines = {kCollectLines.folders,  kCollectLines.count,
                                                kCollectLines.last,     nullptr,
                                                kCollectLines.previous, nullptr};
inline constexpr FolderWalkLines kUnregisterLines = {
    nullptr, "Failed Get Contact Folders Count 2\n", "Failed Get Contact SubFolder 2-1\n",
    nullptr, "Failed Get Contact SubFolder 2-2\n",   nullptr};
inline constexpr FolderWalkLines kNoLines = {};

}  // namespace quor

#endif
