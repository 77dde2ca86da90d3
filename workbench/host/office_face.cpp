#include "workbench/host/office_face.h"

#include <algorithm>

#include "workbench/host/screenshot.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kFirstExplorerRibbon = 14;
constexpr int kFirstInspectorRibbon = 12;
constexpr char kExplorerRibbon[] = "Microsoft.Outlook.Explorer";
constexpr char kContactRibbon[] = "Microsoft.Outlook.Contact";

const wchar_t* TabOf(ItemType type, bool calendarAsTable) {
  switch (type) {
    case ItemType::Appointment:
      return calendarAsTable ? L"TabCalendarTableView" : L"TabCalendar";
    case ItemType::Contact:
    case ItemType::DistributionList:
      return L"TabContacts";
    case ItemType::Task:
      return L"TabTasks";
    case ItemType::Journal:
      return L"TabJournals";
    case ItemType::Note:
      return L"TabNotes";
    case ItemType::Mail:
      break;
  }
  return L"TabMail";
}

}  // namespace

COfficeFace::COfficeFace(int version, bool painted,
                         std::function<void(const std::string&)> askRibbon)
    : m_version(version), m_painted(painted), m_askRibbon(std::move(askRibbon)) {}

COfficeFace::~COfficeFace() = default;

void COfficeFace::LoadRibbon(const std::string& ribbonId, const std::string& document,
                             IUnknown* callbacks) {
  const bool isExplorer = ribbonId == kExplorerRibbon;
  if (!isExplorer && ribbonId != kContactRibbon) return;
  std::unique_ptr<CRibbonHost>& host = isExplorer ? m_explorerRibbon : m_contactRibbon;
  host = std::make_unique<CRibbonHost>(m_session->Model(),
                                       isExplorer ? RibbonWindow::Explorer : RibbonWindow::Contact);
  host->Load(callbacks, WideFromUtf8(document));
  // A copy: a callback may close a window.
  const std::vector<PartsPtr> windows = m_windows;
  for (const auto& parts : windows)
    OpenRibbon(*parts);
}

void COfficeFace::UnloadRibbons() {
  for (const auto& parts : m_windows) {
    parts->window->SetRibbon(nullptr);
    parts->ribbon = nullptr;
  }
  if (m_explorerRibbon) m_explorerRibbon->Unload();
  if (m_contactRibbon) m_contactRibbon->Unload();
  m_contactRibbonAsked = false;
}

// Inside the first main window, beside its panel with the base.
WindowOptions COfficeFace::InspectorPlace() const {
  constexpr int kInset = 30;  // pixels
  constexpr int kBelow = 160;
  WindowOptions place;
  place.width -= kPanelWidth + 2 * kInset;
  place.height -= 2 * kBelow;
  for (const auto& parts : m_windows) {
    if (!parts->object->IsExplorer()) continue;
    POINT corner = {kInset, kBelow};
    ClientToScreen(parts->window->Handle(), &corner);
    place.left = static_cast<int>(corner.x);
    place.top = static_cast<int>(corner.y);
    break;
  }
  return place;
}

COfficeFace::PartsPtr COfficeFace::PartsOf(CWindowObject& window) {
  for (const auto& parts : m_windows) {
    if (parts->object == &window) return parts;
  }
  const bool isExplorer = window.IsExplorer();
  const bool hasRibbon = m_version >= (isExplorer ? kFirstExplorerRibbon : kFirstInspectorRibbon);
  auto parts = std::make_shared<WindowParts>();
  parts->object = &window;
  parts->bars =
      MakeObject<CCommandBars>(m_session->Model(), m_registry,
                               hasRibbon ? CCommandBars::Kind::Hidden : CCommandBars::Kind::Shown);
  OutlookWindowOptions options;
  if (!isExplorer) options.window = InspectorPlace();
  options.window.painted = m_painted && HasScreen();
  options.skin = hasRibbon ? Skin::Ribbon : Skin::Toolbars;
  parts->window = std::make_unique<COutlookWindow>(*m_session, window, *parts->bars, options);
  if (isExplorer) parts->window->SetPanel(m_panel);
  m_windows.push_back(parts);
  return parts;
}

COfficeFace::PartsPtr COfficeFace::Find(CWindowObject* window) {
  for (const auto& parts : m_windows) {
    if (window ? parts->object == window : parts->object->IsExplorer()) return parts;
  }
  throw CScenarioError("no such window is open");
}

