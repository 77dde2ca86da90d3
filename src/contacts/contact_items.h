#ifndef QUOR_CONTACTS_CONTACT_ITEMS_H
#define QUOR_CONTACTS_CONTACT_ITEMS_H

#include <memory>

#include "com/event_connection.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// Receives the events of a contact folder.
class IContactFolderEvents {
 public:
  virtual void OnContactChanged(IDispatch* item) = 0;
  virtual void OnSubfolderAdded(IDispatch* folder) = 0;
  // An item or subfolder was added, removed or changed, so the positions of others may have
  // changed. Called before the two above.
  virtual void OnPositionsChanged() = 0;

 protected:
  ~IContactFolderEvents() = default;
};

// Listens to the items and subfolders of one contact folder until destroyed. Always created as a
// shared_ptr: the folder may be unregistered while one of its events is handled.
class CContactItems : public std::enable_shared_from_this<CContactItems> {
 public:
  // All must outlive this object; `owner` is held while an event is handled.
  CContactItems(IContactFolderEvents& events, IEventOwner& owner, CDiagnosticLog& log) noexcept;

  // See CEventConnection::Advise.
  HRESULT AdviseItems(const CItems& items);
  HRESULT AdviseFolders(const CFolders& folders);

 private:
  void OnItemEvent(DISPID event, const CEventArguments& arguments);
  void OnFolderEvent(DISPID event, const CEventArguments& arguments);

  void OnItemAdd(IDispatch* item);
  void OnItemChange(IDispatch* item);
  void OnItemRemove();
  void OnFolderAdd(IDispatch* folder);
  void OnFolderChange();
  void OnFolderRemove();

  IContactFolderEvents& m_events;
  CDiagnosticLog& m_log;
  CEventConnection m_itemsEvents;
  CEventConnection m_foldersEvents;
};

}  // namespace quor

#endif
