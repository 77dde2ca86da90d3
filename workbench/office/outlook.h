#ifndef QUOR_WORKBENCH_OFFICE_OUTLOOK_H
#define QUOR_WORKBENCH_OFFICE_OUTLOOK_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/office/application_objects.h"
#include "workbench/office/folder_objects.h"
#include "workbench/office/item_objects.h"
#include "workbench/office/session.h"
#include "workbench/office/window_objects.h"
#include "workbench/vcard/vcard.h"

namespace quor::workbench {

// The stand-in Outlook for its user and the rest of the workbench. Each operation is a user's
// action and raises Outlook's events for it.
//
// Texts are UTF-8. Folders are identified by path from the top of a store, "Contacts/Customers", or
// with the store's name in front, "Archive Folders/Contacts"; a leading slash is ignored. Contacts
// are identified by File As, full name or entry id, optionally with the folder in front:
// "Contacts/Customers/Lee, Anna"; of several matches, the first in walk order counts. A missing
// object throws CMailboxError, an operation that the object model refuses CModelError.
//
// One thread, on which the caller has initialised COM. After the add-in is released, read Held(),
// Sinks() and Model().Misuses(), then destroy. Objects still held then are harmless.
class COutlook {
 public:
  explicit COutlook(const SessionOptions& options);
  COutlook(const SessionOptions& options, IOutlookFace& face);
  ~COutlook();

  // Faults, hooks, the observer, figures and accounting: see CModel.
  CModel& Model() noexcept { return m_model; }
  CSession& Session() noexcept { return *m_session; }
  CMailbox& Mailbox() noexcept { return m_session->Mailbox(); }  // read only
  int Version() const noexcept { return m_session->Version(); }

  // For OnConnection; borrowed.
  IDispatch* Application() noexcept { return &m_session->Application(); }
  // The entry of the COM add-ins dialog.
  CModelPtr<CComAddIn> AddAddIn(ComAddInInfo info, std::function<bool()> isConnected);

  // Loads the address book, before Outlook starts and therefore without events. Throws
  // CCardError, as AddCards does.
  void LoadCards(std::string_view vcards) { ReadInto(nullptr, vcards, false); }
  // Adds cards to a folder while Outlook runs, as if the user had typed or imported them: with
  // events for up to 15 cards, without for 16 and more.
  void AddCards(const std::string& folder, std::string_view vcards);

  StoredItemPtr FindItem(const std::string& item);
  FolderNode& FindFolder(const std::string& path);

  // Contacts. Properties are named as in the object model: "HomeTelephoneNumber".
  void ChangeContact(const std::string& item, const std::string& property,
                     const std::string& value);  // and saves it
  void DeleteContact(const std::string& item);  // to Deleted Items, or permanently if already there
  void MoveContact(const std::string& item, const std::string& folder);

  FolderNode& AddFolder(const std::string& path, ItemType type = ItemType::Contact);
  void MoveFolder(const std::string& path, const std::string& parent);
  void DeleteFolder(const std::string& path) { m_session->DeleteFolder(FindFolder(path)); }

  // Windows. Opening the first explorer shows the Inbox, as Outlook does.
  CModelPtr<CExplorer> OpenExplorer(const std::string& folder = "Inbox");  // with window, Activate
  void CloseExplorer();                          // the active one; does nothing if none is open
  void CloseFirstExplorer();                     // the one that has been inactive longest
  bool SwitchFolder(const std::string& folder);  // false: a sink cancelled
  void Select(const std::vector<std::string>& items);            // in the folder shown; empty: none
  CModelPtr<CInspector> OpenInspector(const std::string& item);  // null: a sink cancelled
  bool CloseInspector(const std::string& item) { return CloseInspector(*FindInspector(item)); }
  bool CloseInspector(CInspector& inspector) { return m_session->CloseInspector(inspector); }
  // Brings one item's window to the front.
  void ActivateInspector(const std::string& item);
  // Moves the window of one item on to another, as its Next button does.
  void MoveInspector(const std::string& item, const std::string& next);
  std::vector<CModelPtr<CInspector>> OpenInspectors();

  void RaiseQuit() { m_session->Application().Fire(L"Quit"); }
  // Raises OptionsPagesAdd and returns the pages that the sinks added. Each page object is
  // referenced: clear the vector before checking what the add-in holds.
  std::vector<OptionsPage> RaiseOptionsPagesAdd();

  // The entries of the default journal folder: "subject; type; minutes min; links; body", with bars
  // between the body's lines. An entry that did not start within the last day is marked.
  std::vector<std::string> Journal() const;

  // What the add-in still holds: objects such as "Items Contacts 1" and sinks such as "Explorer
  // Inbox ExplorerEvents 1".
  std::vector<std::string> Held() const;
  std::vector<std::string> Sinks() const;

 private:
  void ReadInto(const std::string* folder, std::string_view vcards, bool events);
  CExplorer& ActiveExplorer();
  CModelPtr<CInspector> FindInspector(const std::string& item);

  CNoFace m_noFace;
  CModel m_model;
  std::unique_ptr<CSession> m_session;
};

}  // namespace quor::workbench

#endif
