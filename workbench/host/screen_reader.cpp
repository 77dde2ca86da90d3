#include "workbench/host/screen_reader.h"

// clang-format off
#include <commctrl.h>
#include <oleacc.h>
// clang-format on

#include "workbench/office/value.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

using TextProperty = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::string ReadText(HWND window, TextProperty property) {
  IAccessible* object = nullptr;
  if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                        __uuidof(IAccessible),
                                        reinterpret_cast<void**>(&object)))) {
    throw CScenarioError("the window has no accessible object");
  }
  VARIANT self = {};
  V_VT(&self) = VT_I4;
  V_I4(&self) = CHILDID_SELF;
  BSTR text = nullptr;
  const bool isRead = (object->*property)(self, &text) == S_OK && text != nullptr;
  std::string read = isRead ? Utf8FromWide(text) : "";
  SysFreeString(text);
  object->Release();
  return read;
}

// The text of the tool that covers the point; empty if there is none.
std::string TextAt(HWND tooltip, HWND window, POINT point) {
  const LRESULT count = SendMessageW(tooltip, TTM_GETTOOLCOUNT, 0, 0);
  for (LRESULT index = 0; index < count; ++index) {
    wchar_t text[1024] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.lpszText = text;
    SendMessageW(tooltip, TTM_ENUMTOOLSW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&tool));
    if (tool.hwnd == window && PtInRect(&tool.rect, point)) return Utf8FromWide(text);
  }
  return "";
}

}  // namespace

std::string AccessibleNameOf(HWND window) {
  return ReadText(window, &IAccessible::get_accName);
}

std::string AccessibleDescriptionOf(HWND window) {
  return ReadText(window, &IAccessible::get_accDescription);
}

std::string TooltipOver(HWND control) {
  const HWND window = GetParent(control);
  RECT area = {};
  GetWindowRect(control, &area);
  POINT middle = {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  ScreenToClient(window, &middle);
  HWND tooltip = nullptr;
  while ((tooltip = FindWindowExW(nullptr, tooltip, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
    if (GetWindow(tooltip, GW_OWNER) != window) continue;
    std::string text = TextAt(tooltip, window, middle);
    if (!text.empty()) return text;
  }
  return "";
}

}  // namespace quor::workbench
