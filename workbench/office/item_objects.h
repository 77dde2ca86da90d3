#ifndef QUOR_WORKBENCH_OFFICE_ITEM_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_ITEM_OBJECTS_H

#include <string>
#include <string_view>

#include "workbench/office/outlook_object.h"

namespace quor::workbench {

// The dispatch id of an item's text property. Throws CModelError(E_INVALIDARG).
DISPID TextPropertyByName(std::wstring_view name);

// Outlook's default File As: "Last, First", or the one of the two that exists, or the company, or
// the full name.
std::wstring DefaultFileAs(const CFieldSet& fields);

class CLinks;

// Common members of all items. Changes stay in the object until Save, which also gives a new item
// its entry id and adds it to its folder. There is one live object per item.
class CItem : public COutlookObject {
 public:
  std::string ObjectName() const override;
  const StoredItemPtr& Stored() const noexcept { return m_item; }
  std::wstring Text(DISPID property) const;
  void SetText(DISPID property, const std::wstring& text);  // raises PropertyChange
  bool IsNew() const noexcept { return m_new; }
  void SaveChanges();  // raises Write, then stores; throws a CModelError
  void DiscardChanges() noexcept { m_changes.Clear(); }
  bool RaiseOpen();   // false: cancelled
  bool RaiseClose();  // false: cancelled

 protected:
  CItem(CSession& session, StoredItemPtr item, FolderNode* home, const CMemberTable& members,
        ObjectClass objectClass);

  static const CMemberTable& ItemMembers();
  CValue Parent() override;
  void OnGone() noexcept override;
  virtual std::wstring DerivedText(DISPID) const {
    return {};
  }  // the value of a property never set
  virtual void OnTextSet(DISPID, const std::wstring&) {}
  CFieldSet& Changes() noexcept { return m_changes; }

  CValue GetText(const CArguments& arguments) { return CValue(Text(arguments.Member())); }
  void PutText(const CArguments& arguments) { SetText(arguments.Member(), arguments.Text(0)); }

 private:
  CValue EntryId() { return CValue(m_item->entryId); }
  CModelPtr<CInspector> GetInspector();
  bool Saved() { return !m_new && m_changes.All().empty(); }
  void Save() { SaveChanges(); }
  void Delete();
  void Close(const CArguments& arguments);
  void Display();
  CModelPtr<CInspector> OpenInspector() const;

  StoredItemPtr m_item;
  std::wstring m_homeId;  // the folder for a new item
  bool m_new;
  CFieldSet m_changes;
};

class CContactItem final : public CItem {
 public:
  CContactItem(CSession& session, StoredItemPtr item, FolderNode* home);

 protected:
  std::wstring DerivedText(DISPID property) const override;
  void OnTextSet(DISPID property, const std::wstring& text) override;

 private:
  static const CMemberTable& Members();
};

class CDistListItem final : public CItem {
 public:
  CDistListItem(CSession& session, StoredItemPtr item, FolderNode* home);

 private:
  static const CMemberTable& Members();
  CValue ListName() { return CValue(Text(field::kSubject)); }
  void SetListName(const CArguments& arguments) { SetText(field::kSubject, arguments.Text(0)); }
  long MemberCount();
};

// The start is stored as the text of its DATE, the duration as the text of its minutes.
class CJournalItem final : public CItem {
 public:
  CJournalItem(CSession& session, StoredItemPtr item, FolderNode* home);

 private:
  static const CMemberTable& Members();
  CValue Start();
  void SetStart(const CArguments& arguments);
  long Duration() { return _wtol(Text(field::kJournalDuration).c_str()); }
  void SetDuration(const CArguments& arguments);
  CModelPtr<CLinks> Links();
};

// The contacts linked to an item.
class CLinks final : public COutlookObject {
 public:
  CLinks(CSession& session, StoredItemPtr item);

 private:
  static const CMemberTable& Members();
  long Count() { return static_cast<long>(m_item->links.size()); }
  void Add(const CArguments& arguments);

  StoredItemPtr m_item;
};

class CMailItem final : public CItem {
 public:
  CMailItem(CSession& session, StoredItemPtr item, FolderNode* home);

 private:
  static const CMemberTable& Members();
};

}  // namespace quor::workbench

#endif
