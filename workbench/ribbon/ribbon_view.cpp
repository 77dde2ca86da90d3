#include "workbench/ribbon/ribbon_view.h"

#include <algorithm>

#include "workbench/ui/picture.h"

namespace quor::workbench {
namespace {

constexpr long kMostItems = 1000;

ControlKind KindOf(const RibbonNode& node) {
  if (node.element == "comboBox") return ControlKind::ComboBox;
  return node.element == "menu" ? ControlKind::Menu : ControlKind::Button;
}

const wchar_t* CaptionOfBuiltIn(const std::string& tab) {
  return tab == "TabContact" ? L"Contact" : L"Home";
}

}  // namespace

CRibbonView::CRibbonView(CRibbonHost& host, CModelPtr<CAutomation> context)
    : m_host(host), m_context(std::move(context)) {
  m_host.AddView(*this);
  const RibbonNode* document = m_host.Document();
  if (document == nullptr) return;
  for (const RibbonNode& part : document->children) {
    for (const RibbonNode& list : part.children) {
      if (list.element != "tabs") continue;
      for (const RibbonNode& tab : list.children)
        AddEntries(tab, -1, m_context);
    }
  }
  if (!m_entries.empty()) m_activeTab = WideFromUtf8(m_entries.front().node->id);
}

CRibbonView::~CRibbonView() {
  m_host.RemoveView(*this);
}

void CRibbonView::AddEntries(const RibbonNode& node, int parent,
                             const CModelPtr<CAutomation>& context) {
  const int index = static_cast<int>(m_entries.size());
  m_entries.push_back({&node, parent, {}, {}, {}});
  if (parent >= 0) At(parent).children.push_back(index);
  for (const RibbonNode& child : node.children)
    AddEntries(child, index, context);
}

void CRibbonView::Invalidate() {
  for (Entry& entry : m_entries)
    entry.values = {};
}

void CRibbonView::ForgetImages() {
  for (Entry& entry : m_entries)
    entry.values.image.reset();
}

bool CRibbonView::InvalidateControl(const std::wstring& id) {
  const std::string wanted = Utf8FromWide(id);
  for (Entry& entry : m_entries) {
    if (entry.node->id != wanted || !entry.node->custom) continue;
    entry.values = {};
    return true;
  }
  return false;
}

bool CRibbonView::SelectTab(const std::wstring& tab) {
  const std::string wanted = Utf8FromWide(tab);
  const bool known = std::any_of(m_entries.begin(), m_entries.end(), [&wanted](const Entry& one) {
    return one.parent < 0 && one.node->id == wanted;
  });
  if (known) m_activeTab = tab;
  return known;
}

// --- querying ---

IDispatch* CRibbonView::ObjectOf(Entry& entry) {
  if (!entry.object) {
    entry.object =
        MakeObject<CRibbonControl>(m_host.Model(), WideFromUtf8(entry.node->id),
                                   WideFromUtf8(entry.node->Attribute("tag")), m_context);
  }
  return entry.object.get();
}

std::optional<CValue> CRibbonView::Ask(Entry& entry, const char* getter, ResultKind kind,
                                       std::vector<CValue> more) {
  const std::string callback = entry.node->Attribute(getter);
  if (callback.empty()) return std::nullopt;
  more.insert(more.begin(), CValue(ObjectOf(entry)));
  return m_host.Call(callback, entry.node->id, more, kind);
}

std::wstring CRibbonView::Text(Entry& entry, std::optional<std::wstring>& known, const char* fixed,
                               const char* getter) {
  if (!known.has_value()) {
    const auto answer = Ask(entry, getter, ResultKind::Text);
    known = answer.has_value() ? WideFromBstr(V_BSTR(&answer->Get()))
                               : WideFromUtf8(entry.node->Attribute(fixed));
  }
  return *known;
}

bool CRibbonView::Flag(Entry& entry, std::optional<bool>& known, const char* getter) {
  if (!known.has_value()) {
    const auto answer = Ask(entry, getter, ResultKind::Flag);
    known = !answer.has_value() || V_BOOL(&answer->Get()) != VARIANT_FALSE;
  }
  return *known;
}

PixelsPtr CRibbonView::AskImage(Entry& entry) {
  const std::optional<CValue> answer = Ask(entry, "getImage", ResultKind::Picture);
  if (!answer.has_value() || V_VT(&answer->Get()) != VT_DISPATCH) return nullptr;
  try {
    const IPictureDispPtr picture = BitmapPicture(V_DISPATCH(&answer->Get()));
    return picture ? AlphaPixels(picture) : nullptr;
  } catch (const CModelError& error) {
    m_host.Report("the image of " + entry.node->id + " cannot be shown: " + error.what());
    return nullptr;
  }
}

PixelsPtr CRibbonView::Image(Entry& entry) {
  std::optional<PixelsPtr>& known = entry.values.image;
  if (!known.has_value()) known = AskImage(entry);
  return *known;
}

std::vector<std::wstring> CRibbonView::AskEntries(Entry& entry) {
  std::vector<std::wstring> entries;
  const auto count = Ask(entry, "getItemCount", ResultKind::Number);
  if (!count.has_value()) return entries;
  const long number = V_I4(&count->Get());
  if (number < 0 || number > kMostItems) {
    m_host.Report("callback " + entry.node->Attribute("getItemCount") + " for " + entry.node->id +
                  " returned " + std::to_string(number) + " items");
    return entries;
  }
  for (long index = 0; index < number; ++index) {
    const auto label = Ask(entry, "getItemLabel", ResultKind::Text, {CValue(index)});
    entries.push_back(label.has_value() ? WideFromBstr(V_BSTR(&label->Get())) : std::wstring());
  }
  return entries;
}

const std::vector<std::wstring>& CRibbonView::Entries(Entry& entry) {
  std::optional<std::vector<std::wstring>>& known = entry.values.entries;
  if (!known.has_value()) known = AskEntries(entry);
  return *known;
}

// --- faces ---

ControlFace CRibbonView::Face(int index, Extent extent, bool withItems) {
  Entry& entry = At(index);
  ControlFace face;
  face.kind = KindOf(*entry.node);
  face.handle = index + 1;
  face.id = WideFromUtf8(entry.node->id);
  face.custom = entry.node->custom;
  face.visible = IsVisible(entry);
  if (!face.visible && extent == Extent::Drawn) return face;
  face.caption = Text(entry, entry.values.label, "label", "getLabel");
  face.enabled = IsEnabled(entry);
  face.picture = Image(entry);
  face.hasPicture = face.picture != nullptr;
  if (face.kind == ControlKind::ComboBox) {
    face.text = Text(entry, entry.values.text, "text", "getText");
    face.entries = Entries(entry);
  }
  if (withItems && face.kind == ControlKind::Menu) face.items = Faces(At(index), extent);
  return face;
}

std::vector<ControlFace> CRibbonView::Faces(const Entry& parent, Extent extent) {
  std::vector<ControlFace> faces;
  for (const int child : parent.children)
    faces.push_back(Face(child, extent, extent == Extent::Everything));
  return faces;
}

RibbonGroupFace CRibbonView::GroupFace(Entry& group, Extent extent) {
  RibbonGroupFace face;
  face.id = WideFromUtf8(group.node->id);
  face.custom = group.node->custom;
  face.insertBefore = WideFromUtf8(group.node->Attribute("insertBeforeMso"));
  face.visible = IsVisible(group);
  if (!face.visible && extent == Extent::Drawn) return face;
  face.caption = Text(group, group.values.label, "label", "getLabel");
  face.hasPicture = Image(group) != nullptr;
  face.controls = Faces(group, extent);
  return face;
}

RibbonTabFace CRibbonView::TabFace(Entry& tab, Extent extent) {
  RibbonTabFace face;
  face.id = WideFromUtf8(tab.node->id);
  face.visible = IsVisible(tab);
  face.caption = Text(tab, tab.values.label, "label", "getLabel");
  if (face.caption.empty() && !tab.node->custom) face.caption = CaptionOfBuiltIn(tab.node->id);
  if (!face.visible && extent == Extent::Drawn) return face;
  for (const int group : tab.children)
    face.groups.push_back(GroupFace(At(group), extent));
  return face;
}

RibbonTabFace CRibbonView::Tab(const std::wstring& tab, Extent extent) {
  const std::string wanted = Utf8FromWide(tab);
  if (m_host.IsLoaded()) {
    for (Entry& entry : m_entries) {
      if (entry.parent < 0 && entry.node->id == wanted) return TabFace(entry, extent);
    }
  }
  RibbonTabFace empty;
  empty.id = tab;
  empty.caption = CaptionOfBuiltIn(wanted);
  return empty;
}

std::vector<RibbonTabFace> CRibbonView::Tabs(Extent extent) {
  std::vector<RibbonTabFace> tabs;
  for (size_t index = 0; m_host.IsLoaded() && index < m_entries.size(); ++index) {
    if (m_entries[index].parent < 0) tabs.push_back(TabFace(m_entries[index], extent));
  }
  return tabs;
}

std::vector<ControlFace> CRibbonView::ControlFaces() {
  std::vector<ControlFace> faces;
  for (RibbonGroupFace& group : Tab(m_activeTab, Extent::Everything).groups) {
    for (ControlFace& face : group.controls)
      faces.push_back(std::move(face));
  }
  return faces;
}

uint64_t CRibbonView::Redraw() {
  const uint64_t before = m_host.Figures().callbacks;
  Tab(m_activeTab, Extent::Drawn);
  return m_host.Figures().callbacks - before;
}

// --- the user's actions ---

int CRibbonView::HandleAt(std::span<const std::wstring> path) {
  const std::vector<ControlFace> faces = ControlFaces();
  const ControlFace* face = FindFace(faces, path);
  if (face != nullptr) return face->handle;
  std::wstring name;
  for (const std::wstring& step : path)
    name += (name.empty() ? L"" : L" > ") + step;
  throw CUserActionError("there is no control \"" + Utf8FromWide(name) + "\" on the tab " +
                         Utf8FromWide(m_activeTab));
}

CRibbonView::Entry& CRibbonView::Reachable(int handle) {
  if (!m_host.IsLoaded() || handle < 1 || static_cast<size_t>(handle) > m_entries.size()) {
    throw CUserActionError("there is no control " + std::to_string(handle));
  }
  for (int index = handle - 1; index >= 0; index = At(index).parent) {
    Entry& entry = At(index);
    const std::string& id = entry.node->id;
    if (!IsVisible(entry)) throw CUserActionError(id + " is not visible");
    if (!IsEnabled(entry)) throw CUserActionError(id + " is disabled");
    if (entry.parent < 0 && WideFromUtf8(id) != m_activeTab) {
      throw CUserActionError("the tab " + id + " is not the active one");
    }
  }
  return At(handle - 1);
}

void CRibbonView::Click(int handle) {
  Entry& entry = Reachable(handle);
  const std::string callback = entry.node->Attribute("onAction");
  if (callback.empty()) return;
  m_host.Call(callback, entry.node->id, {CValue(ObjectOf(entry))}, ResultKind::None);
}

CRibbonView::Entry& CRibbonView::ReachableComboBox(int handle) {
  Entry& entry = Reachable(handle);
  if (KindOf(*entry.node) != ControlKind::ComboBox) {
    throw CUserActionError(entry.node->id + " is not a combo box");
  }
  return entry;
}

void CRibbonView::ChangeText(Entry& entry, const std::wstring& text) {
  entry.values.text = text;
  Ask(entry, "onChange", ResultKind::None, {CValue(text)});
}

void CRibbonView::EnterText(int handle, const std::wstring& text) {
  ChangeText(ReachableComboBox(handle), text);
}

void CRibbonView::PickEntry(int handle, size_t entry) {
  Entry& combo = ReachableComboBox(handle);
  const std::vector<std::wstring>& entries = Entries(combo);
  if (entry >= entries.size()) {
    throw CUserActionError(combo.node->id + " has no entry " + std::to_string(entry));
  }
  ChangeText(combo, std::wstring(entries[entry]));
}

void CRibbonView::EnterText(std::span<const std::wstring> path, const std::wstring& text) {
  EnterText(HandleAt(path), text);
}

void CRibbonView::PickEntry(std::span<const std::wstring> path, const std::wstring& entry) {
  const int handle = HandleAt(path);
  const std::vector<std::wstring>& entries = Entries(ReachableComboBox(handle));
  const auto found = std::find(entries.begin(), entries.end(), entry);
  if (found == entries.end()) {
    throw CUserActionError(Utf8FromWide(path.back()) + " has no entry \"" + Utf8FromWide(entry) +
                           '"');
  }
  PickEntry(handle, static_cast<size_t>(found - entries.begin()));
}

}  // namespace quor::workbench