void COfficeFace::OpenRibbon(WindowParts& parts) {
  CRibbonHost* host = parts.object->IsExplorer() ? m_explorerRibbon.get() : m_contactRibbon.get();
  if (!host || !host->IsLoaded() || parts.ribbon) return;
  parts.ribbon = host->OpenView(parts.object);
  if (!parts.object->IsExplorer()) parts.ribbon->SelectTab(L"TabContact");
  parts.window->SetRibbon(parts.ribbon);
  Update(parts);
}

void COfficeFace::OnShown(CWindowObject& window) {
  const PartsPtr parts = PartsOf(window);
  if (!window.IsExplorer() && m_version >= kFirstInspectorRibbon && !m_contactRibbonAsked) {
    m_contactRibbonAsked = true;
    m_askRibbon(kContactRibbon);
  }
  OpenRibbon(*parts);
  parts->window->Show();
  if (const auto ribbon = parts->ribbon) ribbon->Redraw();
}

void COfficeFace::OnClosed(CWindowObject& window) {
  const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                  [&](const auto& parts) { return parts->object == &window; });
  if (found == m_windows.end()) return;
  const PartsPtr parts = *found;
  m_windows.erase(found);
  ShowWindow(parts->window->Handle(), SW_HIDE);
  parts->bars->Close();
}

// Redraws the window with the tab of its folder.
void COfficeFace::Update(WindowParts& parts) {
  parts.window->Redraw();
  if (!parts.object->IsExplorer() || !parts.ribbon) return;
  const auto& explorer = static_cast<CExplorer&>(*parts.object);
  parts.ribbon->SelectTab(TabOf(explorer.Folder().itemType, m_calendarAsTable));
}

void COfficeFace::OnChanged() {
  for (const auto& parts : m_windows)
    Update(*parts);
}

void COfficeFace::DrawStale() {
  const std::vector<PartsPtr> windows = m_windows;
  for (const auto& parts : windows) {
    const auto ribbon = parts->ribbon;
    if (ribbon && ribbon->Redraw() != 0) parts->window->Redraw();
  }
}

RibbonFigures COfficeFace::TakeRibbonFigures() {
  const std::vector<PartsPtr> windows = m_windows;
  for (const auto& parts : windows) {
    if (const auto ribbon = parts->ribbon) ribbon->Redraw();
  }
  RibbonFigures sum;
  for (CRibbonHost* host : {m_explorerRibbon.get(), m_contactRibbon.get()}) {
    if (!host) continue;
    sum.callbacks += host->Figures().callbacks;
    sum.invalidations += host->Figures().invalidations;
    sum.microseconds += host->Figures().microseconds;
    host->ResetFigures();
  }
  return sum;
}

void COfficeFace::RenderToPng(CWindowObject* window, const std::wstring& path,
                              const PictureLook& look) {
  Find(window)->window->RenderToPng(path, look);
}

void COfficeFace::OpenMenu(CWindowObject* window, const std::vector<std::wstring>& path) {
  const PartsPtr parts = Find(window);
  if (path.empty()) return parts->window->CloseMenus();
  parts->window->OpenMenu(path);
}

void COfficeFace::ForgetImages() {
  for (const auto& parts : m_windows) {
    if (parts->ribbon) parts->ribbon->ForgetImages();
  }
}

void COfficeFace::ShowCalendarAsTable(bool table) {
  m_calendarAsTable = table;
  OnChanged();
}

std::vector<ControlFace> COfficeFace::Controls(CWindowObject* window) {
  const PartsPtr parts = Find(window);
  if (const auto ribbon = parts->ribbon) return ribbon->ControlFaces();
  return parts->bars->ControlFaces();
}

void COfficeFace::Click(CWindowObject* window, const std::vector<std::wstring>& path) {
  const PartsPtr parts = Find(window);
  if (const auto ribbon = parts->ribbon) return ribbon->Click(path);
  parts->bars->Click(path);
}

void COfficeFace::DeleteControl(const std::vector<std::wstring>& path) {
  Find(nullptr)->bars->DeleteControl(path);
}

void COfficeFace::EnterText(CWindowObject* window, const std::wstring& control,
                            const std::wstring& text) {
  const PartsPtr parts = Find(window);
  if (const auto ribbon = parts->ribbon) return ribbon->EnterText({&control, 1}, text);
  parts->bars->EnterText({&control, 1}, text);
}

void COfficeFace::PickEntry(CWindowObject* window, const std::wstring& control,
                            const std::wstring& entry) {
  const PartsPtr parts = Find(window);
  if (const auto ribbon = parts->ribbon) return ribbon->PickEntry({&control, 1}, entry);
  parts->bars->PickEntry({&control, 1}, entry);
}

}  // namespace quor::workbench
