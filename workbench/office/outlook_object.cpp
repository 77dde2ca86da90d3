#include "workbench/office/outlook_object.h"

#include "workbench/office/application_objects.h"

namespace quor::workbench {

COutlookObject::COutlookObject(CSession& session, const CMemberTable& members,
                               ObjectClass objectClass)
    : CEventSource(session.Model(), members), m_session(session), m_class(objectClass) {}

const CMemberTable& COutlookObject::CommonMembers() {
  static const CMemberTable table(
      "Object", nullptr, nullptr,
      {Get<&COutlookObject::Application>(L"Application"), Get<&COutlookObject::Class>(L"Class"),
       Get<&COutlookObject::SessionObject>(L"Session"), Get<&COutlookObject::Parent>(L"Parent")});
  return table;
}

CValue COutlookObject::Application() {
  return CValue(&m_session.Application());
}

CValue COutlookObject::SessionObject() {
  return CValue(&m_session.NameSpace());
}

CValue COutlookObject::Parent() {
  return CValue(&m_session.Application());
}

size_t PositionFromIndex(long index, size_t count) {
  if (index < 1 || static_cast<size_t>(index) > count) {
    throw CModelError(DISP_E_BADINDEX, "Array index out of bounds.");
  }
  return static_cast<size_t>(index) - 1;
}

}  // namespace quor::workbench
