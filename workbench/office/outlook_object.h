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
  CValue Application();
  long Class() { return static_cast<long>(m_class); }
  CValue SessionObject();

  CSession& m_session;
  const ObjectClass m_class;
};

// Converts a 1-based index argument to a 0-based position. Throws a CModelError if it is out of
// range.
size_t PositionFromIndex(long index, size_t count);

// GetFirst, GetNext, GetLast and GetPrevious over a list of `count` elements.
class CCursor {
 public:
  static constexpr size_t kNone = static_cast<size_t>(-1);

  size_t First(size_t count) noexcept { return At(0, count); }
  size_t Last(size_t count) noexcept { return At(count - 1, count); }
  size_t Next(size_t count) noexcept {
    return At(m_position + 1, count);
  }  // the first one at first
  size_t Previous(size_t count) noexcept {
    if (m_position == kNone || m_position == 0) return m_position = kNone;
    return At(m_position - 1, count);
  }

 private:
  size_t At(size_t position, size_t count) noexcept {
    return m_position = position < count ? position : kNone;
  }

  size_t m_position = kNone;
};

}  // namespace quor::workbench

#endif
