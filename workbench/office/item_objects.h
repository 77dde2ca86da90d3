#ifndef QUOR_WORKBENCH_OFFICE_ITEM_OBJECTS_H
#define QUOR_WORKBENCH_OFFICE_ITEM_OBJECTS_H

#include <string>
#include <string_view>

#include "workbench/office/outlook_object.h"

namespace quor::workbench {

// The dispatch id of a contact's text property. Throws CModelError(E_INVALIDARG).
DISPID TextPropertyByName(std::wstring_view name);

// A contact, a distribution list or a journal entry; others are not kept here. Changes stay in the
// object until Save, which also gives a new item its entry id and adds it to its folder.
//
// All text properties that Outlook publishes for the type can be read and written. Of a journal
// entry, the start is stored as the text of its DATE and the duration as the text of its minutes.
class CItem final : public COutlookObject {
 public:
  // `home` is the folder for a new item, null for a stored one.
  CItem(CSession& session, StoredItemPtr item, FolderNode* home);

  std::string ObjectName() const override;
  const StoredItemPtr& Stored() const noexcept { return m_item; }
  std::wstring Text(DISPID property) const;
  void SetText(DISPID property, const std::wstring& text);  // raises PropertyChange
  bool IsNew() const noexcept { return m_new; }
  void Display();
  void SaveChanges();  // raises Write, then stores; throws a CModelError
  bool RaiseOpen() { return !FireCancellable(L"Open"); }    // false: cancelled
  bool RaiseClose() { return !FireCancellable(L"Close"); }  // false: cancelled

 protected:
  CValue Parent() override;
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members(ItemType type);

  CValue Start();
  void SetStart(const CArguments& arguments);

  StoredItemPtr m_item;
  std::wstring m_homeId;
  bool m_new;
  CFieldSet m_changes;
};

// The contacts linked to an item.
class CLinks final : public CCollection {
 public:
  CLinks(CSession& session, StoredItemPtr item);

 protected:
  size_t Size() override { return m_item->links.size(); }
  CValue At(size_t position) override;
  std::wstring NameAt(size_t position) override { return m_item->links[position]; }

 private:
  static const CMemberTable& Members();
  CValue Add(const CArguments& arguments);

  StoredItemPtr m_item;
};

}  // namespace quor::workbench

#endif
