#include "workbench/office/outlook_object.h"

#include "workbench/office/application_objects.h"

namespace quor::workbench {

COutlookObject::COutlookObject(CSession& session, const CMemberTable& members,
                               ObjectClass objectClass)
    : CEventSource(session.Model(), members), m_session(session), m_class(objectClass) {}

const CMemberTable& COutlookObject::CommonMembers() {
  using Self = COutlookObject;
  static const CMemberTable table(
      "Object", nullptr, nullptr,
      {Get(L"Application", [](Self& self) { return &self.m_session.Application(); }),
       Get(L"Class", [](Self& self) { return self.m_class; }),
       Get(L"Session", [](Self& self) { return &self.m_session.NameSpace(); }),
       Get(L"Parent", [](Self& self) { return self.Parent(); })});
  return table;
}

CValue COutlookObject::Parent() {
  return {&m_session.Application()};
}

size_t PositionFromIndex(long index, size_t count) {
  if (index < 1 || static_cast<size_t>(index) > count) {
    throw CModelError(DISP_E_BADINDEX, "Array index out of bounds.");
  }
  return static_cast<size_t>(index) - 1;
}

const CMemberTable& CCollection::CollectionMembers() {
  using Self = CCollection;
  static const CMemberTable table(
      "Collection", nullptr, &CommonMembers(),
      {Get(L"Count", [](Self& self) { return self.Size(); }), Method<&Self::Item>(L"Item")});
  return table;
}

// From nowhere, the next position is the first one, and the previous one is outside again.
const CMemberTable& CCollection::CursorMembers() {
  using Self = CCollection;
  static const CMemberTable table(
      "Collection", nullptr, &CollectionMembers(),
      {Method(L"GetFirst", [](Self& self) { return self.MoveTo(0); }),
       Method(L"GetLast", [](Self& self) { return self.MoveTo(self.Size() - 1); }),
       Method(L"GetNext", [](Self& self) { return self.MoveTo(self.m_cursor + 1); }),
       Method(L"GetPrevious", [](Self& self) { return self.MoveTo(self.m_cursor - 1); })});
  return table;
}

size_t CCollection::Position(const CArguments& index) {
  return PositionFromIndex(index.Long(0), Size());
}

CValue CCollection::Item(const CArguments& index) {
  if (!index.IsText(0)) return At(Position(index));
  const std::wstring name = index.Text(0);
  for (size_t position = 0; position < Size(); ++position) {
    if (SameText(NameAt(position), name)) return At(position);
  }
  throw CModelError(kNotFound, "There is no item of that name.");
}

CValue CCollection::MoveTo(size_t position) {
  m_cursor = position < Size() ? position : kNowhere;
  return m_cursor != kNowhere ? At(m_cursor) : CValue(static_cast<IDispatch*>(nullptr));
}

}  // namespace quor::workbench
