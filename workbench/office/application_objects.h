#ifndef QUOR_WORKBENCH_OFFICE_APPLICATION_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_APPLICATION_OBJECTS_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "workbench/office/outlook_object.h"

namespace quor::workbench {

// _Application.
class CApplication final : public COutlookObject {
 public:
  explicit CApplication(CSession& session);

 private:
  static const CMemberTable& Members();
  CModelPtr<CItem> CreateItem(const CArguments& arguments);
};

// _NameSpace; the only one, "MAPI".
class CNameSpace final : public COutlookObject {
 public:
  explicit CNameSpace(CSession& session);

 private:
  static const CMemberTable& Members();
  CModelPtr<CFolder> GetDefaultFolder(const CArguments& arguments);
  CModelPtr<CFolder> GetFolderFromId(const CArguments& arguments);
  CModelPtr<CItem> GetItemFromId(const CArguments& arguments);
};

// A page that a sink of OptionsPagesAdd handed over: the ProgID of a control or the page object
// itself, with a reference.
struct OptionsPage {
  std::wstring progId;
  CValue object;  // VT_DISPATCH, or VT_EMPTY
  std::wstring title;
};

// PropertyPages. Exists while the event is raised and as long as it is referenced.
class CPropertyPages final : public CCollection {
 public:
  explicit CPropertyPages(CSession& session);
  std::vector<OptionsPage> TakePages() { return std::exchange(m_pages, {}); }

 protected:
  size_t Size() override { return m_pages.size(); }
  CValue At(size_t position) override { return m_pages[position].object; }
  std::wstring NameAt(size_t position) override { return m_pages[position].title; }
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();
  void Add(const CArguments& arguments);

  std::vector<OptionsPage> m_pages;
};

// The add-in as the COM add-ins dialog lists it.
struct ComAddInInfo {
  std::wstring description;
  std::wstring progId;
  std::wstring classId;  // with braces
};

// COMAddIn, passed to OnConnection as the add-in's own instance.
class CComAddIn final : public CAutomation {
 public:
  CComAddIn(CSession& session, ComAddInInfo info, std::function<bool()> isConnected);

  std::string ObjectName() const override { return Utf8FromWide(m_info.progId); }
  const std::wstring& ProgIdText() const noexcept { return m_info.progId; }

 private:
  static const CMemberTable& Members();

  CSession& m_session;
  const ComAddInInfo m_info;
  const std::function<bool()> m_isConnected;
};

// COMAddIns.
class CComAddIns final : public CAutomation {
 public:
  explicit CComAddIns(CSession& session);
  CModelPtr<CComAddIn> AddAddIn(ComAddInInfo info, std::function<bool()> isConnected);

 protected:
  void OnGone() noexcept override { m_addIns.clear(); }

 private:
  static const CMemberTable& Members();
  CModelPtr<CComAddIn> Item(const CArguments& arguments);

  CSession& m_session;
  std::vector<CModelPtr<CComAddIn>> m_addIns;
};

}  // namespace quor::workbench

#endif
