#ifndef QUOR_WORKBENCH_HOST_APPLICATION_DATA_H
#define QUOR_WORKBENCH_HOST_APPLICATION_DATA_H

#include <optional>
#include <string>
#include <vector>

namespace quor::workbench {

// A separate application-data folder for a run. While this object exists, Windows reports it as the
// user's folder. This setting applies to the whole registry, so runs that share a Wine prefix must
// not overlap; what a killed run left is undone by the next one. Paths are relative to the folder,
// UTF-8, with backslashes.
class CApplicationData {
 public:
  enum class Content { Deleted, Kept };

  // Creates the folder, or deletes the content of one that exists unless it is to be kept. An empty
  // path creates one in the temporary folder, which is deleted at the end.
  explicit CApplicationData(const std::wstring& path, Content content = Content::Deleted);
  ~CApplicationData();
  CApplicationData(const CApplicationData&) = delete;
  CApplicationData& operator=(const CApplicationData&) = delete;

  const std::wstring& Folder() const { return m_folder; }

  void Write(const std::string& path, const std::string& content);
  // Makes Windows report a folder that does not exist.
  void PointNowhere() { Redirect(m_folder + L"\\no such folder"); }
  std::optional<std::string> Read(const std::string& path) const;
  std::wstring FullPath(const std::string& path) const;
  // Every file below the folder, in alphabetical order.
  std::vector<std::string> List() const;

 private:
  void Redirect(const std::wstring& folder);

  std::wstring m_folder;
  bool m_temporary;
  std::wstring m_before;  // the folder setting; empty: there was none
  void* m_running;        // a mutex that exists while a workbench runs
  bool m_isFirst;         // no other workbench is running
};

// The content of any file; nothing if it cannot be read.
std::optional<std::string> ReadWholeFile(const std::wstring& path);
// The same by UTF-8 path; throws CScenarioError if it cannot be read.
std::string ReadNamedFile(const std::string& path);

}  // namespace quor::workbench

#endif
