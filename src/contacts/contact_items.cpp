#include "contacts/contact_items.h"

#include "text/ansi.h"

namespace quor {

CContactItems::CContactItems(IContactFolderEvents& events, IEventOwner& owner,
                             CDiagnosticLog& log) noexcept
    : m_events(events),
      m_log(log),
      m_itemsEvents(owner, log, "CContactItems ItemsEvents"),
      m_foldersEvents(owner, log, "CContactItems FoldersEvents") {}

HRESULT CContactItems::AdviseItems(const CItems& items) {
  return m_itemsEvents.Advise(
      items.Get(), kItemsEvents,
      [weak = weak_from_this()](DISPID event, const CEventArguments& arguments) {
        if (const auto folder = weak.lock()) folder->OnItemEvent(event, arguments);
      });
}

HRESULT CContactItems::AdviseFolders(const CFolders& folders) {
  return m_foldersEvents.Advise(
      folders.Get(), kFoldersEvents,
      [weak = weak_from_this()](DISPID event, const CEventArguments& arguments) {
        if (const auto folder = weak.lock()) folder->OnFolderEvent(event, arguments);
      });
}

void CContactItems::OnItemEvent(DISPID event, const CEventArguments& arguments) {
  switch (event) {
    case kEventItemAdd:
      OnItemAdd(arguments.Object(0));
      break;
    case kEventItemChange:
      OnItemChange(arguments.Object(0));
      break;
    case kEventItemRemove:
      OnItemRemove();
      break;
    default:
      break;
  }
}

void CContactItems::OnFolderEvent(DISPID event, const CEventArguments& arguments) {
  switch (event) {
    case kEventFolderAdd:
      OnFolderAdd(arguments.Object(0));
      break;
    case kEventFolderChange:
      OnFolderChange();
      break;
    case kEventFolderRemove:
      OnFolderRemove();
      break;
    default:
      break;
  }
}

void CContactItems::OnItemAdd(IDispatch* item) {
  m_log.Write("CContactItems::OnItemAdd\n");
  m_events.OnPositionsChanged();
  m_events.OnContactChanged(item);
}

void CContactItems::OnItemChange(IDispatch* item) {
  m_log.Write("CContactItems::OnItemChange\n");
  m_events.OnPositionsChanged();
  m_events.OnContactChanged(item);
}

// Outlook does not report which item was removed; a deleted contact is handled when it arrives in
// Deleted Items.
void CContactItems::OnItemRemove() {
  m_log.Write("CContactItems::OnItemRemove\n");
  m_events.OnPositionsChanged();
}

void CContactItems::OnFolderAdd(IDispatch* folder) {
  m_log.Write("CContactItems::OnFolderAdd\n");
  m_events.OnPositionsChanged();
  if (const auto added = QueryObject<CFolder>(folder); added && m_log.IsEnabled()) {
    m_log.Print("FolderName=%s\n", AnsiFromWide(added.Name()).c_str());
  }
  m_events.OnSubfolderAdded(folder);
}

void CContactItems::OnFolderChange() {
  m_log.Write("CContactItems::OnFolderChange\n");
  m_events.OnPositionsChanged();
}

void CContactItems::OnFolderRemove() {
  m_log.Write("CContactItems::OnFolderRemove\n");
  m_events.OnPositionsChanged();
}

}  // namespace quor
