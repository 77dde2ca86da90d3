#ifndef QUOR_OUTLOOK_OBJECT_MODEL_H
#define QUOR_OUTLOOK_OBJECT_MODEL_H

#include <cstdint>
#include <string>
#include <string_view>

#include "com/dispatch_object.h"
#include "outlook/tel_number_type.h"

namespace quor {

// The part of Outlook's object model that the add-in uses: one small typed wrapper per object. A
// wrapper without an object converts to false; calling it throws E_POINTER.

inline constexpr long kFolderDeletedItems = 3;
inline constexpr long kFolderContacts = 10;
inline constexpr int32_t kItemTypeContact = 2;
inline constexpr int32_t kItemTypeJournal = 4;

// The published event interfaces.
extern const IID kApplicationEvents;
extern const IID kExplorersEvents;
extern const IID kExplorerEvents;
extern const IID kInspectorsEvents;
extern const IID kInspectorEvents;
extern const IID kItemEvents;
extern const IID kItemsEvents;
extern const IID kFoldersEvents;

// Their dispatch ids; event interfaces offer no look-up by name. The same number means different
// events on different sources.
inline constexpr DISPID kEventOptionsPagesAdd = 0xF005;
inline constexpr DISPID kEventQuit = 0xF007;
inline constexpr DISPID kEventNewExplorer = 0xF001;
inline constexpr DISPID kEventNewInspector = 0xF001;
inline constexpr DISPID kEventActivate = 0xF001;
inline constexpr DISPID kEventFolderSwitch = 0xF002;
inline constexpr DISPID kEventSelectionChange = 0xF007;
inline constexpr DISPID kEventClose = 0xF008;
inline constexpr DISPID kEventItemClose = 0xF004;
inline constexpr DISPID kEventPropertyChange = 0xF009;  // PropertyChange(Name)
inline constexpr DISPID kEventItemAdd = 0xF001;
inline constexpr DISPID kEventItemChange = 0xF002;
inline constexpr DISPID kEventItemRemove = 0xF003;
inline constexpr DISPID kEventFolderAdd = 0xF001;
inline constexpr DISPID kEventFolderChange = 0xF002;
inline constexpr DISPID kEventFolderRemove = 0xF003;

class CContactItem : public CDispatchObject {
 public:
  CContactItem() = default;
  explicit CContactItem(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  CText EntryId() const;  // empty until the contact is saved
  CText FileAs() const;
  // The number as the user typed it. `telNumberType` is 1 to 12; any other value gives
  // E_INVALIDARG.
  CText TelephoneNumber(int telNumberType) const;
  void SetTelephoneNumber(int telNumberType, std::wstring_view number) const;
  void SetFullName(std::wstring_view name) const;
  IDispatchPtr Parent() const;
  void Save() const;
  void Display() const;
};

// The telNumberType of the property with this name: 7 for "HomeTelephoneNumber"; 0 for any other
// name.
int TelNumberTypeOf(std::wstring_view property);

class CJournalItem : public CDispatchObject {
 public:
  CJournalItem() = default;
  explicit CJournalItem(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  void SetSubject(std::wstring_view subject) const;
  void SetType(std::wstring_view type) const;
  void SetStart(double date) const;  // an automation DATE, local time
  void SetDuration(int32_t minutes) const;
  void SetBody(std::wstring_view body) const;
  // Links the entry to a contact, which must have been saved.
  void AddLink(const CContactItem& contact) const;
  void Save() const;
};

class CItems : public CDispatchObject {
 public:
  CItems() = default;
  explicit CItems(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  int32_t Count() const;
  IDispatchPtr Item(int32_t index) const;  // from 1
};

class CFolder;

// GetLast and GetPrevious keep their position in the collection object: use one object for a whole
// walk.
class CFolders : public CDispatchObject {
 public:
  CFolders() = default;
  explicit CFolders(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  int32_t Count() const;
  CFolder Item(int32_t index) const;  // from 1
  CFolder GetLast() const;
  CFolder GetPrevious() const;  // empty before the first
};

class CFolder : public CDispatchObject {
 public:
  CFolder() = default;
  explicit CFolder(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  std::wstring EntryId() const;
  std::wstring Name() const;
  std::wstring StoreId() const;
  int32_t DefaultItemType() const;
  IDispatchPtr Parent() const;  // the namespace for a top folder
  // Creates a new collection at each call.
  CItems Items() const;
  CFolders Folders() const;
};

class CNameSpace : public CDispatchObject {
 public:
  CNameSpace() = default;
  explicit CNameSpace(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  CFolders Folders() const;  // one per store
  CFolder GetDefaultFolder(long folder) const;
  CFolder GetFolderFromId(std::wstring_view entryId, std::wstring_view storeId) const;
  // With an empty store id, Outlook chooses the store.
  IDispatchPtr GetItemFromId(std::wstring_view entryId, std::wstring_view storeId) const;
};

class CSelection : public CDispatchObject {
 public:
  CSelection() = default;
  explicit CSelection(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  int32_t Count() const;
  IDispatchPtr Item(int32_t index) const;  // from 1
};

class CExplorer : public CDispatchObject {
 public:
  CExplorer() = default;
  explicit CExplorer(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  IDispatchPtr CommandBars() const;
  CFolder CurrentFolder() const;
  CSelection Selection() const;
};

class CInspector : public CDispatchObject {
 public:
  CInspector() = default;
  explicit CInspector(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  IDispatchPtr CommandBars() const;
  IDispatchPtr CurrentItem() const;
};

class CExplorers : public CDispatchObject {
 public:
  CExplorers() = default;
  explicit CExplorers(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  int32_t Count() const;
  CExplorer Item(int32_t index) const;  // from 1; may be empty
};

class CInspectors : public CDispatchObject {
 public:
  CInspectors() = default;
  explicit CInspectors(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  int32_t Count() const;
};

class COutlookApplication : public CDispatchObject {
 public:
  COutlookApplication() = default;
  explicit COutlookApplication(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  std::wstring Version() const;
  CNameSpace GetNamespace() const;  // "MAPI", the only namespace
  CExplorers Explorers() const;
  CInspectors Inspectors() const;
  IDispatchPtr CreateItem(int32_t itemType) const;
};

// The pages of Outlook's options dialog.
class CPropertyPages : public CDispatchObject {
 public:
  CPropertyPages() = default;
  explicit CPropertyPages(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  void Add(IDispatch* page, std::wstring_view title) const;
};

}  // namespace quor

#endif
