#include "workbench/commandbars/built_in_bars.h"

namespace quor::workbench {
namespace {

StoredControl BuiltIn(long type, long id, const wchar_t* caption, bool beginGroup = false) {
  StoredControl control;
  control.type = type;
  control.settings.id = id;
  control.settings.caption = caption;
  control.settings.beginGroup = beginGroup;
  return control;
}

StoredBar MenuBar() {
  StoredBar bar;
  bar.settings.name = L"Menu Bar";
  bar.settings.type = mso::kMenuBar;
  bar.settings.row = 1;
  long id = 30002;  // any id but 1, which marks a custom control
  for (const wchar_t* caption :
       {L"&File", L"&Edit", L"&View", L"&Go", L"&Tools", L"&Actions", L"&Help"}) {
    bar.controls.push_back(BuiltIn(mso::kPopup, id++, caption));
  }
  return bar;
}

StoredBar StandardBar() {
  StoredBar bar;
  bar.settings.name = L"Standard";
  bar.settings.row = 2;
  long id = 40001;
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"&New"));
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"&Print...", true));
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"&Delete"));
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"&Reply", true));
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"For&ward"));
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"Send/Re&ceive", true));
  bar.controls.push_back(BuiltIn(mso::kButton, id++, L"F&ind", true));
  return bar;
}

}  // namespace

const std::vector<StoredBar>& BuiltInBars() {
  static const std::vector<StoredBar> bars = [] {
    std::vector<StoredBar> both = {MenuBar(), StandardBar()};
    for (StoredBar& bar : both) {
      bar.settings.builtIn = true;
      bar.settings.visible = true;
      bar.settings.position = mso::kTop;
    }
    return both;
  }();
  return bars;
}

}  // namespace quor::workbench
