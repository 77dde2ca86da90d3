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

const wchar_t* TabOf(Module module, bool calendarAsTable) {
  constexpr const wchar_t* kTabs[] = {L"TabMail",  L"TabCalendar", L"TabContacts",
                                      L"TabTasks", L"TabNotes",    L"TabJournals"};
  if (module == Module::Calendar && calendarAsTable) return L"TabCalendarTableView";
  return kTabs[static_cast<size_t>(module)];
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
  const std::vector<WindowPtr> windows = m_windows;
  for (const auto& window : windows)
    OpenRibbon(*window);
}

void COfficeFace::UnloadRibbons() {
  for (const auto& window : m_windows)
    window->SetRibbon(nullptr);
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
  for (const auto& window : m_windows) {
    if (!window->Object().IsExplorer()) continue;
    POINT corner = {kInset, kBelow};
    ClientToScreen(window->Handle(), &corner);
    place.left = static_cast<int>(corner.x);
    place.top = static_cast<int>(corner.y);
    break;
  }
  return place;
}

COfficeFace::WindowPtr COfficeFace::Open(CWindowObject& object) {
  for (const auto& window : m_windows) {
    if (&window->Object() == &object) return window;
  }
  const bool isExplorer = object.IsExplorer();
  const bool hasRibbon = m_version >= (isExplorer ? kFirstExplorerRibbon : kFirstInspectorRibbon);
  auto bars =
      MakeObject<CCommandBars>(m_session->Model(), m_registry,
                               hasRibbon ? CCommandBars::Kind::Hidden : CCommandBars::Kind::Shown);
  OutlookWindowOptions options;
  if (!isExplorer) options.window = InspectorPlace();
  options.window.painted = m_painted && HasScreen();
  options.skin = hasRibbon ? Skin::Ribbon : Skin::Toolbars;
  auto window = std::make_shared<COutlookWindow>(*m_session, object, std::move(bars), options);
  if (isExplorer) window->SetPanel(m_panel);
  m_windows.push_back(window);
  return window;
}

COfficeFace::WindowPtr COfficeFace::Find(CWindowObject* object) const {
  for (const auto& window : m_windows) {
    if (object ? &window->Object() == object : window->Object().IsExplorer()) return window;
  }
  throw CScenarioError("no such window is open");
}

void COfficeFace::OpenRibbon(COutlookWindow& window) {
  const bool isExplorer = window.Object().IsExplorer();
  CRibbonHost* host = isExplorer ? m_explorerRibbon.get() : m_contactRibbon.get();
  if (!host || !host->IsLoaded() || window.Ribbon()) return;
  const std::shared_ptr<CRibbonView> ribbon = host->OpenView(&window.Object());
  if (!isExplorer) ribbon->SelectTab(L"TabContact");
  window.SetRibbon(ribbon);
  Update(window);
}

void COfficeFace::OnShown(CWindowObject& object) {
  const WindowPtr window = Open(object);
  if (!object.IsExplorer() && m_version >= kFirstInspectorRibbon && !m_contactRibbonAsked) {
    m_contactRibbonAsked = true;
    m_askRibbon(kContactRibbon);
  }
  OpenRibbon(*window);
  window->Show();
  if (const auto ribbon = window->Ribbon()) ribbon->Redraw();
}

void COfficeFace::OnClosed(CWindowObject& object) {
  const auto found = std::ranges::find(m_windows, &object,
                                       [](const WindowPtr& window) { return &window->Object(); });
  if (found == m_windows.end()) return;
  const WindowPtr window = *found;
  m_windows.erase(found);
  ShowWindow(window->Handle(), SW_HIDE);
  window->Bars().Close();
}

// Redraws the window with the tab of its folder.
void COfficeFace::Update(COutlookWindow& window) {
  window.Redraw();
  const auto ribbon = window.Ribbon();
  if (!window.Object().IsExplorer() || !ribbon) return;
  const auto& explorer = static_cast<const CExplorer&>(window.Object());
  ribbon->SelectTab(TabOf(ModuleOf(explorer.Folder().itemType), m_calendarAsTable));
}

void COfficeFace::OnChanged() {
  for (const auto& window : m_windows)
    Update(*window);
}

void COfficeFace::DrawStale() {
  const std::vector<WindowPtr> windows = m_windows;
  for (const auto& window : windows) {
    const auto ribbon = window->Ribbon();
    if (ribbon && ribbon->Redraw() != 0) window->Redraw();
  }
}

RibbonFigures COfficeFace::TakeRibbonFigures() {
  const std::vector<WindowPtr> windows = m_windows;
  for (const auto& window : windows) {
    if (const auto ribbon = window->Ribbon()) ribbon->Redraw();
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

void COfficeFace::ForgetImages() {
  for (const auto& window : m_windows) {
    if (const auto ribbon = window->Ribbon()) ribbon->ForgetImages();
  }
}

void COfficeFace::ShowCalendarAsTable(bool table) {
  m_calendarAsTable = table;
  OnChanged();
}

}  // namespace quor::workbench
