#include "workbench/office/automation.h"

#include <algorithm>
#include <new>
#include <tuple>

namespace quor::workbench {
namespace {

// Only the model's own objects implement this interface; QueryInterface returns the C++ object.
constexpr IID kModelObjectId = {
    0x6B0A2C53, 0x4E0D, 0x4C0E, {0x9B, 0x5E, 0x3D, 0x0A, 0x6F, 0x1E, 0x77, 0x12}};

bool Fits(MemberKind kind, WORD flags) noexcept {
  switch (kind) {
    case MemberKind::Get:
      return (flags & DISPATCH_PROPERTYGET) != 0;
    case MemberKind::Put:
      return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    case MemberKind::Method:
      return (flags & DISPATCH_METHOD) != 0;
  }
  return false;
}

// Invoke's result for a failure inside the member.
HRESULT ExceptionResult(HRESULT code, const char* description, EXCEPINFO* exception) {
  if (exception != nullptr) {
    *exception = {};
    exception->scode = code;
    exception->bstrSource = SysAllocString(L"Microsoft Outlook");
    exception->bstrDescription = SysAllocString(WideFromUtf8(description).c_str());
  }
  return DISP_E_EXCEPTION;
}

HRESULT CheckParameters(const Member& member, const DISPPARAMS& parameters) {
  if (member.kind == MemberKind::Put) {
    if (parameters.cNamedArgs != 1 || parameters.rgdispidNamedArgs == nullptr ||
        parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
      return DISP_E_PARAMNOTFOUND;
    }
  } else if (parameters.cNamedArgs != 0) {
    return DISP_E_NONAMEDARGS;
  }
  if (parameters.cArgs < member.least || parameters.cArgs > member.most) {
    return DISP_E_BADPARAMCOUNT;
  }
  return parameters.cArgs != 0 && parameters.rgvarg == nullptr ? E_INVALIDARG : S_OK;
}

CValue EmptyLike(const CValue& value) {
  switch (V_VT(&value.Get())) {
    case VT_BSTR:
      return CValue(L"");
    case VT_I4:
      return CValue(0);
    case VT_BOOL:
      return CValue(false);
    default:
      return CValue(static_cast<IDispatch*>(nullptr));
  }
}

}  // namespace

CCounted::CCounted(CModel& model) : m_model(&model), m_serial(model.Register(*this)) {}

CCounted::~CCounted() {
  if (m_model != nullptr) m_model->Unregister(*this);
}

void CCounted::Drop() noexcept {
  if (m_inside != 0) --m_inside;
  Settle();
}

HRESULT CCounted::Usability() const noexcept {
  if (m_model == nullptr) return CO_E_OBJNOTCONNECTED;
  if (m_dead) {
    m_model->RecordMisuse(TypeName() + " used after its last release");
    return CO_E_OBJNOTCONNECTED;
  }
  if (m_model->IsOwnThread()) return S_OK;
  m_model->RecordMisuse(TypeName() + " called on another thread");
  return RPC_E_WRONG_THREAD;
}

ULONG CCounted::AddOutside() noexcept {
  if (m_model != nullptr && FAILED(Usability())) return 1;
  return ++m_outside;
}

ULONG CCounted::ReleaseOutside() noexcept {
  if (m_model != nullptr && FAILED(Usability())) return 0;
  if (m_outside == 0) {
    if (m_model != nullptr) m_model->RecordMisuse(TypeName() + " released once too often");
    return 0;
  }
  const ULONG left = --m_outside;
  if (left == 0) {
    std::optional<CModel::CTimeInside> inside;
    if (m_model != nullptr) inside.emplace(*m_model);
    Keep();
    if (m_model != nullptr) OnLetGo();
    Drop();
  }
  return left;
}

void CCounted::Settle() noexcept {
  if (m_inside != 0 || m_outside != 0 || m_dead) return;
  m_dead = true;
  if (m_model == nullptr) {
    delete this;  // the session has ended and there is nothing to release
    return;
  }
  OnGone();
  m_model->Unregister(*this);
  m_model->Bury(*this);
}

CMemberTable::CMemberTable(const char* type, std::vector<IID> interfaces, const CMemberTable* base,
                           std::vector<Member> members)
    : m_type(type),
      m_interfaces(std::move(interfaces)),
      m_members(std::move(members)),
      m_names(type, "GetIDsOfNames") {
  if (base != nullptr) {
    m_interfaces.insert(m_interfaces.end(), base->m_interfaces.begin(), base->m_interfaces.end());
    for (const Member& inherited : base->m_members) {
      const bool replaced =
          std::any_of(m_members.begin(), m_members.end(), [&inherited](const Member& own) {
            return own.id == inherited.id && own.kind == inherited.kind;
          });
      if (!replaced) m_members.push_back(inherited);
    }
  }
  for (Member& member : m_members) {
    const char* suffix = member.kind == MemberKind::Put ? "=" : "";
    member.site = CModel::CallSite(m_type, Utf8FromWide(member.name) + suffix);
  }
  std::sort(m_members.begin(), m_members.end(), [](const Member& left, const Member& right) {
    return std::tie(left.id, left.kind) < std::tie(right.id, right.kind);
  });
}

bool CMemberTable::HasInterface(REFIID iid) const noexcept {
  return std::find(m_interfaces.begin(), m_interfaces.end(), iid) != m_interfaces.end();
}

const Member* CMemberTable::FindByName(std::wstring_view name) const noexcept {
  for (const Member& member : m_members) {
    if (SameText(member.name, name)) return &member;
  }
  return nullptr;
}

const Member* CMemberTable::Find(DISPID id, WORD flags) const noexcept {
  auto member = std::lower_bound(m_members.begin(), m_members.end(), id,
                                 [](const Member& one, DISPID wanted) { return one.id < wanted; });
  for (; member != m_members.end() && member->id == id; ++member) {
    if (Fits(member->kind, flags)) return &*member;
  }
  return nullptr;
}

STDMETHODIMP CAutomation::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (const HRESULT usable = Usability(); FAILED(usable)) return usable;
  if (iid == kModelObjectId) {
    *object = this;
    return S_OK;  // without a reference; used by the model only
  }
  const CModel::CTimeInside inside(Model());
  if (iid == IID_IUnknown || iid == IID_IDispatch || m_members.HasInterface(iid)) {
    *object = static_cast<IDispatch*>(this);
  } else {
    *object = OtherInterface(iid);
  }
  if (*object == nullptr) return E_NOINTERFACE;
  AddOutside();
  return S_OK;
}

