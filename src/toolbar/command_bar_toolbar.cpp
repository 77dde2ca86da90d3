#include "toolbar/command_bar_toolbar.h"

#include <utility>

#include "com/com_boundary.h"
#include "device/line_type.h"
#include "toolbar/flag_scope.h"
#include "toolbar/telephone_bar.h"

namespace quor {
namespace {

constexpr int32_t kDialBoxWidth = 200;  // pixels, label included

long OfficeType(ControlKind kind) noexcept {
  switch (kind) {
    case ControlKind::ComboBox:
      return kControlComboBox;
    case ControlKind::Popup:
      return kControlPopup;
    default:
      return kControlButton;
  }
}

}  // namespace

CCommandBarToolbar::CCommandBarToolbar(const IFaceSource& source, IToolbarActions& actions,
                                       CPictureLoader& pictures, IEventOwner& owner,
                                       CDiagnosticLog& log) noexcept
    : m_source(source),
      m_actions(actions),
      m_pictures(pictures),
      m_log(log),
      m_dialBoxEvents(owner, log, "dial box event"),
      m_line1Events(owner, log, "line 1 button event"),
      m_line2Events(owner, log, "line 2 button event"),
      m_optionsEvents(owner, log, "options button event"),
      m_cells(actions, owner, log),
      m_callers(actions, owner, log),
      m_speedDial(actions, owner, log) {}

void CCommandBarToolbar::Create(const CCommandBars& bars, const std::wstring& name,
                                const ToolBarRecord& place, bool withPictures) {
  Release();
  m_bars = bars;
  m_withPictures = withPictures;
  try {
    m_bar = MakeBar(bars, name);
    AddControls();
    PlaceBar(m_bar, place, m_log);
  } catch (...) {
    Unadvise();
    GuardCall(m_log, "deleting the command bar", [this] { Delete(); });
    Release();
    throw;
  }
}

void CCommandBarToolbar::AddControls() {
  const CCommandBarControls controls = m_bar.Controls();
  for (const ControlLayout& layout : kToolbarLayout)
    AddControl(controls, layout);
}

void CCommandBarToolbar::AddControl(const CCommandBarControls& controls,
                                    const ControlLayout& layout) {
  const IDispatchPtr control = controls.Add(OfficeType(layout.kind));
  SetUp(CCommandBarControl(control), layout);
  switch (layout.kind) {
    case ControlKind::ComboBox:
      return SetUpDialBox(control, layout);
    case ControlKind::Button:
      return SetUpButton(control, layout);
    case ControlKind::Popup:
      return SetUpMenu(control, layout);
  }
}

void CCommandBarToolbar::SetUp(const CCommandBarControl& control, const ControlLayout& layout) {
  const CControlFaces faces = m_source.Faces();
  control.SetCaption(faces.BarControl(layout.control).caption);
  control.SetTag(layout.tag);
  control.SetEnabled(faces.BarControl(layout.control).enabled);
}

void CCommandBarToolbar::SetUpDialBox(const IDispatchPtr& control, const ControlLayout& layout) {
  const CCommandBarComboBox box(control);
  Connect(ConnectionOf(layout.control), control, kCommandBarComboBoxEvents,
          [this](DISPID event, const CEventArguments& arguments) {
            if (event == kEventChange) OnDialBoxChanged(arguments.Object(0));
          });
  // This affects only the appearance: the box still dials if it fails.
  GuardCall(m_log, "looks of the dial box", [&box] {
    box.SetStyle(kComboLabel);
    box.SetWidth(kDialBoxWidth);
    box.SetDropDownWidth(kWidthOfLongestItem);
  });
}

void CCommandBarToolbar::SetUpButton(const IDispatchPtr& control, const ControlLayout& layout) {
  const CCommandBarButton button(control);
  const int number = layout.control;
  Connect(ConnectionOf(number), control, kCommandBarButtonEvents,
          [this, number](DISPID event, const CEventArguments&) {
            if (event == kEventClick) OnButtonClicked(number);
          });
  GuardCall(m_log, "looks of a button", [&button] { button.SetStyle(kButtonIconAndCaption); });
  if (m_withPictures) SetPicture(button, layout, m_pictures);
}

void CCommandBarToolbar::SetUpMenu(const IDispatchPtr& control, const ControlLayout& layout) {
  CCommandBarPopup popup(control);
  switch (layout.control) {
    case kCallFromCellControl:
      return m_cells.Attach(std::move(popup));
    case kCallerListControl:
      return m_callers.Attach(std::move(popup));
    default:
      return m_speedDial.Attach(std::move(popup));
  }
}

CEventConnection& CCommandBarToolbar::ConnectionOf(int control) noexcept {
  switch (control) {
    case kDialBoxControl:
      return m_dialBoxEvents;
    case kLine1Control:
      return m_line1Events;
    case kLine2Control:
      return m_line2Events;
    default:
      return m_optionsEvents;
  }
}

void CCommandBarToolbar::Connect(CEventConnection& connection, IDispatch* control, REFIID events,
                                 EventHandler handler) {
  const HRESULT advised = connection.Advise(control, events, std::move(handler));
  if (FAILED(advised)) _com_issue_errorex(advised, control, events);
}

CCommandBarControl CCommandBarToolbar::Find(const ControlLayout& layout) const {
  if (!m_bars) return {};
  const CCommandBars bars = m_bars;
  const IDispatchPtr found = bars.FindControl(OfficeType(layout.kind), layout.tag);
  return found == nullptr ? CCommandBarControl() : CCommandBarControl(found);
}

CCommandBarComboBox CCommandBarToolbar::FindDialBox() const {
  const CCommandBarControl found = Find(LayoutOf(kDialBoxControl));
  return found ? CCommandBarComboBox(found.Get()) : CCommandBarComboBox();
}

void CCommandBarToolbar::Redraw() {
  m_connected = true;
  DrawControls();
}

void CCommandBarToolbar::DisableControls() {
  m_connected = false;
  DrawControls();
}

void CCommandBarToolbar::DrawControls() {
  m_controlsRedraw.Run([this] {
    for (const ControlLayout& layout : kToolbarLayout) {
      GuardCall(m_log, "toolbar control", [&] { DrawControl(layout); });
    }
  });
}

void CCommandBarToolbar::DrawControl(const ControlLayout& layout) {
  if (!m_connected && layout.control == kOptionsControl) return;
  const CCommandBarControl control = Find(layout);
  if (!control) return;
  if (!m_connected) return control.SetEnabled(false);
  const ItemFace face = m_source.Faces().BarControl(layout.control);
  control.SetCaption(face.caption);
  control.SetEnabled(face.enabled);
}

void CCommandBarToolbar::PutCallFromCellButton() {
  m_cells.Complete(kCellCount);
  m_cells.Show(CellFaces());
}

void CCommandBarToolbar::DisableOtherCellItems(int cell) {
  m_cells.Complete(kCellCount);
  std::vector<ItemFace> cells = CellFaces();
  for (size_t i = 0; i < cells.size(); ++i) {
    if (static_cast<int>(i) != cell) cells[i].enabled = false;
  }
  m_cells.Show(cells);
}

std::vector<ItemFace> CCommandBarToolbar::CellFaces() const {
  std::vector<ItemFace> cells;
  for (size_t cell = 0; cell < kCellCount; ++cell)
    cells.push_back(m_source.Faces().Cell(cell));
  return cells;
}

void CCommandBarToolbar::PutCallerList() {
  m_callers.Complete(kCallerListLimit);
  std::vector<ItemFace> callers;
  for (size_t entry = 0; entry < kCallerListLimit; ++entry) {
    callers.push_back(m_source.Faces().Caller(entry));
  }
  m_callers.Show(callers);
}

void CCommandBarToolbar::PutSpeedDialButton() {
  m_speedDial.Complete(kSpeedDialCount);
  std::vector<CSpeedDialEntryMenu::Face> entries;
  for (size_t entry = 0; entry < kSpeedDialCount; ++entry) {
    const CControlFaces faces = m_source.Faces();
    CSpeedDialEntryMenu::Face& face = entries.emplace_back();
    face.caption = faces.SpeedDial(entry).caption;
    for (size_t action = 0; action < kSpeedDialActionCount; ++action) {
      face.actions[action] = faces.SpeedDial(entry, static_cast<SpeedDialAction>(action));
    }
  }
  m_speedDial.Show(entries);
}

void CCommandBarToolbar::ClearDialList() {
  const CFlagScope scope(m_settingDialBox);
  if (const CCommandBarComboBox box = FindDialBox()) box.Clear();
}

void CCommandBarToolbar::ShowDialList() {
  m_dialListRedraw.Run([this] {
    const CFlagScope scope(m_settingDialBox);
    const CCommandBarComboBox box = FindDialBox();
    if (!box) return;
    const std::wstring text = box.Text();
    box.Clear();
    for (size_t i = 0; i < m_source.Faces().DialListCount(); ++i) {
      box.AddItem(m_source.Faces().DialListItem(i));
    }
    if (!text.empty()) box.SetText(text);
  });
}

void CCommandBarToolbar::SetDialText(std::wstring_view text) {
  m_dialText = text;
  m_dialTextRedraw.Run([this] {
    const CFlagScope scope(m_settingDialBox);
    const std::wstring shown = m_dialText;
    if (const CCommandBarComboBox box = FindDialBox()) box.SetText(shown);
  });
}

void CCommandBarToolbar::OnDialBoxChanged(IDispatch* box) {
  if (m_settingDialBox) return;
  const auto changed = QueryObject<CCommandBarComboBox>(box);
  if (changed) m_actions.OnChangeComboBox(changed.Text(), changed.ListIndex());
}

void CCommandBarToolbar::OnButtonClicked(int control) {
  switch (control) {
    case kLine1Control:
      return m_actions.ClickLine(kLine1);
    case kLine2Control:
      return m_actions.ClickLine(kLine2);
    default:
      return m_actions.ClickOptions();
  }
}

void CCommandBarToolbar::SavePlace(ToolBarRecord& place) noexcept {
  if (!m_bar) return;
  const CCommandBar bar = m_bar;
  ReadPlace(bar, place, m_log);
}

void CCommandBarToolbar::Unadvise() noexcept {
  m_line1Events.Unadvise();
  m_line2Events.Unadvise();
  m_optionsEvents.Unadvise();
  m_dialBoxEvents.Unadvise();
  m_cells.Release();
  m_callers.Release();
  m_speedDial.Release();
}

void CCommandBarToolbar::Delete() {
  if (!m_bar) return;
  const CCommandBar bar = std::exchange(m_bar, {});
  bar.Delete();
}

void CCommandBarToolbar::Release() noexcept {
  Unadvise();
  const CCommandBar bar = std::exchange(m_bar, {});
  const CCommandBars bars = std::exchange(m_bars, {});
}

}  // namespace quor
