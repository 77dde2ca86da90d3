#include "contacts/tracked_folders.h"

namespace quor {
namespace {

// Deepest folder tree followed; a longer chain of parents is a loop in a broken store.
constexpr int kDeepestFolder = 256;

bool SameEntryId(const std::wstring& left, std::wstring_view right) {
  return VarBstrCmp(BstrFromText(left), BstrFromText(right), LOCALE_USER_DEFAULT, 0) == VARCMP_EQ;
}

}  // namespace

bool CTrackedFolders::CheckContactsFolder(IDispatch* folder,
                                          std::wstring_view defaultFolderId) const {
  // A copy: start-up may find the default folder again inside a call.
  const std::wstring defaultId(defaultFolderId);
  try {
    auto current = QueryObject<CFolder>(folder);
    for (int depth = 0; current && depth < kDeepestFolder; ++depth) {
      const std::wstring entryId = current.EntryId();
      if (SameEntryId(entryId, defaultId)) return true;
      if (m_deleted.contains(entryId)) return false;
      current = QueryObject<CFolder>(current.Parent());
    }
  } catch (const _com_error&) {
    return false;
  }
  return false;
}

}  // namespace quor
