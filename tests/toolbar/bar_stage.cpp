#include "tests/toolbar/bar_stage.h"

namespace quor {

CBarStage::CBarStage()
    : resources(GetModuleHandleW(nullptr)),
      bars(workbench::MakeObject<workbench::CCommandBars>(
          model, std::make_shared<workbench::CControlRegistry>(),
          workbench::CCommandBars::Kind::Shown)) {
  log.SetEnabled(true);
  state.record = {1, 1, 1, 1, 0b0011, 1, 1};
  state.cells.cellRegistered = 0b0111;
  configuration.callerLists = {{L"Tom & Co 555", L"Tom & Co", L"555"}};
  configuration.speedDials = {{L"Anna", L"123"}};
  configuration.histories = {{L"Anna", L"", L"123"}, {L"456", L"", L"456"}};
}

void CBarStage::Create(const ToolBarRecord& place) {
  toolbar.Create(CCommandBars(IDispatchPtr(bars.get())), kBarName, place, true);
}

void CBarStage::Fill() {
  toolbar.ShowDialList();
  toolbar.PutCallFromCellButton();
  toolbar.PutCallerList();
  toolbar.PutSpeedDialButton();
  toolbar.SetDialText(L"456");
}

workbench::BarFace CBarStage::Bar() const {
  for (const workbench::BarFace& bar : bars->Faces()) {
    if (bar.name == kBarName) return bar;
  }
  return {};
}

workbench::ControlFace CBarStage::Face(std::vector<std::wstring> path) const {
  const std::vector<workbench::ControlFace> faces = bars->ControlFaces();
  const workbench::ControlFace* found = workbench::FindFace(faces, path);
  return found != nullptr ? *found : workbench::ControlFace{};
}

}  // namespace quor
