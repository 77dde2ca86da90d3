#include "workbench/commandbars/command_bars.h"

#include <algorithm>

#include "workbench/commandbars/built_in_bars.h"
#include "workbench/commandbars/combo_box.h"
#include "workbench/commandbars/control_collection.h"

namespace quor::workbench {
namespace {

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
    : CAutomation(model, Members()), m_kind(kind), m_registry(std::move(registry)) {
  if (m_kind == Kind::Shown) AddBuiltInBars();
}

void CCommandBars::Close() noexcept {
  m_changed = nullptr;
  for (const auto& bar : m_bars)
    bar->Detach();
  m_bars.clear();
}

void CCommandBars::Changed() const {
  if (m_changed) m_changed();
}

void CCommandBars::AddBuiltInBars() {
  for (const BuiltInBar& builtIn : BuiltInBars()) {
    const auto bar = AddBar({.name = builtIn.name,
                             .position = mso::kTop,
                             .type = builtIn.type,
                             .builtIn = true,
                             .visible = true,
                             .row = builtIn.row});
    long id = builtIn.firstId;
    for (const std::wstring caption : builtIn.captions) {
      ControlSettings& settings = bar->Add(builtIn.controlType)->settings;
      settings.id = id++;
      settings.beginGroup = caption.starts_with(L'|');
      settings.caption = caption.substr(settings.beginGroup ? 1 : 0);
    }
  }
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
    return SameText(bar->settings.name, name);
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

CModelPtr<CCommandBar> CCommandBars::Add(const CArguments& arguments) {
  BarSettings settings;
  settings.name = arguments.TextOr(0, L"");
  settings.position = arguments.LongOr(1, mso::kFloating);
  if (settings.position < mso::kLeft || settings.position > mso::kPopupPosition) {
    throw CModelError(E_INVALIDARG, "There is no such position.");
  }
  if (arguments.BoolOr(2, false)) settings.type = mso::kMenuBar;
  if (settings.position == mso::kPopupPosition) settings.type = mso::kPopupBar;
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

CModelPtr<CCommandBar> CCommandBars::Item(const CArguments& arguments) {
  if (arguments.IsText(0)) {
    CCommandBar* bar = FindBar(arguments.Text(0));
    if (bar == nullptr) throw CModelError(E_INVALIDARG, "There is no command bar with that name.");
    return bar;
  }
  const long index = arguments.Long(0);
  if (index < 1 || static_cast<size_t>(index) > m_bars.size()) throw CModelError(E_INVALIDARG);
  return m_bars[static_cast<size_t>(index) - 1];
}

// Arguments: Type, Id, Tag, Visible; a missing one accepts every control.
CModelPtr<CCommandBarControl> CCommandBars::FindControl(const CArguments& arguments) {
  const bool visibleOnly = arguments.BoolOr(3, false);
  const auto wanted = [&](const CCommandBarControl& control) {
    return arguments.LongOr(0, control.TypeNumber()) == control.TypeNumber() &&
           arguments.LongOr(1, control.settings.id) == control.settings.id &&
           arguments.TextOr(2, control.settings.tag) == control.settings.tag &&
           (!visibleOnly || control.settings.visible);
  };
  for (const auto& bar : m_bars) {
    if (m_kind == Kind::Hidden || (visibleOnly && !bar->IsShown())) continue;
    if (auto found = bar->Find(wanted)) return found;
  }
  return {};
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
    auto control = bar->Find([handle](const auto& one) { return one.Instance() == handle; });
    if (control) return control;
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
  ReachableControl(handle)->Click();
}

void CCommandBars::EnterText(int handle, const std::wstring& text) {
  const auto control = ReachableControl(handle);
  AsComboBox(*control).EnterText(text);
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

void CCommandBars::MoveBar(const std::wstring& name, mso::BarPosition position, long left, long top,
                           long row) {
  CCommandBar* bar = FindBar(name);
  if (bar == nullptr) throw CUserActionError("there is no bar \"" + Utf8FromWide(name) + '"');
  bar->settings.position = position;
  bar->settings.left = left;
  bar->settings.top = top;
  bar->settings.row = row;
  Changed();
}

const CMemberTable& CCommandBars::Members() {
  using Self = CCommandBars;
  static const CMemberTable table("CommandBars", L"_CommandBars", nullptr,
                                  {Method<&Self::Add>(L"Add", 0), Get<&Self::Item>(L"Item"),
                                   Method<&Self::FindControl>(L"FindControl", 0)});
  return table;
}

}  // namespace quor::workbench
