#include "workbench/ui/main_window.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "workbench/office/value.h"

namespace quor::workbench {
namespace {

constexpr wchar_t kClassName[] = L"rctrl_renwnd32";
constexpr UINT_PTR kEditSubclass = 1;
constexpr WPARAM kSystemCommand = 0xFFF0;  // the low bits are the system's own
constexpr int kEditFontSize = 12;          // pixels at 100 %
constexpr UINT kEndEdit = WM_APP + 1;      // wParam: the key that ends it

void RegisterWindowClass(WNDPROC procedure) {
  WNDCLASSEXW description = {};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = kClassName;
  RegisterClassExW(&description);  // fails harmlessly for further windows
}

// The same part in two paintings.
bool IsSame(const HitArea& left, const HitArea& right) noexcept {
  return left.kind == right.kind && left.handle == right.handle && left.index == right.index;
}

bool IsRow(const HitArea& hit) noexcept {
  return hit.kind == HitArea::Kind::Row || hit.kind == HitArea::Kind::Folder;
}

}  // namespace

CMainWindow::CMainWindow(IWindowContent& content, const WindowOptions& options)
    : m_content(content), m_options(options) {
  RegisterWindowClass(&WindowProcedure);
  RECT frame = {0, 0, options.width * options.scale / 100, options.height * options.scale / 100};
  AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
  m_window = CreateWindowExW(0, kClassName, L"", WS_OVERLAPPEDWINDOW, options.left, options.top,
                             static_cast<int>(frame.right - frame.left),
                             static_cast<int>(frame.bottom - frame.top), nullptr, nullptr,
                             GetModuleHandleW(nullptr), this);
  if (m_window == nullptr) throw std::runtime_error("no window can be made: is there a display?");
}

CMainWindow::~CMainWindow() {
  SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
  DestroyWindow(m_window);
}

void CMainWindow::Show() {
  SetWindowTextW(m_window, m_content.Face().title.c_str());
  ShowWindow(m_window, SW_SHOWNORMAL);
}

void CMainWindow::Redraw() {
  InvalidateRect(m_window, nullptr, FALSE);
}

void CMainWindow::OpenMenus(std::vector<int> handles) {
  m_open = std::move(handles);
  Redraw();
}

void CMainWindow::CloseMenus() {
  m_open.clear();
  Redraw();
}

SceneOptions CMainWindow::Scene(bool withTitleBar) const {
  SceneOptions scene;
  scene.titleBar = withTitleBar;
  scene.width = m_options.width;
  scene.height = m_options.height;
  if (RECT client = {}; !withTitleBar && GetClientRect(m_window, &client)) {
    scene.width = static_cast<int>(client.right) * 100 / m_options.scale;
    scene.height = static_cast<int>(client.bottom) * 100 / m_options.scale;
  }
  scene.notice = m_notice;
  scene.explained =
      m_focus && m_focus->kind == HitArea::Kind::PanelButton ? m_focus->handle : m_pointed;
  for (const int handle : m_open) {
    OpenPart part;
    part.handle = handle;
    try {
      part.items = m_content.MenuItems(handle);
    } catch (const CUserActionError&) {
      break;  // disabled or gone meanwhile
    }
    scene.open.push_back(std::move(part));
  }
  return scene;
}

void CMainWindow::RenderToPng(const std::wstring& path, int scale) {
  const SceneOptions scene = Scene(true);
  CCanvas canvas(scene.width, scene.height + kTitleHeight, scale);
  PaintWindow(canvas, m_content.Face(), scene);
  canvas.Save(path);
}

void CMainWindow::Paint() {
  HWND window = m_window;
  const std::weak_ptr<int> life = m_life;
  PAINTSTRUCT paint = {};
  HDC context = BeginPaint(window, &paint);
  try {
    const SceneOptions scene = Scene(false);
    const WindowFace face = m_content.Face();
    if (m_options.painted && !life.expired() && scene.width > 0 && scene.height > 0) {
      CCanvas canvas(scene.width, scene.height, m_options.scale);
      m_hits = PaintWindow(canvas, face, scene);
      PaintFocus(canvas);
      canvas.CopyTo(context);
    }
    if (!life.expired()) SetWindowTextW(window, face.title.c_str());
  } catch (...) {
    // No exception may leave a window procedure; the next painting tries again.
  }
  EndPaint(window, &paint);
}

void CMainWindow::PaintFocus(CCanvas& canvas) {
  constexpr Colour kFocus = 0x1F1F1F;
  const std::vector<HitArea> stops = Stops();
  if (!m_focus || stops.empty()) return;
  const auto found =
      std::ranges::find_if(stops, [this](const HitArea& stop) { return IsSame(stop, *m_focus); });
  m_focus = found == stops.end() ? stops.front() : *found;
  canvas.Frame(m_focus->rect, kFocus);
}

// Runs a user's action, which may close the window and destroy this object; the result is then
// false.
bool CMainWindow::Try(const std::function<void()>& action) {
  const std::weak_ptr<int> life = m_life;
  std::wstring notice;
  try {
    action();
  } catch (const std::exception& error) {
    notice = WideFromUtf8(error.what());
  }
  if (life.expired()) return false;
  m_notice = std::move(notice);
  Redraw();
  return true;
}

const HitArea* CMainWindow::HitAt(int x, int y) const noexcept {
  const int px = x * 100 / m_options.scale;
  const int py = y * 100 / m_options.scale;
  const auto hit = std::find_if(m_hits.rbegin(), m_hits.rend(), [px, py](const HitArea& area) {
    return area.rect.Contains(px, py);
  });
  return hit == m_hits.rend() ? nullptr : &*hit;
}

void CMainWindow::OnClick(int x, int y) {
  m_focus.reset();
  if (m_edit != nullptr && !EndEdit(true)) return;
  const HitArea* hit = HitAt(x, y);
  if (hit == nullptr || !hit->enabled) {
    CloseMenus();
    return;
  }
  Try([this, area = *hit] { Act(area); });
}

void CMainWindow::OnDoubleClick(int x, int y) {
  const HitArea* hit = HitAt(x, y);
  if (hit == nullptr || hit->kind != HitArea::Kind::Row) {
    OnClick(x, y);
    return;
  }
  Try([this, row = hit->index] { m_content.OpenRow(row); });
}

void CMainWindow::OnPointed(int x, int y) {
  const HitArea* hit = HitAt(x, y);
  const int pointed = hit && hit->kind == HitArea::Kind::PanelButton ? hit->handle : -1;
  if (std::exchange(m_pointed, pointed) != pointed) Redraw();
}

void CMainWindow::ActOnMenu(const HitArea& hit) {
  const auto depth = std::min(static_cast<size_t>(hit.depth), m_open.size());
  const bool wasOpen = depth < m_open.size() && m_open[depth] == hit.handle;
  m_open.resize(depth);
  if (!wasOpen) m_open.push_back(hit.handle);
}

void CMainWindow::Act(const HitArea& hit) {
  using enum HitArea::Kind;
  if (hit.kind == Menu || hit.kind == ComboArrow) return ActOnMenu(hit);
  m_open.clear();
  switch (hit.kind) {
    case Button:
      return m_content.ClickControl(hit.handle);
    case ComboText:
      return BeginEdit(hit);
    case ComboEntry:
      return m_content.PickEntry(hit.handle, hit.index);
    case Folder:
      return m_content.SelectFolder(hit.index);
    case Row:
      return m_content.SelectRow(hit.index);
    case PanelButton:
      return m_content.PressPanelButton(hit.handle);
    default:
      return;
  }
}

// --- the keyboard ---

// Where the keyboard can go: into the innermost open menu, or else to all but it.
std::vector<HitArea> CMainWindow::Stops() const {
  const auto depth = static_cast<int>(m_open.size());
  std::vector<HitArea> stops;
  for (const HitArea& hit : m_hits) {
    if (hit.enabled && hit.depth == depth && hit.kind != HitArea::Kind::ComboArrow) {
      stops.push_back(hit);
    }
  }
  return stops;
}

// Moves on to the next stop, around the end; the rows of a list are one stop unless `inside` it.
void CMainWindow::MoveFocus(int step, bool inside) {
  const std::vector<HitArea> stops = Stops();
  const auto count = static_cast<int>(stops.size());
  if (count == 0) return;
  const auto found = std::ranges::find_if(
      stops, [this](const HitArea& stop) { return m_focus && IsSame(stop, *m_focus); });
  int at = static_cast<int>(found - stops.begin());
  if (found == stops.end()) at = step > 0 ? -1 : count;
  do {
    at = (at + step + count) % count;
  } while (!inside && m_focus && IsRow(*m_focus) && stops[at].kind == m_focus->kind &&
           !IsSame(stops[at], *m_focus));
  m_focus = stops[at];
  if (m_focus->kind == HitArea::Kind::ComboText) BeginEdit(*m_focus);
  Redraw();
}

void CMainWindow::ActOnFocus() {
  const HitArea hit = *m_focus;
  if (hit.kind == HitArea::Kind::Row) {
    Try([this, &hit] { m_content.OpenRow(hit.index); });
  } else {
    Try([this, &hit] { Act(hit); });
  }
}

void CMainWindow::LeaveMenu() {
  const int opener = m_open.back();
  m_open.pop_back();
  const auto found = std::ranges::find_if(m_hits, [opener](const HitArea& hit) {
    return hit.handle == opener && hit.kind != HitArea::Kind::ComboArrow;
  });
  if (found != m_hits.end()) m_focus = *found;
  Redraw();
}

void CMainWindow::OnArrow(WPARAM key) {
  const int step = key == VK_RIGHT || key == VK_DOWN ? 1 : -1;
  const bool across = key == VK_RIGHT || key == VK_LEFT;
  const bool inMenu = !m_open.empty();
  if (inMenu && key == VK_LEFT) {
    LeaveMenu();
  } else if ((key == VK_RIGHT && inMenu && m_focus->kind == HitArea::Kind::Menu) ||
             (key == VK_DOWN && !inMenu &&
              (m_focus->kind == HitArea::Kind::Menu ||
               m_focus->kind == HitArea::Kind::ComboText))) {
    Try([this] { ActOnMenu(*m_focus); });
  } else if (!inMenu || !across) {
    MoveFocus(step, !across);
    if (m_focus && IsRow(*m_focus) && !across) Try([this, hit = *m_focus] { Act(hit); });
  }
}

bool CMainWindow::OnKey(WPARAM key) {
  if (key == VK_TAB) {
    if (m_open.empty()) MoveFocus(GetKeyState(VK_SHIFT) < 0 ? -1 : 1, false);
    return true;
  }
  if (!m_focus) return false;
  switch (key) {
    case VK_RIGHT:
    case VK_LEFT:
    case VK_DOWN:
    case VK_UP:
      OnArrow(key);
      return true;
    case VK_RETURN:
    case VK_SPACE:
      ActOnFocus();
      return true;
    case VK_ESCAPE:
      if (!m_open.empty()) {
        LeaveMenu();
      } else {
        m_focus.reset();
        Redraw();
      }
      return true;
    default:
      return false;
  }
}

// --- typing into a combo box ---

void CMainWindow::BeginEdit(const HitArea& hit) {
  const auto scaled = [this](int value) { return value * m_options.scale / 100; };
  const Rect field = hit.rect.Inset(2);
  m_editHandle = hit.handle;
  m_focus = hit;
  m_edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, scaled(field.x),
                           scaled(field.y), scaled(field.width), scaled(field.height), m_window,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
  if (m_edit == nullptr) return;
  m_editFont.reset(CreateFontW(-scaled(kEditFontSize), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                               DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                               CLEARTYPE_QUALITY, DEFAULT_PITCH, L"Tahoma"));
  SendMessageW(m_edit, WM_SETFONT, reinterpret_cast<WPARAM>(m_editFont.get()), FALSE);
  SetWindowSubclass(m_edit, &EditProcedure, kEditSubclass, reinterpret_cast<DWORD_PTR>(this));
  SetFocus(m_edit);
}

bool CMainWindow::EndEdit(bool commit) {
  HWND edit = std::exchange(m_edit, nullptr);
  if (edit == nullptr) return true;
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(edit)), L'\0');
  GetWindowTextW(edit, text.data(), static_cast<int>(text.size()) + 1);
  DestroyWindow(edit);
  if (!commit || text.empty()) return true;
  return Try([&] { m_content.EnterText(m_editHandle, text); });
}

