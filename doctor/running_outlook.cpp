#include "doctor/running_outlook.h"

// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <utility>

#include "doctor/gather.h"

namespace quor::doctor {
namespace {

// A late-bound object; null if the call that returns it failed.
class CObject {
 public:
  explicit CObject(IDispatch* object = nullptr) noexcept : m_object(object) {}
  ~CObject() {
    if (m_object != nullptr) m_object->Release();
  }
  CObject(CObject&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  CObject& operator=(CObject&&) = delete;

  explicit operator bool() const noexcept { return m_object != nullptr; }

  // Reads a property, or calls a method with one text argument. False on failure.
  bool Get(const wchar_t* name, const wchar_t* argument, VARIANT& result) const noexcept {
    VariantInit(&result);
    auto* member = const_cast<LPOLESTR>(name);
    DISPID id = 0;
    if (m_object == nullptr ||
        FAILED(m_object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_NEUTRAL, &id))) {
      return false;
    }
    VARIANT text;
    VariantInit(&text);
    if (argument != nullptr) {
      text.vt = VT_BSTR;
      text.bstrVal = SysAllocString(argument);
    }
    DISPPARAMS arguments = {argument == nullptr ? nullptr : &text, nullptr,
                            argument == nullptr ? 0u : 1u, 0};
    const HRESULT called =
        m_object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                         &arguments, &result, nullptr, nullptr);
    VariantClear(&text);
    return SUCCEEDED(called);
  }

  CObject GetObject(const wchar_t* name, const wchar_t* argument = nullptr) const noexcept {
    VARIANT result;
    if (!Get(name, argument, result)) return CObject();
    if (result.vt == VT_DISPATCH) return CObject(result.pdispVal);
    VariantClear(&result);
    return CObject();
  }

 private:
  IDispatch* m_object;
};

CObject ActiveOutlook() noexcept {
  CLSID classId;
  IUnknown* unknown = nullptr;
  IDispatch* outlook = nullptr;
  if (FAILED(CLSIDFromProgID(L"Outlook.Application", &classId)) ||
      FAILED(GetActiveObject(classId, nullptr, &unknown)) || unknown == nullptr) {
    return CObject();  // no Outlook, or one that is closing
  }
  unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&outlook));
  unknown->Release();
  return CObject(outlook);
}

bool IsElevated(HWND window) noexcept {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
  HANDLE token = nullptr;
  TOKEN_ELEVATION elevation = {};
  DWORD size = sizeof elevation;
  if (process != nullptr && OpenProcessToken(process, TOKEN_QUERY, &token)) {
    GetTokenInformation(token, TokenElevation, &elevation, size, &size);
    CloseHandle(token);
  } else {
    // Windows does not let a normal program inspect an elevated one.
    elevation.TokenIsElevated = GetLastError() == ERROR_ACCESS_DENIED;
  }
  if (process != nullptr) CloseHandle(process);
  return elevation.TokenIsElevated != 0;
}

}  // namespace

RunningOutlook LookAtRunningOutlook() {
  RunningOutlook running;
  const HWND window = FindWindowW(L"rctrl_renwnd32", nullptr);
  running.runs = window != nullptr;
  running.elevated = running.runs && IsElevated(window);
  // A call into an Outlook that hangs would not return.
  if (running.runs && IsHungAppWindow(window)) return running;
  const CObject outlook = ActiveOutlook();
  if (!outlook) return running;
  running.runs = true;
  const CObject addIns = outlook.GetObject(L"COMAddIns");
  if (!addIns) return running;
  running.answers = true;
  const CObject addIn = addIns.GetObject(L"Item", kProgId);
  VARIANT connected;
  if (addIn && addIn.Get(L"Connect", nullptr, connected)) {
    running.connected = connected.vt == VT_BOOL && connected.boolVal != VARIANT_FALSE;
    VariantClear(&connected);
  }
  return running;
}

}  // namespace quor::doctor
