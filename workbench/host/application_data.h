#ifndef QUOR_WORKBENCH_HOST_APPLICATION_DATA_H
#define QUOR_WORKBENCH_HOST_APPLICATION_DATA_H

#include <optional>
#include <string>
#include <vector>

namespace quor::workbench {

// An application-data folder of the run's own: where Windows says it is, for this user, is changed
// for the life of this object. The setting belongs to the whole registry, so runs with one Wine
// prefix follow each other. Paths are relative to the folder, UTF-8, with backslashes.
class CApplicationData {
 public:
  // Makes the folder, empty. An empty path means a fresh one below the temporary folder, removed
  // with its content at the end.
  explicit CApplicationData(const std::wstring& path);
  ~CApplicationData();
  CApplicationData(const CApplicationData&) = delete;
  CApplicationData& operator=(const CApplicationData&) = delete;

  const std::wstring& Folder() const { return m_folder; }

  void Write(const std::string& path, const std::string& content);
  void CopyIn(const std::string& from, const std::string& path);
  void MakeFolder(const std::string& path);
  // From now on Windows names a folder that does not exist.
  void PointNowhere();
  std::optional<std::string> Read(const std::string& path) const;
  std::wstring FullPath(const std::string& path) const;
  // Every file below the folder, in alphabetical order.
  std::vector<std::string> List() const;

 private:
  void Redirect(const std::wstring& folder);

  std::wstring m_folder;
  bool m_temporary;
  std::optional<std::wstring> m_before;
};

// The content of a file anywhere; nothing where it cannot be read.
std::optional<std::string> ReadWholeFile(const std::wstring& path);

}  // namespace quor::workbench

#endif
