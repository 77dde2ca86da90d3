#include "dialogs/accessible_texts.h"

#include <oleacc.h>

#include <new>
#include <utility>

#include "com/com_object.h"

// Not IID_IAccessible: mingw's import library has code of that name.
_COM_SMARTPTR_TYPEDEF(IAccessible, __uuidof(IAccessible));
_COM_SMARTPTR_TYPEDEF(IEnumVARIANT, IID_IEnumVARIANT);
_COM_SMARTPTR_TYPEDEF(IOleWindow, IID_IOleWindow);

namespace quor {
namespace {

bool IsSelf(const VARIANT& child) noexcept {
  return V_VT(&child) == VT_I4 && V_I4(&child) == CHILDID_SELF;
}

HRESULT CopyText(const std::wstring& text, BSTR* copy) noexcept {
  *copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return *copy == nullptr ? E_OUTOFMEMORY : S_OK;
}

// The window's standard object with other texts. All but name, description and role is the standard
// object's answer.
class CAccessible final : public CComObject<IAccessible, IEnumVARIANT, IOleWindow> {
 public:
  CAccessible(const IAccessiblePtr& standard, long role,
              std::shared_ptr<const AccessibleTexts> texts)
      : m_standard(standard),
        m_children(m_standard),
        m_window(m_standard),
        m_role(role),
        m_texts(std::move(texts)) {}

  // IDispatch, for scripts: the members are IAccessible's
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    return m_standard->GetTypeInfoCount(count);
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) override {
    return m_standard->GetTypeInfo(index, lcid, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid,
                             DISPID* ids) override {
    return m_standard->GetIDsOfNames(iid, names, count, lcid, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID lcid, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
    ITypeInfoPtr info;
    const HRESULT found = m_standard->GetTypeInfo(0, lcid, &info);
    if (FAILED(found)) return found;
    return info->Invoke(static_cast<IAccessible*>(this), id, flags, parameters, result, exception,
                        argument);
  }

  // IAccessible
  STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
    if (name == nullptr) return E_POINTER;
    if (!IsSelf(child) || m_texts->name.empty()) return m_standard->get_accName(child, name);
    return CopyText(m_texts->name, name);
  }
  STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override {
    if (description == nullptr) return E_POINTER;
    if (!IsSelf(child) || m_texts->description.empty()) {
      return m_standard->get_accDescription(child, description);
    }
    return CopyText(m_texts->description, description);
  }
  STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
    if (role == nullptr) return E_POINTER;
    if (!IsSelf(child) || m_role == 0) return m_standard->get_accRole(child, role);
    V_VT(role) = VT_I4;
    V_I4(role) = m_role;
    return S_OK;
  }
  STDMETHODIMP get_accParent(IDispatch** parent) override {
    return m_standard->get_accParent(parent);
  }
  STDMETHODIMP get_accChildCount(LONG* count) override {
    return m_standard->get_accChildCount(count);
  }
  STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override {
    return m_standard->get_accChild(child, object);
  }
  STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
    return m_standard->get_accValue(child, value);
  }
  STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
    return m_standard->get_accState(child, state);
  }
  STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override {
    return m_standard->get_accHelp(child, help);
  }
  STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return m_standard->get_accHelpTopic(file, child, topic);
  }
  STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
    return m_standard->get_accKeyboardShortcut(child, shortcut);
  }
  STDMETHODIMP get_accFocus(VARIANT* child) override { return m_standard->get_accFocus(child); }
  STDMETHODIMP get_accSelection(VARIANT* children) override {
    return m_standard->get_accSelection(children);
  }
  STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
    return m_standard->get_accDefaultAction(child, action);
  }
  STDMETHODIMP accSelect(LONG flags, VARIANT child) override {
    return m_standard->accSelect(flags, child);
  }
  STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                           VARIANT child) override {
    return m_standard->accLocation(left, top, width, height, child);
  }
  STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
    return m_standard->accNavigate(direction, start, end);
  }
  STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* child) override {
    return m_standard->accHitTest(x, y, child);
  }
  STDMETHODIMP accDoDefaultAction(VARIANT child) override {
    return m_standard->accDoDefaultAction(child);
  }
  STDMETHODIMP put_accName(VARIANT child, BSTR name) override {
    return m_standard->put_accName(child, name);
  }
  STDMETHODIMP put_accValue(VARIANT child, BSTR value) override {
    return m_standard->put_accValue(child, value);
  }

  // IEnumVARIANT: the children
  STDMETHODIMP Next(ULONG count, VARIANT* children, ULONG* fetched) override {
    return m_children->Next(count, children, fetched);
  }
  STDMETHODIMP Skip(ULONG count) override { return m_children->Skip(count); }
  STDMETHODIMP Reset() override { return m_children->Reset(); }
  STDMETHODIMP Clone(IEnumVARIANT** copy) override { return m_children->Clone(copy); }

  // IOleWindow
  STDMETHODIMP GetWindow(HWND* window) override { return m_window->GetWindow(window); }
  STDMETHODIMP ContextSensitiveHelp(BOOL enter) override {
    return m_window->ContextSensitiveHelp(enter);
  }

 private:
  void* FindInterface(REFIID iid) noexcept override {
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IAccessible)) {
      return static_cast<IAccessible*>(this);
    }
    if (iid == IID_IEnumVARIANT && m_children != nullptr) return static_cast<IEnumVARIANT*>(this);
    if (iid == IID_IOleWindow && m_window != nullptr) return static_cast<IOleWindow*>(this);
    return nullptr;
  }

  IAccessiblePtr m_standard;
  IEnumVARIANTPtr m_children;
  IOleWindowPtr m_window;
  long m_role;
  std::shared_ptr<const AccessibleTexts> m_texts;
};

}  // namespace

std::optional<LRESULT> CAccessibleTexts::OnMessage(HWND window, UINT message, WPARAM wparam,
                                                   LPARAM lparam) noexcept {
  // The identifier may come without its sign from a program of the other bitness.
  if (message != WM_GETOBJECT || static_cast<LONG>(lparam) != OBJID_CLIENT) return std::nullopt;
  IAccessiblePtr standard;
  if (FAILED(CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible),
                                       reinterpret_cast<void**>(&standard)))) {
    return std::nullopt;
  }
  IAccessiblePtr own(new (std::nothrow) CAccessible(standard, m_role, m_texts), false);
  if (own == nullptr) return std::nullopt;
  return LresultFromObject(__uuidof(IAccessible), wparam, own);
}

}  // namespace quor