LRESULT CALLBACK CMainWindow::EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                            UINT_PTR, DWORD_PTR self) {
  auto* owner = reinterpret_cast<CMainWindow*>(self);
  switch (message) {
    case WM_KEYDOWN:
      if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB || wParam == VK_DOWN) {
        // Posted, because the window cannot be destroyed while it handles its own message.
        PostMessageW(owner->m_window, kEndEdit, wParam, 0);
        return 0;
      }
      break;
    case WM_CHAR:
      if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB) return 0;
      break;
    case WM_NCDESTROY:
      RemoveWindowSubclass(window, &EditProcedure, kEditSubclass);
      break;
    default:
      break;
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT CMainWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      Redraw();
      return 0;
    case WM_LBUTTONDOWN:
      OnClick(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      return 0;
    case WM_LBUTTONDBLCLK:
      OnDoubleClick(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      return 0;
    case WM_MOUSEMOVE:
      OnPointed(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      return 0;
    case WM_KEYDOWN:
      if (!OnKey(wParam) && wParam == VK_ESCAPE) CloseMenus();
      return 0;
    case WM_SYSCOMMAND:
      // Alt alone or F10, which open a menu bar; lParam is the letter of Alt with a letter.
      if ((wParam & kSystemCommand) != SC_KEYMENU || lParam != 0) break;
      EndEdit(false);
      m_focus.reset();
      MoveFocus(1, false);
      return 0;
    case kEndEdit:
      // Tab moves on and Down opens the list.
      if (EndEdit(wParam == VK_RETURN || wParam == VK_TAB) && wParam != VK_ESCAPE &&
          wParam != VK_RETURN) {
        OnKey(wParam);
      }
      return 0;
    case WM_CLOSE:
      m_content.Close();
      return 0;
    default:
      break;
  }
  return DefWindowProcW(m_window, message, wParam, lParam);
}

LRESULT CALLBACK CMainWindow::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* created = static_cast<CMainWindow*>(creation->lpCreateParams);
    created->m_window = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* self = reinterpret_cast<CMainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->Handle(message, wParam, lParam);
  } catch (...) {
    return 0;
  }
}

}  // namespace quor::workbench
