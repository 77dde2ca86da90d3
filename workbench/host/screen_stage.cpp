#include "workbench/host/screen_stage.h"

#include "workbench/host/key_stroke.h"
#include "workbench/host/screenshot.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

ControlView ViewOf(const ControlFace& face) {
  ControlView view;
  view.id = Utf8FromWide(face.id);
  view.kind = Utf8FromWide(KindName(face.kind));
  view.caption = Utf8FromWide(face.caption);
  view.text = Utf8FromWide(face.text);
  view.enabled = face.enabled;
  view.visible = face.visible;
  view.picture = face.hasPicture;
  for (const ControlFace& item : face.items)
    view.items.push_back(ViewOf(item));
  for (const std::wstring& entry : face.entries) {
    ControlView item;
    item.caption = Utf8FromWide(entry);
    view.items.push_back(item);
  }
  return view;
}

std::vector<std::wstring> WidePath(const std::vector<std::string>& path) {
  std::vector<std::wstring> wide;
  wide.reserve(path.size());
  for (const std::string& part : path)
    wide.push_back(WideFromUtf8(part));
  return wide;
}

}  // namespace

CScreenStage::CScreenStage(COutlook& outlook, COfficeFace& face, CAddInHost& host,
                           COptionsWindow& options, std::string pictureFolder)
    : m_outlook(outlook),
      m_face(face),
      m_host(host),
      m_options(options),
      m_pictureFolder(std::move(pictureFolder)) {}

CWindowObject* CScreenStage::InspectorOf(const std::string& name) {
  if (name.empty()) return nullptr;
  const StoredItemPtr item = m_outlook.FindItem(name);
  for (const CModelPtr<CInspector>& inspector : m_outlook.OpenInspectors()) {
    if (inspector->Item() && inspector->Item()->Stored() == item) return inspector.get();
  }
  throw CScenarioError("the window of \"" + name + "\" is not open");
}

COfficeFace::WindowPtr CScreenStage::WindowOf(const std::string& inspector) {
  return m_face.Find(InspectorOf(inspector));
}

std::vector<ControlView> CScreenStage::Controls(const std::string& inspector) {
  std::vector<ControlView> views;
  for (const ControlFace& face : WindowOf(inspector)->Controls()) {
    views.push_back(ViewOf(face));
    views.back().role = RoleOf(views.back().id);
  }
  return views;
}

std::vector<std::wstring> CScreenStage::Path(const std::string& inspector,
                                             std::vector<std::string> path) {
  const std::vector<ControlView> controls = Controls(inspector);
  const auto named = std::ranges::find(controls, path.front(), &ControlView::role);
  if (named != controls.end()) path.front() = named->id;
  return WidePath(path);
}

void CScreenStage::Click(const std::string& inspector, const std::vector<std::string>& path) {
  WindowOf(inspector)->Click(Path(inspector, path));
}

void CScreenStage::DeleteControl(const std::vector<std::string>& path) {
  WindowOf("")->Bars().DeleteControl(Path("", path));
}

void CScreenStage::Type(const std::string& control, const std::string& text) {
  WindowOf("")->Enter(Path("", {control}), WideFromUtf8(text));
}

void CScreenStage::Pick(const std::string& control, const std::string& item) {
  WindowOf("")->Pick(Path("", {control}), WideFromUtf8(item));
}

void CScreenStage::OpenOptions() {
  const CModelPtr<CExplorer> explorer = m_outlook.Session().ActiveExplorer();
  m_options.Open(explorer ? m_face.WindowOf(*explorer) : nullptr);
}

std::vector<HWND> CScreenStage::AllWindows() const {
  std::vector<HWND> windows = m_host.Windows();
  if (m_options.Window()) windows.push_back(m_options.Window());
  return windows;
}

std::vector<WindowView> CScreenStage::Windows() {
  std::vector<WindowView> views;
  for (const HWND window : AllWindows())
    views.push_back(DescribeWindow(window));
  return views;
}

ExplainedText CScreenStage::Explanation(const std::string& title, const std::string& text) {
  const HWND control = FindControl(AllWindows(), title, text);
  return {TooltipOver(control), AccessibleDescriptionOf(control)};
}

// Without a screen nothing tells the window that the mouse has moved.
void CScreenStage::PointAt(const std::string& title, const std::string& text) {
  const HWND control = FindControl(AllWindows(), title, text);
  RECT area = {};
  GetWindowRect(control, &area);
  POINT point = {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  SetCursorPos(point.x, point.y);
  const HWND window = GetParent(control);
  ScreenToClient(window, &point);
  PostMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
}

// The modifiers stay down until the key has been handled.
void CScreenStage::PressKey(const std::string& title, const std::string& key) {
  ActivateByUser(AllWindows(), title);
  m_host.Pump();
  const CKeyStroke stroke(key);
  stroke.Post();
  m_host.Pump();
}

// With a slash, which Windows accepts, too: the path is shown to users of both systems.
std::string CScreenStage::PicturePath(const std::string& name) const {
  return m_pictureFolder + "/" + name + ".png";
}

std::string CScreenStage::Screenshot(const std::string& name, const std::string& title) {
  // First query what the add-in has invalidated.
  m_face.OnChanged();
  const HWND window = title.empty() ? nullptr : FindByTitle(AllWindows(), title);
  return SaveScreenshot(PicturePath(name), window);
}

// Office queries its pictures in the screen's size.
void CScreenStage::ShowScale(int scale) {
  if (scale == m_scale) return;
  m_scale = scale;
  m_host.ShowScale(scale);
  m_face.ForgetImages();
}

std::string CScreenStage::Picture(const PictureOrder& order) {
  std::string path = PicturePath(order.name);
  const COfficeFace::WindowPtr window = WindowOf(order.inspector);
  ShowScale(order.scale);
  window->OpenMenu(WidePath(order.menu));
  window->RenderToPng(WideFromUtf8(path), {order.scale, order.dark ? Theme::Dark : Theme::Light});
  window->CloseMenus();
  ShowScale(kUsualScale);
  return path;
}

}  // namespace quor::workbench
