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

// A published identifier of Outlook's or Office's: they differ in their first part alone.
constexpr IID OfficeId(unsigned long head) noexcept {
  return {head, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
}

// A member's name and the dispatch id that its interface gave for it. One static object per
// interface and member: the name is looked up on the first use and never again.
class CMemberId {
 public:
  explicit constexpr CMemberId(const wchar_t* name) noexcept : m_name(name) {}
  CMemberId(const CMemberId&) = delete;
  CMemberId& operator=(const CMemberId&) = delete;

  const wchar_t* Name() const noexcept { return m_name; }
  // Throws _com_error when the object knows no member of this name.
  DISPID Resolve(IDispatch& object, REFIID iid);

 private:
  const wchar_t* m_name;
  DISPID m_id = DISPID_UNKNOWN;
};

// A text in Outlook's own string, for those who read many: no copy is made unless one is asked for.
class CText {
 public:
  // Takes the value over; throws _com_error if it is no string and cannot be made one.
  explicit CText(VARIANT& value);
  CText(CText&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
  CText& operator=(CText&&) = delete;
  ~CText() { SysFreeString(m_text); }

  std::wstring_view View() const noexcept;  // valid as long as the text
  operator std::wstring() const { return std::wstring(View()); }

 private:
  BSTR m_text = nullptr;
};

// A counted reference to an object of Outlook's or Office's, called late-bound. The typed wrappers
// derive from it, so that one DLL serves every version and both bitnesses. Copies share the object.
//
// Every call may pump messages: a timer tick, a sink or a shutdown can run inside it. Every call
// throws _com_error with the failure that the object reported, issued for the wrapper's interface.
class CDispatchObject {
 public:
  CDispatchObject() = default;

  explicit operator bool() const noexcept { return m_object != nullptr; }
  IDispatch* Get() const noexcept { return m_object; }
  // Empty before the object is released: that calls out.
  void Release() noexcept { const IDispatchPtr released(m_object.Detach(), false); }

 protected:
  CDispatchObject(IDispatchPtr object, REFIID iid) : m_object(std::move(object)), m_iid(&iid) {}

  _variant_t GetProperty(CMemberId& member) const;
  // An object is passed as VT_DISPATCH with a plain property put, as Office declares it.
  void PutProperty(CMemberId& member, const _variant_t& value) const;
  // Arguments in the order of the declaration.
  template <std::same_as<_variant_t>... Arguments>
  _variant_t CallMethod(CMemberId& member, const Arguments&... arguments) const {
    if constexpr (sizeof...(Arguments) == 0) {
      return Invoke(member, DISPATCH_METHOD, std::span<const VARIANT>());
    } else {
      const VARIANT list[] = {arguments...};
      return Invoke(member, DISPATCH_METHOD, list);
    }
  }
  // A property that takes arguments, such as an index.
  _variant_t GetIndexed(CMemberId& member, const _variant_t& index) const;

  CText GetText(CMemberId& member) const;
  int32_t GetLong(CMemberId& member) const;
  bool GetBool(CMemberId& member) const;
  void PutText(CMemberId& member, std::wstring_view value) const;
  void PutLong(CMemberId& member, int32_t value) const;
  void PutBool(CMemberId& member, bool value) const;

  // The object in a result; null when Outlook answered "nothing".
  IDispatchPtr ObjectFrom(const _variant_t& result) const;

 private:
  _variant_t Invoke(CMemberId& member, WORD flags, std::span<const VARIANT> arguments) const;
  // Into an empty value; null for a call that has no result.
  void InvokeInto(VARIANT* value, CMemberId& member, WORD flags,
                  std::span<const VARIANT> arguments) const;

  IDispatchPtr m_object;
  const IID* m_iid = &IID_IDispatch;
};

// The object as a T; an empty T when there is no object or it does not answer T's interface.
template <std::derived_from<CDispatchObject> T>
T QueryObject(IUnknown* object) {
  IDispatch* found = nullptr;
  if (object == nullptr ||
      FAILED(object->QueryInterface(T::InterfaceId(), reinterpret_cast<void**>(&found)))) {
    return T();
  }
  return T(IDispatchPtr(found, false));
}

}  // namespace quor

#endif
