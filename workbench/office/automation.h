#ifndef QUOR_WORKBENCH_OFFICE_AUTOMATION_H
#define QUOR_WORKBENCH_OFFICE_AUTOMATION_H

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "workbench/office/model.h"
#include "workbench/office/published_members.h"
#include "workbench/office/value.h"

// Base class of every object of the stand-in. Example of a derived class:
//
//   class CLinks final : public CAutomation {
//    public:
//     explicit CLinks(CModel& model) : CAutomation(model, Members()) {}
//    private:
//     static const CMemberTable& Members() {
//       static const CMemberTable table(
//           "Links", L"Links", &CommonMembers(),
//           {Get(L"Count", [](CLinks& self) { return self.m_links.size(); }),
//            Method(L"Add", [](CLinks& self, const CArguments& arguments) { ... })});
//       return table;
//     }
//     std::vector<std::wstring> m_links;
//   };
//
// Members throw CModelError to fail. Create objects with MakeObject<T>(). The workbench holds them
// through CModelPtr only; AddRef is for the add-in, and references counted by it at the end are
// those that the add-in still holds.

namespace quor::workbench {

// Counts references from outside (AddRef, values passed to the add-in) and the workbench's own
// (CModelPtr) separately. The object ends when both counts are zero.
class CCounted {
 public:
  CCounted(const CCounted&) = delete;
  CCounted& operator=(const CCounted&) = delete;

  virtual std::string TypeName() const = 0;
  virtual std::string ObjectName() const {
    return {};
  }  // distinguishes objects of one type in a report
  virtual void ReportSinks(std::vector<AdvisedSink>&) const {}

  unsigned long References() const noexcept { return m_outside; }
  void Keep() noexcept { ++m_inside; }
  void Drop() noexcept;
  void Orphan() noexcept { m_model = nullptr; }  // the model ends before the object

 protected:
  explicit CCounted(CModel& model);
  virtual ~CCounted();

  CModel& Model() const noexcept { return *m_model; }
  // S_OK, or why the object cannot be called: the session is over, the object was released
  // (recorded as a misuse), or the thread is wrong (recorded).
  HRESULT Usability() const noexcept;
  ULONG AddOutside() noexcept;
  ULONG ReleaseOutside() noexcept;

  virtual void OnLastOutsideRelease() noexcept {
  }  // the last outside reference was released; may happen repeatedly
  // The last reference was released. Release members here, not in the destructor: the memory may be
  // kept for a while.
  virtual void OnGone() noexcept {}

 private:
  friend class CModel;
  void Settle() noexcept;

  CModel* m_model;
  uint64_t m_serial;
  ULONG m_outside = 0;
  ULONG m_inside = 0;
  bool m_dead = false;
};

// The workbench's own reference. Does not count as held by the add-in.
template <class T>
class CModelPtr {
 public:
  CModelPtr() noexcept = default;
  CModelPtr(T* object) noexcept : m_object(object) {
    if (m_object != nullptr) m_object->Keep();
  }
  CModelPtr(const CModelPtr& other) noexcept : CModelPtr(other.m_object) {}
  template <std::derived_from<T> Other>
  CModelPtr(const CModelPtr<Other>& other) noexcept : CModelPtr(other.get()) {}
  CModelPtr(CModelPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  CModelPtr& operator=(CModelPtr other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }
  ~CModelPtr() {
    if (m_object != nullptr) m_object->Drop();
  }

  T* get() const noexcept { return m_object; }
  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }
  explicit operator bool() const noexcept { return m_object != nullptr; }
  bool operator==(const CModelPtr& other) const noexcept { return m_object == other.m_object; }

 private:
  T* m_object = nullptr;
};

template <class T, class... Arguments>
CModelPtr<T> MakeObject(Arguments&&... arguments) {
  return CModelPtr<T>(new T(std::forward<Arguments>(arguments)...));
}

class CArrangedArguments;
class CAutomation;

enum class MemberKind { Get, Put, Method };

using MemberHandler = CValue (*)(CAutomation& self, const CArguments& arguments);

inline constexpr UINT kAllArguments = static_cast<UINT>(-1);

// What a type implements; its id and arguments are the published ones.
struct Member {
  const wchar_t* name = nullptr;
  MemberKind kind = MemberKind::Method;
  MemberHandler handler = nullptr;
  MemberHandler writer = nullptr;  // of a property that can be written, too
  UINT least = kAllArguments;      // number of arguments; a property write counts the value, too
  UINT most = 0;
  DISPID id = 0;
  CModel::CallSite site = {};
  const PublishedMember* published = nullptr;
};

// A published event interface of a source. Its connections count as the calls "ItemsEvents.Advise"
// and "ItemsEvents.Unadvise"; a leading underscore is not part of the name.
struct EventInterface {
  explicit EventInterface(const wchar_t* eventInterface);

  const wchar_t* publishedName;
  IID iid;
  std::string name;
  CModel::CallSite advise;
  CModel::CallSite unadvise;
};

// The members and event interfaces of one type as object_model.tsv publishes them. A derived type
// inherits its base's interfaces and members and may replace a member of the same name and kind.
class CMemberTable {
 public:
  // Without a published interface the table is only the base of others.
  CMemberTable(const char* type, const wchar_t* interfaceName, const CMemberTable* base,
               std::vector<Member> members, std::initializer_list<const wchar_t*> events = {});
  CMemberTable(const CMemberTable&) = delete;
  CMemberTable& operator=(const CMemberTable&) = delete;

