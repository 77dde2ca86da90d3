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

// The stand-in Outlook as its user and the rest of the workbench see it. Each operation here is
// something a person does, and raises the events that Outlook raises for it.
//
// Texts are UTF-8. Folders go by path from the top of a store, "Contacts/Customers" or with the
// store's name in front, "Archive Folders/Contacts"; a leading slash changes nothing. Contacts go
// by File As, by full name or by entry id, the first in walk order when several fit, optionally
// with the folder in front: "Contacts/Customers/Lee, Anna". What is not there throws
// CMailboxError; an operation that the object model refuses throws CModelError.
//
// One thread, with COM initialised by the caller. After the add-in has been let go, read Held(),
// Sinks() and Model().Misuses(); then destroy. Objects still held then stay harmless.
class COutlook {
 public:
  explicit COutlook(const SessionOptions& options);
  COutlook(const SessionOptions& options, IOutlookFace& face);
  ~COutlook();

  // Faults, hooks, the observer, figures and accounting: see CModel.
  CModel& Model() noexcept { return m_model; }
  CSession& Session() noexcept { return *m_session; }
  CMailbox& Mailbox() noexcept { return m_session->Mailbox(); }  // to look at, not to change
  int Version() const noexcept { return m_session->Version(); }

  // For OnConnection; borrowed.
  IDispatch* Application() noexcept { return &m_session->Application(); }
  // The entry of the COM add-ins dialog; its Object and Connect belong to the add-in's host.
  CModelPtr<CComAddIn> AddAddIn(ComAddInInfo info, std::function<void(bool)> onConnect);

  // The address book. Loading raises no events: it happens before Outlook starts. Errors are the
  // reader's; cards without one are loaded all the same.
  std::vector<CardError> LoadCards(std::string_view vcards);
  // Cards put into a folder while Outlook runs, as if the user had written or imported them: with
  // events up to 15 cards, without from 16 on.
  std::vector<CardError> AddCards(const std::string& folder, std::string_view vcards);

  StoredItemPtr FindItem(const std::string& item);
  FolderNode& FindFolder(const std::string& path);

  // Contacts. A property is named as the object model names it, "HomeTelephoneNumber".
  void ChangeContact(const std::string& item, const std::string& property,
                     const std::string& value);  // and saves it
  void DeleteContact(const std::string& item);   // to Deleted Items; for good when there already
  void DeleteContacts(const std::vector<std::string>& items);  // in one go
  void MoveContact(const std::string& item, const std::string& folder);

  FolderNode& AddFolder(const std::string& path, ItemType type = ItemType::Contact);
  void RenameFolder(const std::string& path, const std::string& name);
  void MoveFolder(const std::string& path, const std::string& parent);
  void DeleteFolder(const std::string& path);

  // Windows. Opening the first explorer shows the Inbox, as Outlook does.
  CModelPtr<CExplorer> OpenExplorer(const std::string& folder = "Inbox");  // with window, Activate
  void CloseExplorer();                                // the active one; nothing if none is open
  void CloseFirstExplorer();                           // the one that was active longest ago
  bool SwitchFolder(const std::string& folder);        // false: a sink cancelled
  void Select(const std::vector<std::string>& items);  // in the folder shown; empty: none
  CModelPtr<CInspector> OpenInspector(const std::string& item);  // null: a sink cancelled
  CModelPtr<CInspector> OpenNewContact();
  bool CloseInspector(const std::string& item);
  bool CloseInspector(CInspector& inspector);
  // The window of one item is brought to the front.
  void ActivateInspector(const std::string& item);
  // The window of one item moves on to another, as with its Next button.
  void MoveInspector(const std::string& item, const std::string& next);
  std::vector<CModelPtr<CInspector>> OpenInspectors();

  void RaiseStartup();
  void RaiseQuit();
  // Raises OptionsPagesAdd and hands over what the sinks added. Each page's object is counted:
  // clear the vector before looking at what the add-in holds.
  std::vector<OptionsPage> RaiseOptionsPagesAdd();

  // The entries of the default journal folder: "subject; type; minutes min; links; body", the lines
  // of the body between bars. One that did not start within the last day says so.
  std::vector<std::string> Journal() const;

  // What the add-in still holds: "Items Contacts 1", and sinks: "Explorer Inbox ExplorerEvents 1".
  std::vector<std::string> Held() const;
  std::vector<std::string> Sinks() const;

 private:
  std::vector<CardError> ReadInto(const std::string* folder, std::string_view vcards, bool events);
  CExplorer& ActiveExplorer();
  CModelPtr<CInspector> FindInspector(const std::string& item);

  CNoFace m_noFace;
  CModel m_model;
  std::unique_ptr<CSession> m_session;
};

}  // namespace quor::workbench

#endif
