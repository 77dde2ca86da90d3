#include "workbench/office/automation.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <tuple>

#include "workbench/office/arranged_arguments.h"

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

WORD FlagOf(MemberKind kind) noexcept {
  switch (kind) {
    case MemberKind::Get:
      return DISPATCH_PROPERTYGET;
    case MemberKind::Put:
      return DISPATCH_PROPERTYPUT;
    case MemberKind::Method:
      break;
  }
  return DISPATCH_METHOD;
}

std::string Hexadecimal(HRESULT code) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(code));
  return text;
}

CValue EmptyLike(const CValue& value) {
  switch (V_VT(&value.Get())) {
    case VT_BSTR:
      return {L""};
    case VT_I4:
      return {0};
    case VT_BOOL:
      return {false};
    default:
      return {static_cast<IDispatch*>(nullptr)};
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
    if (m_model != nullptr) OnLastOutsideRelease();
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

EventInterface::EventInterface(const wchar_t* eventInterface)
    : publishedName(eventInterface),
      iid(PublishedInterface(eventInterface)),
      name(Utf8FromWide(*eventInterface == L'_' ? eventInterface + 1 : eventInterface)),
      advise(name, "Advise"),
      unadvise(name, "Unadvise") {}

CMemberTable::CMemberTable(const char* type, const wchar_t* interfaceName, const CMemberTable* base,
                           std::vector<Member> members,
                           std::initializer_list<const wchar_t*> events)
    : m_type(type), m_events(events.begin(), events.end()), m_names(type, "GetIDsOfNames") {
  for (Member& member : members) {
    if (member.writer != nullptr) {
      m_members.push_back({.name = member.name, .kind = MemberKind::Put, .handler = member.writer});
    }
    m_members.push_back(std::move(member));
  }
  if (interfaceName != nullptr) m_interfaces.push_back(PublishedInterface(interfaceName));
  if (base != nullptr) {
    m_interfaces.insert(m_interfaces.end(), base->m_interfaces.begin(), base->m_interfaces.end());
    m_events.insert(m_events.end(), base->m_events.begin(), base->m_events.end());
    for (const Member& inherited : base->m_members) {
      const bool replaced = std::ranges::any_of(m_members, [&inherited](const Member& own) {
        return own.kind == inherited.kind && SameText(own.name, inherited.name);
      });
      if (!replaced) m_members.push_back(inherited);
    }
  }
  if (interfaceName != nullptr) Publish(interfaceName);
}

void CMemberTable::Publish(const wchar_t* interfaceName) {
  for (Member& member : m_members) {
    const UINT value = member.kind == MemberKind::Put ? 1 : 0;
    member.site = CModel::CallSite(m_type, Utf8FromWide(member.name) + (value != 0 ? "=" : ""));
    member.published = FindPublished(interfaceName, member.name, FlagOf(member.kind));
    if (member.published == nullptr) {
      m_deviations.push_back(member.site.key + " is not published");
      continue;
    }
    member.id = member.published->id;
    member.most = static_cast<UINT>(member.published->arguments.size()) + value;
    member.least = std::min(member.least, member.most);
  }
  std::erase_if(m_members, [](const Member& member) { return member.published == nullptr; });
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

HRESULT CMemberTable::IdsOf(std::span<const LPOLESTR> names, DISPID* ids) const noexcept {
  std::fill_n(ids, names.size(), DISPID_UNKNOWN);
  const Member* member = FindByName(names.front());
  if (member == nullptr) return DISP_E_UNKNOWNNAME;
  ids[0] = member->id;
  HRESULT code = S_OK;
  for (size_t at = 1; at < names.size(); ++at) {
    const auto arguments = member->published->arguments;
    const auto argument = std::ranges::find_if(
        arguments, [&](const PublishedArgument& one) { return SameText(one.name, names[at]); });
    if (argument == arguments.end()) {
      code = DISP_E_UNKNOWNNAME;
    } else {
      ids[at] = static_cast<DISPID>(argument - arguments.begin());
    }
  }
  return code;
}

const Member* CMemberTable::Find(DISPID id, WORD flags) const noexcept {
  auto member = std::lower_bound(m_members.begin(), m_members.end(), id,
                                 [](const Member& one, DISPID wanted) { return one.id < wanted; });
  for (; member != m_members.end() && member->id == id; ++member) {
    if (Fits(member->kind, flags)) return &*member;
  }
  return nullptr;
}

CAutomation::CAutomation(CModel& model, const CMemberTable& members)
    : CCounted(model), m_members(members) {
  for (const std::string& deviation : members.Deviations())
    model.RecordMisuse(deviation);
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
    const std::optional<HRESULT> answer = Model().Enter(m_members.NamesSite());
    HRESULT code = m_members.IdsOf({names, count}, ids);
    if (FAILED(code)) Misfit(TypeName() + '.' + Utf8FromWide(names[0]), code);
    if (answer.has_value() && FAILED(*answer)) {
      std::fill_n(ids, count, DISPID_UNKNOWN);
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
  try {
    if (member == nullptr) {
      return Misfit(TypeName() + '.' + std::to_string(id), DISP_E_MEMBERNOTFOUND);
    }
    CArrangedArguments arranged;
    if (const HRESULT fit = arranged.Arrange(*member, *parameters); FAILED(fit)) {
      if (badArgument != nullptr) *badArgument = arranged.Refused();
      return Misfit(member->site.key, fit);
    }
    if (arranged.WasConverted())
      Model().RecordMisuse(member->site.key + " with a converted argument");
    return Call(*member, arranged, result, exception, badArgument);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT CAutomation::Misfit(const std::string& call, HRESULT code) {
  Model().RecordMisuse(call + " refused with " + Hexadecimal(code));
  return code;
}

HRESULT CAutomation::Call(const Member& member, CArrangedArguments& arranged, VARIANT* result,
                          EXCEPINFO* exception, UINT* badArgument) {
  const CModelPtr<CAutomation> self(this);  // the caller may release this object inside the call
  CModel& model = Model();
  const DISPPARAMS parameters = arranged.Parameters();
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
    if (badArgument != nullptr) *badArgument = arranged.GivenIndex(error.Position());
    Misfit(member.site.key, code);
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
    value = CValue(static_cast<IDispatch*>(nullptr));
    if (member.kind == MemberKind::Get) {
      RequireAlive();
      value = EmptyLike(member.handler(*this, arguments));
    }
  } else {
    RequireAlive();
    value = member.handler(*this, arguments);
    CheckResult(member, value.Get());
  }
  if (!record->member.empty()) {
    const CAutomation* object =
        V_VT(&value.Get()) == VT_DISPATCH ? ModelObjectBehind(V_DISPATCH(&value.Get())) : nullptr;
    record->result = object != nullptr ? object->TypeName() : Summary(value.Get());
  }
  return value;
}

// A fault of the stand-in's own.
void CAutomation::CheckResult(const Member& member, const VARIANT& result) {
  if (member.kind == MemberKind::Put) return;
  const VARTYPE type = member.published->result;
  if (type != VT_VARIANT && type != V_VT(&result)) {
    Model().RecordMisuse(member.site.key + " answers " + Summary(result));
  }
}

CAutomation* ModelObjectBehind(IUnknown* pointer) noexcept {
  if (pointer == nullptr) return nullptr;
  void* object = nullptr;
  if (FAILED(pointer->QueryInterface(kModelObjectId, &object))) return nullptr;
  return static_cast<CAutomation*>(object);
}

}  // namespace quor::workbench