  const std::string& Type() const noexcept { return m_type; }
  bool HasInterface(REFIID iid) const noexcept;
  const Member* FindByName(std::wstring_view name) const noexcept;  // case does not matter
  // The ids of a member and of arguments of its, as GetIDsOfNames answers.
  HRESULT IdsOf(std::span<const LPOLESTR> names, DISPID* ids) const noexcept;
  const Member* Find(DISPID id, WORD flags) const noexcept;
  const CModel::CallSite& NamesSite() const noexcept { return m_names; }
  const std::vector<EventInterface>& Events() const noexcept { return m_events; }
  // One line for each member that is not published.
  const std::vector<std::string>& Deviations() const noexcept { return m_deviations; }

 private:
  void Publish(const wchar_t* interfaceName);

  std::string m_type;
  std::vector<IID> m_interfaces;
  std::vector<Member> m_members;  // by id, then kind
  std::vector<EventInterface> m_events;
  CModel::CallSite m_names;  // "Type.GetIDsOfNames"
  std::vector<std::string> m_deviations;
};

// IUnknown and IDispatch over a member table. Every interface id of the table returns the same
// IDispatch pointer, because callers bind late. Arguments are converted or refused as
// ITypeInfo::Invoke does; a call that is refused or needs a conversion is recorded as a misuse.
class CAutomation : public CCounted, public IDispatch {
 public:
  std::string TypeName() const override { return m_members.Type(); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return AddOutside(); }
  STDMETHODIMP_(ULONG) Release() override { return ReleaseOutside(); }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 protected:
  CAutomation(CModel& model, const CMemberTable& members);
  const CMemberTable& MemberTable() const noexcept { return m_members; }

  // Called before each member; throws a CModelError once the object has been deleted.
  virtual void RequireAlive() const {}
  // Other interfaces, such as IOleWindow. QueryInterface adds a reference to the returned pointer
  // through AddRef; null: not supported.
  virtual void* OtherInterface(REFIID) { return nullptr; }

 private:
  HRESULT Misfit(const std::string& call, HRESULT code);
  HRESULT Call(const Member& member, CArrangedArguments& arranged, VARIANT* result,
               EXCEPINFO* exception, UINT* badArgument);
  CValue Perform(const Member& member, const CArguments& arguments, CallRecord* record);
  void CheckResult(const Member& member, const VARIANT& result);

  const CMemberTable& m_members;
};

// The model's object behind an interface pointer from a caller, for example a contact to be linked
// to an entry; borrowed. Null if it is not an object of the model, or not a T.
CAutomation* ModelObjectBehind(IUnknown* pointer) noexcept;
template <class T>
T* ObjectBehind(IUnknown* pointer) noexcept {
  return dynamic_cast<T*>(ModelObjectBehind(pointer));
}

// --- member table entries ---
//
// The code of a member is a lambda without captures, or a member function as a template argument.
// It takes the object and, if it needs them, the arguments. It returns nothing, any type that
// converts to CValue, a number, an enumerator or a CModelPtr.

namespace detail {

template <class Code>
struct ObjectOf;
template <class Code, class R, class T, class... A>
struct ObjectOf<R (Code::*)(T&, A...) const> {
  using Type = T;
};

template <auto function>
struct FunctionCode;
template <class T, class R, class... A, R (T::*function)(A...)>
struct FunctionCode<function> {
  R operator()(T& self, A... arguments) const { return (self.*function)(arguments...); }
};
template <class T, class R, class... A, R (T::*function)(A...) const>
struct FunctionCode<function> {
  R operator()(T& self, A... arguments) const { return (self.*function)(arguments...); }
};

template <class T>
CValue ToValue(T&& value) {
  using Plain = std::remove_cvref_t<T>;
  if constexpr (requires { value.get(); }) {
    return CValue(static_cast<IDispatch*>(value.get()));
  } else if constexpr (std::is_enum_v<Plain> || std::same_as<Plain, size_t>) {
    return CValue(static_cast<long>(value));
  } else {
    return CValue(std::forward<T>(value));
  }
}

template <class Code>
CValue Run(CAutomation& self, const CArguments& arguments) {
  auto& object = static_cast<typename ObjectOf<decltype(&Code::operator())>::Type&>(self);
  const auto run = [&]() -> decltype(auto) {
    if constexpr (std::is_invocable_v<Code, decltype(object), const CArguments&>) {
      return Code()(object, arguments);
    } else {
      return Code()(object);
    }
  };
  if constexpr (std::is_void_v<decltype(run())>) {
    run();
    return {};
  } else {
    return ToValue(run());
  }
}

}  // namespace detail

template <class Reader>
Member Get(const wchar_t* name, Reader) {
  return {.name = name, .kind = MemberKind::Get, .handler = &detail::Run<Reader>};
}
template <auto reader>
Member Get(const wchar_t* name) {
  return Get(name, detail::FunctionCode<reader>());
}

// A property that can be read and written. The value is the last argument of the writer; an indexed
// property has others before it.
template <class Reader, class Writer>
Member Property(const wchar_t* name, Reader, Writer) {
  return {.name = name,
          .kind = MemberKind::Get,
          .handler = &detail::Run<Reader>,
          .writer = &detail::Run<Writer>};
}
template <auto reader, auto writer>
Member Property(const wchar_t* name) {
  return Property(name, detail::FunctionCode<reader>(), detail::FunctionCode<writer>());
}

// The data do not say which arguments are optional: `least` is the number of those that are not.
template <class Code>
Member Method(const wchar_t* name, UINT least, Code) {
  return {.name = name, .handler = &detail::Run<Code>, .least = least};
}
template <class Code>
Member Method(const wchar_t* name, Code code) {
  return Method(name, kAllArguments, code);
}
template <auto function>
Member Method(const wchar_t* name, UINT least = kAllArguments) {
  return Method(name, least, detail::FunctionCode<function>());
}

}  // namespace quor::workbench

#endif
