#ifndef QUOR_WORKBENCH_OFFICE_OUTLOOK_OBJECT_H
#define QUOR_WORKBENCH_OFFICE_OUTLOOK_OBJECT_H

#include "workbench/office/event_source.h"
#include "workbench/office/outlook_ids.h"
#include "workbench/office/session.h"

namespace quor::workbench {

// Members common to nearly all Outlook objects: Application, Class, Session, Parent.
class COutlookObject : public CEventSource {
 protected:
  COutlookObject(CSession& session, const CMemberTable& members, ObjectClass objectClass);

  static const CMemberTable& CommonMembers();

  CSession& Session() const noexcept { return m_session; }
  virtual CValue Parent();  // the application, unless overridden

 private:
  CSession& m_session;
  const ObjectClass m_class;
};

// Converts a 1-based index argument to a 0-based position. Throws a CModelError if it is out of
// range.
size_t PositionFromIndex(long index, size_t count);

// Members common to all collections of Outlook: Count, and Item by number or by name.
class CCollection : public COutlookObject {
 protected:
  using COutlookObject::COutlookObject;

  static const CMemberTable& CollectionMembers();
  // The same with GetFirst, GetNext, GetLast and GetPrevious.
  static const CMemberTable& CursorMembers();

  virtual size_t Size() = 0;
  virtual CValue At(size_t position) = 0;
  virtual std::wstring NameAt(size_t position) = 0;
  size_t Position(const CArguments& index);  // throws a CModelError if it is out of range

 private:
  static constexpr size_t kNowhere = static_cast<size_t>(-1);

  CValue Item(const CArguments& index);
  CValue MoveTo(size_t position);  // nothing outside the collection

  size_t m_cursor = kNowhere;
};

}  // namespace quor::workbench

#endif
