#ifndef QUOR_COM_DISPATCH_OBJECT_H
#define QUOR_COM_DISPATCH_OBJECT_H

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "com/com_pointers.h"

namespace quor {

// An interface id published for Outlook or Office; these ids differ only in their first part.
constexpr IID OfficeId(unsigned long head) noexcept {
  return {head, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
}

// A member's name and the dispatch id that the interface returned for it. Use one static object per
// interface and member, so that the name is looked up only once.
class CMemberId {
 public:
  explicit constexpr CMemberId(const wchar_t* name) noexcept : m_name(name) {}
  CMemberId(const CMemberId&) = delete;
  CMemberId& operator=(const CMemberId&) = delete;

  const wchar_t* Name() const noexcept { return m_name; }
  // Throws _com_error if the object has no member of this name.
  DISPID Resolve(IDispatch& object, REFIID iid);

 private:
  const wchar_t* m_name;
  DISPID m_id = DISPID_UNKNOWN;
};

// A text in Outlook's own BSTR, for code that reads many texts: it is copied only on request.
class CText {
 public:
  // Takes over the value. Throws _com_error if it cannot be converted to a string.
  explicit CText(VARIANT& value);
  CText(CText&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
  CText& operator=(CText&&) = delete;
  ~CText() { SysFreeString(m_text); }

  std::wstring_view View() const noexcept;  // valid as long as this object
  operator std::wstring() const { return std::wstring(View()); }

 private:
  BSTR m_text = nullptr;
};

// A counted reference to an Outlook or Office object, called late-bound, so that one DLL serves
// every version and both bitnesses. The typed wrappers derive from it. Copies share the object.
//
// Every call may pump messages: a timer tick, a sink or a shutdown may run inside it. Every call
// throws _com_error with the object's error and the wrapper's interface id on failure.
class CDispatchObject {
 public:
  CDispatchObject() = default;

  explicit operator bool() const noexcept { return m_object != nullptr; }
  IDispatch* Get() const noexcept { return m_object; }
  // Clears the member first: releasing calls into Outlook and may re-enter.
  void Release() noexcept { const IDispatchPtr released(m_object.Detach(), false); }

 protected:
  CDispatchObject(const IDispatchPtr& object, REFIID iid) : m_object(object), m_iid(&iid) {}

  _variant_t GetProperty(CMemberId& member) const;
  // Passes an object as VT_DISPATCH with a plain property put, as Office declares it.
  void PutProperty(CMemberId& member, const _variant_t& value) const;
  // Arguments are in the order of the declaration.
  template <std::same_as<_variant_t>... Arguments>
  _variant_t CallMethod(CMemberId& member, const Arguments&... arguments) const {
    if constexpr (sizeof...(Arguments) == 0) {
      return Invoke(member, DISPATCH_METHOD, std::span<const VARIANT>());
    } else {
      const VARIANT list[] = {arguments...};
      return Invoke(member, DISPATCH_METHOD, list);
    }
  }
  // Reads a property with an argument, such as an index.
  _variant_t GetIndexed(CMemberId& member, const _variant_t& index) const;

  CText GetText(CMemberId& member) const;
  int32_t GetLong(CMemberId& member) const;
  bool GetBool(CMemberId& member) const;
  void PutText(CMemberId& member, std::wstring_view value) const;
  void PutLong(CMemberId& member, int32_t value) const;
  void PutBool(CMemberId& member, bool value) const;

  // The object in a result; null if Outlook returned none.
  IDispatchPtr ObjectFrom(const _variant_t& result) const;

 private:
  _variant_t Invoke(CMemberId& member, WORD flags, std::span<const VARIANT> arguments) const;
  // `value` must be empty, or null for a call without a result.
  void InvokeInto(VARIANT* value, CMemberId& member, WORD flags,
                  std::span<const VARIANT> arguments) const;

  IDispatchPtr m_object;
  const IID* m_iid = &IID_IDispatch;
};

// Queries the object for T's interface. Empty if there is no object or it lacks the interface.
template <std::derived_from<CDispatchObject> T>
T QueryObject(IUnknown* object) {
  IDispatchPtr found;
  if (object == nullptr ||
      FAILED(object->QueryInterface(T::InterfaceId(), reinterpret_cast<void**>(&found)))) {
    return T();
  }
  return T(found);
}

}  // namespace quor

#endif
