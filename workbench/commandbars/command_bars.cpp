#include "workbench/commandbars/command_bars.h"

#include <algorithm>

#include "workbench/commandbars/built_in_bars.h"
#include "workbench/commandbars/combo_box.h"
#include "workbench/commandbars/control_collection.h"

namespace quor::workbench {
namespace {

// Bar names are compared without regard to case, as in Office.
bool IsSameName(const std::wstring& left, const std::wstring& right) noexcept {
  return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

StoredControl Store(const CCommandBarControl& control) {
  StoredControl stored{control.TypeNumber(), control.settings, {}};
  if (control.Menu() == nullptr) return stored;
  for (const auto& item : control.Menu()->AllControls()) {
    if (!item->settings.temporary) stored.items.push_back(Store(*item));
  }
  return stored;
}

void Restore(CCommandBar& bar, const std::vector<StoredControl>& controls) {
  for (const StoredControl& stored : controls) {
    NewControl wanted;
    wanted.type = stored.type;
    const auto control = bar.Add(wanted);
    control->settings = stored.settings;
    if (control->Menu() != nullptr) Restore(*control->Menu(), stored.items);
  }
}

CModelPtr<CCommandBarControl> FindInstance(const CCommandBar& bar, int handle) {
  for (const auto& control : bar.AllControls()) {
    if (control->Instance() == handle) return control;
    if (control->Menu() == nullptr) continue;
    if (auto found = FindInstance(*control->Menu(), handle)) return found;
  }
  return {};
}

std::string Named(const CCommandBarControl& control) {
  return '"' + control.ObjectName() + '"';
}

CCommandBarComboBox& AsComboBox(CCommandBarControl& control) {
  auto* combo = dynamic_cast<CCommandBarComboBox*>(&control);
  if (combo == nullptr) throw CUserActionError(Named(control) + " is not a combo box");
  return *combo;
}

}  // namespace

CCommandBars::CCommandBars(CModel& model, std::shared_ptr<CControlRegistry> registry, Kind kind)
    : CEventSource(model, Members()), m_kind(kind), m_registry(std::move(registry)) {
  if (m_kind == Kind::Shown) Restore(BuiltInBars());
}

void CCommandBars::Close() noexcept {
  m_changed = nullptr;
  for (const auto& bar : m_bars)
    bar->Detach();
  m_bars.clear();
}

void CCommandBars::OnGone() noexcept {
  Close();
  CEventSource::OnGone();
}

void CCommandBars::Changed() const {
  if (m_changed) m_changed();
}

std::vector<StoredBar> CCommandBars::StoredBars() const {
  std::vector<StoredBar> stored;
  for (const auto& bar : m_bars) {
    if (bar->settings.builtIn || bar->settings.temporary) continue;
    StoredBar kept{bar->settings, {}};
    for (const auto& control : bar->AllControls()) {
      if (!control->settings.temporary) kept.controls.push_back(Store(*control));
    }
    stored.push_back(std::move(kept));
  }
  return stored;
}

void CCommandBars::Restore(const std::vector<StoredBar>& bars) {
  for (const StoredBar& stored : bars)
    workbench::Restore(*AddBar(stored.settings), stored.controls);
}

CModelPtr<CCommandBar> CCommandBars::AddBar(BarSettings settings) {
  m_bars.push_back(MakeObject<CCommandBar>(Model(), m_registry, *this, std::move(settings)));
  Changed();
  return m_bars.back();
}

long CCommandBars::NextRow(long position) const noexcept {
  long row = 0;
  for (const auto& bar : m_bars) {
    if (bar->settings.position == position) row = std::max(row, bar->settings.row);
  }
  return row + 1;
}

CCommandBar* CCommandBars::FindBar(const std::wstring& name) const noexcept {
  const auto found = std::find_if(m_bars.begin(), m_bars.end(), [&name](const auto& bar) {
    return IsSameName(bar->settings.name, name);
  });
  return found == m_bars.end() ? nullptr : found->get();
}

void CCommandBars::Remove(CCommandBar& bar) {
  const CModelPtr<CCommandBar> kept(&bar);
  std::erase(m_bars, kept);
  bar.Detach();
  Changed();
}

// --- members ---

IDispatch* CCommandBars::ActiveMenuBar() const {
  const auto menu = std::find_if(m_bars.begin(), m_bars.end(), [](const auto& bar) {
    return bar->settings.type == mso::kMenuBar;
  });
  return menu == m_bars.end() ? nullptr : menu->get();
}

CModelPtr<CCommandBar> CCommandBars::Add(const CArguments& arguments) {
  BarSettings settings;
  settings.name = arguments.TextOr(0, L"");
  settings.position = arguments.LongOr(1, mso::kFloating);
  if (settings.position < mso::kLeft || settings.position > mso::kPopupPosition) {
    throw CModelError(E_INVALIDARG, "There is no such position.");
  }
  if (arguments.BoolOr(2, false)) settings.type = mso::kMenuBar;
  if (settings.position == mso::kPopupPosition) settings.type = mso::kPopupBar;
  settings.temporary = arguments.BoolOr(3, false);
  for (int number = 1; settings.name.empty(); ++number) {
    const std::wstring name = L"Custom " + std::to_wstring(number);
    if (FindBar(name) == nullptr) settings.name = name;
  }
  if (FindBar(settings.name) != nullptr) {
    throw CModelError(E_INVALIDARG, "There is a command bar with that name already.");
  }
  settings.row = NextRow(settings.position);
  return AddBar(std::move(settings));
}

CModelPtr<CCommandBar> CCommandBars::Item(const CArguments& arguments) const {
  if (arguments.IsText(0)) {
    CCommandBar* bar = FindBar(arguments.Text(0));
    if (bar == nullptr) throw CModelError(E_INVALIDARG, "There is no command bar with that name.");
    return bar;
  }
  const long index = arguments.Long(0);
  if (index < 1 || static_cast<size_t>(index) > m_bars.size()) throw CModelError(E_INVALIDARG);
  return m_bars[static_cast<size_t>(index) - 1];
}

CModelPtr<CCommandBarControl> CCommandBars::FindControl(const CArguments& arguments) const {
  const ControlQuery query = ControlQuery::FromArguments(arguments, true);
  std::vector<CModelPtr<CCommandBarControl>> found;
  for (const auto& bar : m_bars) {
    if (FindsControls() && found.empty()) bar->Collect(query, found);
  }
  return found.empty() ? CModelPtr<CCommandBarControl>() : found.front();
}

CModelPtr<CAutomation> CCommandBars::FindControls(const CArguments& arguments) const {
  const ControlQuery query = ControlQuery::FromArguments(arguments, true);
  std::vector<CModelPtr<CCommandBarControl>> found;
  for (const auto& bar : m_bars) {
    if (FindsControls()) bar->Collect(query, found);
  }
  if (found.empty()) return {};
  return MakeObject<CCommandBarControls>(Model(), std::move(found)).get();
}

// --- contents ---

std::vector<BarFace> CCommandBars::Faces() const {
  std::vector<BarFace> faces;
  for (const auto& bar : m_bars)
    faces.push_back(bar->Face());
  return faces;
}

std::vector<ControlFace> CCommandBars::ControlFaces(bool withBuiltIn) const {
  std::vector<ControlFace> faces;
  for (const auto& bar : m_bars) {
    if (!withBuiltIn && bar->settings.builtIn) continue;
    for (ControlFace& face : bar->ControlFaces())
      faces.push_back(std::move(face));
  }
  return faces;
}

// --- the user's actions ---

int CCommandBars::HandleAt(std::span<const std::wstring> path) const {
  const std::vector<ControlFace> faces = ControlFaces(true);
  const ControlFace* face = FindFace(faces, path);
  if (face != nullptr) return face->handle;
  std::wstring name;
  for (const std::wstring& step : path)
    name += (name.empty() ? L"" : L" > ") + step;
  throw CUserActionError("there is no control \"" + Utf8FromWide(name) + '"');
}

CModelPtr<CCommandBarControl> CCommandBars::ControlByHandle(int handle) const {
  for (const auto& bar : m_bars) {
    if (auto control = FindInstance(*bar, handle)) return control;
  }
  throw CUserActionError("there is no control " + std::to_string(handle));
}

CModelPtr<CCommandBarControl> CCommandBars::ReachableControl(int handle) const {
  auto control = ControlByHandle(handle);
  if (const char* reason = control->WhyOutOfReach(); reason != nullptr) {
    throw CUserActionError(Named(*control) + " or what it stands in " + reason);
  }
  return control;
}

void CCommandBars::Click(int handle) {
  const auto control = ReachableControl(handle);
  if (control->TypeNumber() == mso::kButton) control->Activate();
}

void CCommandBars::EnterText(int handle, const std::wstring& text) {
  const auto control = ReachableControl(handle);
  CCommandBarComboBox& combo = AsComboBox(*control);
  if (control->TypeNumber() == mso::kDropdown) {
    throw CUserActionError(Named(*control) + " has no edit part");
  }
  combo.EnterText(text);
}

void CCommandBars::PickEntry(int handle, size_t entry) {
  const auto control = ReachableControl(handle);
  CCommandBarComboBox& combo = AsComboBox(*control);
  if (entry >= combo.Face().entries.size()) {
    throw CUserActionError(Named(*control) + " has no entry " + std::to_string(entry));
  }
  combo.Pick(entry);
}

void CCommandBars::DeleteControl(int handle) {
  const auto control = ControlByHandle(handle);
  if ((control->Bar()->settings.protection & mso::kNoCustomize) != 0) {
    throw CUserActionError(Named(*control) + " stands on a protected bar");
  }
  control->Bar()->Remove(*control);
}

void CCommandBars::EnterText(std::span<const std::wstring> path, const std::wstring& text) {
  EnterText(HandleAt(path), text);
}

void CCommandBars::PickEntry(std::span<const std::wstring> path, const std::wstring& entry) {
  const auto control = ReachableControl(HandleAt(path));
  const std::vector<std::wstring> entries = control->Face().entries;
  const auto found = std::find(entries.begin(), entries.end(), entry);
  if (found == entries.end()) {
    throw CUserActionError(Named(*control) + " has no entry \"" + Utf8FromWide(entry) + '"');
  }
  PickEntry(control->Instance(), static_cast<size_t>(found - entries.begin()));
}

void CCommandBars::DeleteControl(std::span<const std::wstring> path) {
  DeleteControl(HandleAt(path));
}

CCommandBar& CCommandBars::BarForUser(const std::wstring& name, long protection) const {
  CCommandBar* bar = FindBar(name);
  const std::string quoted = '"' + Utf8FromWide(name) + '"';
  if (bar == nullptr) throw CUserActionError("there is no bar " + quoted);
  if (!bar->settings.enabled) throw CUserActionError("the bar " + quoted + " is disabled");
  if ((bar->settings.protection & protection) != 0) {
    throw CUserActionError("the bar " + quoted + " is protected");
  }
  return *bar;
}

void CCommandBars::MoveBar(const std::wstring& name, mso::BarPosition position, long left, long top,
                           long row) {
  BarSettings& settings = BarForUser(name, mso::kNoMove).settings;
  settings.position = position;
  settings.left = left;
  settings.top = top;
  settings.row = row;
  Changed();
  Fire(L"OnUpdate");
}

void CCommandBars::ShowBar(const std::wstring& name, bool show) {
  BarForUser(name, mso::kNoChangeVisible).settings.visible = show;
  Changed();
  Fire(L"OnUpdate");
}

const CMemberTable& CCommandBars::Members() {
  using Self = CCommandBars;
  static const CMemberTable table(
      "CommandBars", L"_CommandBars", nullptr,
      {Get<&Self::Application>(L"Application"), Get<&Self::ActiveMenuBar>(L"ActiveMenuBar"),
       Method<&Self::Add>(L"Add", 0), Get<&Self::Count>(L"Count"),
       Method<&Self::FindControl>(L"FindControl", 0), Get<&Self::Item>(L"Item"),
       Method<&Self::FindControls>(L"FindControls", 0)},
      {L"_CommandBarsEvents"});
  return table;
}

}  // namespace quor::workbench