STDMETHODIMP CAutomation::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP CAutomation::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return DISP_E_BADINDEX;
}

STDMETHODIMP CAutomation::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                        DISPID* ids) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  if (const HRESULT usable = Usability(); FAILED(usable)) return usable;
  try {
    const CModelPtr<CAutomation> self(this);
    const CModel::CTimeInside inside(Model());
    // Only the member's own name gets an id: arguments are never passed by name.
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const std::optional<HRESULT> answer = Model().Enter(m_members.NamesSite());
    const Member* member = m_members.FindByName(names[0]);
    if (member != nullptr) ids[0] = member->id;
    HRESULT code = member != nullptr && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    if (answer.has_value() && FAILED(*answer)) {
      ids[0] = DISPID_UNKNOWN;
      code = *answer;
    }
    if (Model().IsObserved()) {
      Model().Observe({CallRecord::Kind::Call, m_members.NamesSite().key, ObjectName(),
                       '"' + Utf8FromWide(names[0]) + '"', std::to_string(ids[0]), code, 0});
    }
    return code;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

STDMETHODIMP CAutomation::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (parameters == nullptr) return E_INVALIDARG;
  if (const HRESULT usable = Usability(); FAILED(usable)) return usable;
  const CModel::CTimeInside inside(Model());
  const Member* member = m_members.Find(id, flags);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (const HRESULT fit = CheckParameters(*member, *parameters); FAILED(fit)) return fit;
  return Call(*member, *parameters, result, exception, badArgument);
}

HRESULT CAutomation::Call(const Member& member, const DISPPARAMS& parameters, VARIANT* result,
                          EXCEPINFO* exception, UINT* badArgument) {
  const CModelPtr<CAutomation> self(this);  // the caller may release this object inside the call
  CModel& model = Model();
  const CArguments arguments(member.id, parameters);
  CallRecord record;
  HRESULT code = S_OK;
  HRESULT answer = S_OK;
  try {
    CValue value = Perform(member, arguments, &record);
    if (result != nullptr) *result = value.Detach();
  } catch (const CModelError& error) {
    code = error.Code();
    answer = ExceptionResult(code, error.what(), exception);
  } catch (const CArgumentError& error) {
    code = answer = error.Code();
    if (badArgument != nullptr) *badArgument = error.Position();
  } catch (const std::bad_alloc&) {
    code = answer = E_OUTOFMEMORY;
  } catch (...) {
    code = answer = E_UNEXPECTED;
  }
  if (!record.member.empty()) {
    record.code = code;
    model.Observe(record);
  }
  return answer;
}

CValue CAutomation::Perform(const Member& member, const CArguments& arguments, CallRecord* record) {
  CModel& model = Model();
  if (model.IsObserved()) {
    record->member = member.site.key;
    record->object = ObjectName();
    record->arguments = arguments.Summary();
  }
  CValue value;
  if (const std::optional<HRESULT> answer = model.Enter(member.site); answer.has_value()) {
    if (FAILED(*answer)) throw CModelError(*answer);
    const bool read = member.kind == MemberKind::Get;
    value = read ? EmptyLike(member.handler(*this, arguments))
                 : CValue(static_cast<IDispatch*>(nullptr));
  } else {
    value = member.handler(*this, arguments);
  }
  if (!record->member.empty()) {
    const CAutomation* object =
        V_VT(&value.Get()) == VT_DISPATCH ? ModelObjectBehind(V_DISPATCH(&value.Get())) : nullptr;
    record->result = object != nullptr ? object->TypeName() : Summary(value.Get());
  }
  return value;
}

CAutomation* ModelObjectBehind(IUnknown* pointer) noexcept {
  if (pointer == nullptr) return nullptr;
  void* object = nullptr;
  if (FAILED(pointer->QueryInterface(kModelObjectId, &object))) return nullptr;
  return static_cast<CAutomation*>(object);
}

}  // namespace quor::workbench
