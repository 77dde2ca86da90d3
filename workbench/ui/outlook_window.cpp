#include "workbench/ui/outlook_window.h"

#include <algorithm>
#include <utility>

#include "workbench/office/outlook_ids.h"

namespace quor::workbench {
namespace {

constexpr DISPID kBusinessNumber = 0x3A08;
constexpr DISPID kMobileNumber = 0x3A1C;
constexpr DISPID kHomeNumber = 0x3A09;

std::wstring NameOf(const StoredItem& item) {
  for (const DISPID field : {field::kFileAs, field::kFullName, field::kSubject}) {
    std::wstring name = item.fields.Get(field);
    if (!name.empty()) return name;
  }
  return L"(no name)";
}

bool IsEarlier(const StoredItemPtr& left, const StoredItemPtr& right) {
  return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, NameOf(*left).c_str(), -1,
                        NameOf(*right).c_str(), -1) == CSTR_LESS_THAN;
}

// "BusinessTelephoneNumber" is shown as "Business".
std::wstring LabelOf(std::wstring label) {
  for (const wchar_t* tail : {L"TelephoneNumber", L"Number"}) {
    const size_t at = label.rfind(tail);
    if (at != std::wstring::npos) return label.substr(0, at);
  }
  return label;
}

}  // namespace

Module ModuleOf(ItemType type) {
  switch (type) {
    case ItemType::Appointment:
      return Module::Calendar;
    case ItemType::Contact:
    case ItemType::DistributionList:
      return Module::Contacts;
    case ItemType::Task:
      return Module::Tasks;
    case ItemType::Journal:
      return Module::Journal;
    case ItemType::Note:
      return Module::Notes;
    case ItemType::Mail:
      break;
  }
  return Module::Mail;
}

COutlookWindow::COutlookWindow(CSession& session, CWindowObject& object,
                               CModelPtr<CCommandBars> bars, const OutlookWindowOptions& options)
    : m_session(session),
      m_object(object),
      m_explorer(dynamic_cast<CExplorer*>(&object)),
      m_inspector(dynamic_cast<CInspector*>(&object)),
      m_bars(std::move(bars)),
      m_options(options),
      m_window(*this, options.window) {
  m_bars->SetChangeHandler([this] { m_window.Redraw(); });
}

COutlookWindow::~COutlookWindow() {
  m_bars->SetChangeHandler(nullptr);
}

void COutlookWindow::SetRibbon(std::shared_ptr<CRibbonView> ribbon) {
  m_ribbon = std::move(ribbon);
  m_window.Redraw();
}

void COutlookWindow::SetPanel(IBasePanel* panel) {
  m_panel = panel;
  m_window.Redraw();
}

// --- the window's content ---

WindowFace COutlookWindow::Face() {
  WindowFace face;
  face.skin = m_options.skin;
  face.theme = m_theme;
  face.inspector = m_inspector != nullptr;
  if (!m_object.IsOpen()) return face;
  face.title = m_object.CaptionText();
  if (m_options.skin == Skin::Toolbars) face.bars = m_bars->Faces();
  if (const auto ribbon = m_ribbon) {
    face.ribbon = ribbon->Tab(ribbon->ActiveTab(), CRibbonView::Extent::Drawn);
    if (!m_object.IsOpen()) return face;  // closed inside a callback
  }
  if (m_panel != nullptr) face.panel = m_panel->Face();
  if (m_explorer != nullptr) {
    face.module = ModuleOf(m_explorer->Folder().itemType);
    FillFolders(face);
    FillItems(face);
    face.status = L"Items: " + std::to_wstring(m_items.size());
  } else if (m_inspector->Item() != nullptr) {
    const CItem& item = *m_inspector->Item();  // with unsaved changes
    face.module = ModuleOf(item.Stored()->type);
    FillCard(face, NameOf(*item.Stored()), [&](DISPID property) { return item.Text(property); });
  }
  return face;
}

void COutlookWindow::AddFolder(WindowFace& face, FolderNode& folder, int depth) {
  FolderRow row;
  row.name = folder.name;
  row.depth = depth;
  row.kind = ModuleOf(folder.itemType);
  row.selected = &folder == &m_explorer->Folder();
  face.folders.push_back(std::move(row));
  m_folders.push_back(&folder);
  for (const auto& child : folder.folders)
    AddFolder(face, *child, depth + 1);
}

