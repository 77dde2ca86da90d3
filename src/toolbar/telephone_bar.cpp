#include "toolbar/telephone_bar.h"

#include "com/com_boundary.h"
#include "toolbar/bar_position.h"

namespace quor {
namespace {

ScreenArea WorkAreaAt(const ToolBarRecord& place) noexcept {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromPoint({place.left, place.top}, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  return {work.left, work.top, work.right, work.bottom};
}

void MoveBar(const CCommandBar& bar, const ToolBarRecord& place) {
  const int32_t position = BarPosition(place);
  bar.SetPosition(position);
  if (position == kBarIsFloating) {
    const ScreenPoint corner = FloatingCorner(place, WorkAreaAt(place));
    bar.SetLeft(corner.x);
    bar.SetTop(corner.y);
  } else {
    bar.SetRowIndex(place.rowIndex);
    bar.SetLeft(place.left);
  }
}

}  // namespace

void DeleteStaleBar(const CCommandBars& bars, const std::wstring& name) {
  CCommandBar stale;
  try {
    stale = bars.Item(name);
  } catch (const _com_error&) {
    return;  // Office reports in this way that there is none
  }
  if (stale) stale.Delete();
}

CCommandBar MakeBar(const CCommandBars& bars, const std::wstring& name) {
  DeleteStaleBar(bars, name);
  return bars.Add(name, kBarDockedTop);
}

void PlaceBar(const CCommandBar& bar, const ToolBarRecord& place, CDiagnosticLog& log) {
  if (!TellsPosition(place)) return bar.SetVisible(true);
  GuardCall(log, "placing the command bar", [&] { MoveBar(bar, place); });
  bar.SetVisible(place.visible != 0);
}

void ReadPlace(const CCommandBar& bar, ToolBarRecord& place, CDiagnosticLog& log) noexcept {
  GuardCall(log, "place of the command bar", [&] {
    place = {1,         bar.Width(),    bar.Height(),   bar.Left(),
             bar.Top(), bar.RowIndex(), bar.Position(), bar.Visible() ? 1 : 0};
  });
}

void SetPicture(const CCommandBarButton& button, const ControlLayout& layout,
                CPictureLoader& pictures) {
  button.SetPicture(pictures.ButtonPicture(layout.picture));
  button.SetMask(pictures.Mask(layout.mask));
}

}  // namespace quor
