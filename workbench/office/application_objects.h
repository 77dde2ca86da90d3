#ifndef QUOR_WORKBENCH_OFFICE_APPLICATION_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_APPLICATION_OBJECTS_H

#include <functional>
#include <string>
#include <vector>

#include "workbench/office/outlook_object.h"

namespace quor::workbench {

class CPropertyPages;

// _Application.
class CApplication final : public COutlookObject {
 public:
  explicit CApplication(CSession& session);
  void RaiseStartup() { Fire(L"Startup"); }
  void RaiseQuit() { Fire(L"Quit"); }
  void RaiseOptionsPagesAdd(CPropertyPages& pages);

 private:
  static const CMemberTable& Members();

  CValue Name() { return CValue(L"Outlook"); }
  CValue Version() { return CValue(Session().VersionText()); }
  CModelPtr<CExplorer> ActiveExplorer();
  CModelPtr<CInspector> ActiveInspector();
  CValue ActiveWindow();
  CModelPtr<CItem> CreateItem(const CArguments& arguments);
  CValue GetNamespace(const CArguments& arguments);
  CValue ComAddIns();
  CValue Explorers();
  CValue Inspectors();
  bool IsTrusted();
};

// _NameSpace; the only one, "MAPI".
class CNameSpace final : public COutlookObject {
 public:
  explicit CNameSpace(CSession& session);
  void RaiseOptionsPagesAdd(CPropertyPages& pages, FolderNode& folder);

 private:
  static const CMemberTable& Members();

  CModelPtr<CFolders> Folders();
  CModelPtr<CFolder> GetDefaultFolder(const CArguments& arguments);
  CModelPtr<CFolder> GetFolderFromId(const CArguments& arguments);
  CModelPtr<CItem> GetItemFromId(const CArguments& arguments);
  void Logon() {}
  bool CompareEntryIds(const CArguments& arguments);
};

// A page that a sink of OptionsPagesAdd handed over: the ProgID of a control or the page object
// itself, with a reference.
struct OptionsPage {
  std::wstring progId;
  CValue object;  // VT_DISPATCH, or VT_EMPTY
  std::wstring title;
};

// PropertyPages. Exists while the event is raised and as long as it is referenced.
class CPropertyPages final : public COutlookObject {
 public:
  explicit CPropertyPages(CSession& session);
  std::vector<OptionsPage> TakePages() { return std::exchange(m_pages, {}); }

 protected:
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  long Count() { return static_cast<long>(m_pages.size()); }
  CValue Item(const CArguments& arguments);
  void Add(const CArguments& arguments);
  void Remove(const CArguments& arguments);

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
  CComAddIn(CSession& session, ComAddInInfo info, std::function<bool()> isConnected,
            std::function<void(bool)> onConnect);

  std::string ObjectName() const override { return Utf8FromWide(m_info.progId); }
  IDispatch* AddInObject() const noexcept;  // the add-in's Object property; may be null
  const std::wstring& ProgIdText() const noexcept { return m_info.progId; }

 protected:
  void OnGone() noexcept override { m_object = {}; }

 private:
  static const CMemberTable& Members();

  CValue Description() { return CValue(m_info.description); }
  void SetDescription(const CArguments& arguments) { m_info.description = arguments.Text(0); }
  CValue ProgId() { return CValue(m_info.progId); }
  CValue Guid() { return CValue(m_info.classId); }
  bool Connect() { return m_isConnected(); }
  void SetConnect(const CArguments& arguments);
  CValue Object() { return CValue(AddInObject()); }
  void SetObject(const CArguments& arguments) { m_object = CValue(arguments.Object(0)); }
  CValue Parent();

  CSession& m_session;
  ComAddInInfo m_info;
  std::function<bool()> m_isConnected;
  std::function<void(bool)> m_onConnect;
  CValue m_object;
};

// COMAddIns.
class CComAddIns final : public CAutomation {
 public:
  explicit CComAddIns(CSession& session);
  CModelPtr<CComAddIn> AddAddIn(ComAddInInfo info, std::function<bool()> isConnected,
                                std::function<void(bool)> onConnect);

 protected:
  void OnGone() noexcept override { m_addIns.clear(); }

 private:
  static const CMemberTable& Members();

  long Count() { return static_cast<long>(m_addIns.size()); }
  CModelPtr<CComAddIn> Item(const CArguments& arguments);
  void Update() {}
  CValue Parent();

  CSession& m_session;
  std::vector<CModelPtr<CComAddIn>> m_addIns;
};

}  // namespace quor::workbench

#endif