void COutlookWindow::FillFolders(WindowFace& face) {
  m_folders.clear();
  for (const auto& store : m_session.Mailbox().Stores())
    AddFolder(face, *store->top, 0);
}

void COutlookWindow::FillItems(WindowFace& face) {
  m_items = m_explorer->Folder().items;
  std::stable_sort(m_items.begin(), m_items.end(), IsEarlier);
  const bool contacts = face.module == Module::Contacts;
  face.columns = contacts ? std::vector<std::wstring>{L"Full Name", L"Business", L"Mobile", L"Home"}
                          : std::vector<std::wstring>{L"Subject"};
  const auto& selected = m_explorer->SelectedItems();
  for (const StoredItemPtr& item : m_items) {
    ListRow row;
    row.cells.push_back(NameOf(*item));
    for (const DISPID number : {kBusinessNumber, kMobileNumber, kHomeNumber}) {
      if (contacts) row.cells.push_back(item->fields.Get(number));
    }
    row.selected = std::find(selected.begin(), selected.end(), item) != selected.end();
    face.rows.push_back(std::move(row));
  }
  if (selected.empty()) return;
  const StoredItem& item = *selected.front();
  FillCard(face, NameOf(item), [&](DISPID property) { return item.fields.Get(property); });
}

void COutlookWindow::FillCard(WindowFace& face, const std::wstring& name,
                              const std::function<std::wstring(DISPID)>& textOf) {
  const std::wstring fullName = textOf(field::kFullName);
  face.cardTitle = fullName.empty() ? name : fullName;
  const auto add = [&face](const std::wstring& label, const std::wstring& value) {
    if (!value.empty()) face.card.push_back({label, value});
  };
  add(L"Company", textOf(field::kCompanyName));
  for (const wchar_t* property : kNumberProperties)
    add(LabelOf(property), textOf(TextPropertyByName(property)));
  add(L"Notes", textOf(field::kBody));
}

std::vector<ControlFace> COutlookWindow::Controls() const {
  return OnControls([](auto& controls) { return controls.ControlFaces(); });
}

std::vector<ControlFace> COutlookWindow::MenuItems(int handle) {
  if (const auto ribbon = m_ribbon) return ribbon->OpenMenu(handle);
  const std::vector<ControlFace> controls = m_bars->ControlFaces(true);
  const ControlFace* menu = FindFace(controls, handle);
  if (menu == nullptr || !menu->enabled || !menu->visible) {
    throw CUserActionError("that menu cannot be opened");
  }
  return menu->items;
}

void COutlookWindow::OpenMenu(const std::vector<std::wstring>& path) {
  const std::vector<ControlFace> controls = Controls();
  std::vector<int> handles;
  for (size_t steps = 1; steps <= path.size(); ++steps) {
    const ControlFace* face = FindFace(controls, std::span(path).first(steps));
    if (face == nullptr || !face->enabled || !face->visible) {
      throw CUserActionError("there is no menu \"" + Utf8FromWide(path[steps - 1]) +
                             "\" that can be opened");
    }
    handles.push_back(face->handle);
  }
  m_window.OpenMenus(std::move(handles));
}

void COutlookWindow::RenderToPng(const std::wstring& path, const PictureLook& look) {
  m_theme = look.theme;
  m_window.RenderToPng(path, look.scale);
  m_theme = Theme::Light;
}

// --- the user's actions ---

void COutlookWindow::SelectFolder(size_t row) {
  if (row < m_folders.size()) m_explorer->SwitchFolder(*m_folders[row]);
}

void COutlookWindow::SelectRow(size_t row) {
  if (row < m_items.size()) m_explorer->Select({m_items[row]});
}

void COutlookWindow::OpenRow(size_t row) {
  if (row >= m_items.size()) return;
  const CModelPtr<CItem> item = m_session.ItemObject(m_items[row]);
  m_session.ShowInspector(*m_session.InspectorFor(*item));
}

void COutlookWindow::PressPanelButton(int id) {
  if (m_panel != nullptr) m_panel->Press(id);
}

// May destroy this window.
void COutlookWindow::Close() {
  if (m_explorer != nullptr) {
    m_session.CloseExplorer(*m_explorer);
  } else {
    m_session.CloseInspector(*m_inspector);
  }
}

}  // namespace quor::workbench
