// What the user sees and does on toolbar, ribbon and windows.

#include <algorithm>

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

// Words that name a control: ID [> ITEM [> ITEM]] [of CONTACT], followed by the command's other
// words.
struct ControlName {
  std::vector<std::string> path;
  std::string inspector;
  size_t next = 0;
};

ControlName ReadControlName(const CCommandArguments& arguments, size_t at = 0) {
  ControlName name;
  name.path.push_back(arguments.Text(at++));
  while (arguments.Is(at, ">")) {
    name.path.push_back(arguments.Text(at + 1));
    at += 2;
  }
  if (arguments.Is(at, "of")) {
    name.inspector = arguments.Text(at + 1);
    at += 2;
  }
  name.next = at;
  return name;
}

void ExpectNoMore(const CCommandArguments& arguments, const ControlName& name) {
  if (name.next != arguments.Count()) {
    throw CScenarioError("\"" + arguments.Text(name.next) + "\" has no meaning here");
  }
}

const ControlView* FindControl(const std::vector<ControlView>& controls, const std::string& id) {
  const auto found = std::ranges::find_if(controls, [&](const ControlView& control) {
    return control.id == id || control.caption == id || control.role == id;
  });
  return found == controls.end() ? nullptr : &*found;
}

std::optional<ControlView> FindControl(CRun& run, const ControlName& name) {
  std::vector<ControlView> controls = run.stage.screen.Controls(name.inspector);
  for (size_t i = 0; i < name.path.size(); ++i) {
    const ControlView* control = FindControl(controls, name.path[i]);
    if (!control) return std::nullopt;
    if (i + 1 == name.path.size()) return *control;
    std::vector<ControlView> items = control->items;
    controls = std::move(items);
  }
  return std::nullopt;
}

const char* YesNo(bool value) {
  return value ? "yes" : "no";
}

std::string Describe(const ControlView& control) {
  std::string text = control.id + " (" + control.kind + ")";
  text += " caption \"" + control.caption + "\"";
  if (control.kind == "combo box") text += " text \"" + control.text + "\"";
  return text + " enabled " + YesNo(control.enabled) + " visible " + YesNo(control.visible) +
         " picture " + YesNo(control.picture);
}

void DescribeAll(const std::vector<ControlView>& controls, const std::string& indentation,
                 std::string& text) {
  for (const ControlView& control : controls) {
    if (!text.empty()) text += "\n";
    text += indentation + Describe(control);
    DescribeAll(control.items, indentation + "  ", text);
  }
}

std::string ItemCaptions(const ControlView& control) {
  std::string text;
  for (const ControlView& item : control.items)
    text += (text.empty() ? "" : "|") + item.caption;
  return text;
}

std::string Property(const ControlView& control, const std::string& name) {
  if (name == "caption") return control.caption;
  if (name == "text") return control.text;
  if (name == "enabled") return YesNo(control.enabled);
  if (name == "visible") return YesNo(control.visible);
  if (name == "picture") return YesNo(control.picture);
  if (name == "items") return ItemCaptions(control);
  throw CScenarioError("\"" + name + "\" is not caption, text, enabled, visible, picture or items");
}

// The first difference from the expected words; nothing if there is none.
std::optional<std::string> ControlDifference(CRun& run, const CCommandArguments& arguments) {
  const ControlName name = ReadControlName(arguments);
  const std::optional<ControlView> control = FindControl(run, name);
  if (arguments.Is(name.next, "missing")) {
    if (control) return "it is there: " + Describe(*control);
    return std::nullopt;
  }
  if (!control) return "there is no such control";
  if (name.next == arguments.Count()) throw CScenarioError("what about it? enabled yes, say");
  for (size_t i = name.next; i < arguments.Count(); i += 2) {
    if (Property(*control, arguments.Text(i)) != arguments.Text(i + 1)) {
      return "it is " + Describe(*control) +
             (control->items.empty() ? "" : " items " + ItemCaptions(*control));
    }
  }
  return std::nullopt;
}

void ExpectControl(CRun& run, const CCommandArguments& arguments) {
  if (const auto difference = ControlDifference(run, arguments)) {
    throw CExpectationFailure(*difference);
  }
}

template <bool enabled>
void ExpectEnabled(CRun& run, const CCommandArguments& arguments) {
  for (size_t at = 0; at < arguments.Count();) {
    const ControlName name = ReadControlName(arguments, at);
    const std::optional<ControlView> control = FindControl(run, name);
    if (!control) throw CExpectationFailure("there is no such control: " + name.path.back());
    if (control->enabled != enabled) throw CExpectationFailure("it is " + Describe(*control));
    at = name.next;
  }
}

void WaitControl(CRun& run, const CCommandArguments& arguments) {
  constexpr unsigned kLimit = 10'000;  // milliseconds
  const auto reached = [&] { return !ControlDifference(run, arguments); };
  if (!run.stage.host.PumpUntil(reached, kLimit)) ExpectControl(run, arguments);
}

void DumpControls(CRun& run, const CCommandArguments& arguments) {
  std::string text;
  DescribeAll(run.stage.screen.Controls(arguments.Count() ? arguments.Text(0) : std::string()), "",
              text);
  run.transcript.Show(text.empty() ? "no controls" : text);
}

// The user's action that two texts describe; then Outlook handles messages.
template <auto action>
void WithTwoTexts(CRun& run, const CCommandArguments& arguments) {
  (run.stage.screen.*action)(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

void Click(CRun& run, const CCommandArguments& arguments) {
  const ControlName name = ReadControlName(arguments);
  ExpectNoMore(arguments, name);
  run.stage.screen.Click(name.inspector, name.path);
  run.stage.host.Pump();
}

std::vector<WindowView> WindowsCalled(CRun& run, const std::string& title) {
  std::vector<WindowView> found;
  for (WindowView& window : run.stage.screen.Windows()) {
    if (IsCalled(window, title)) found.push_back(std::move(window));
  }
  return found;
}

std::string Describe(const WindowView& window) {
  std::string text = "\"" + window.title + "\" " + (window.visible ? "shown" : "hidden");
  for (const std::string& line : window.texts)
    text += "\n  " + line;
  return text;
}

// A leading "..." in an expected text matches any beginning.
bool Shows(const std::string& text, const std::string& expected) {
  constexpr std::string_view kWhatever = "...";
  if (!expected.starts_with(kWhatever)) return text == expected;
  return !text.empty() && text.ends_with(std::string_view(expected).substr(kWhatever.size()));
}

void ExpectWindow(CRun& run, const CCommandArguments& arguments) {
  std::vector<WindowView> found = WindowsCalled(run, arguments.Text(0));
  if (arguments.Is(1, "missing")) {
    if (!found.empty()) throw CExpectationFailure("it is there: " + Describe(found.front()));
    return;
  }
  const bool shown = arguments.Choice(1, {"hidden", "shown"}) == 1;
  // Several windows may share a title; if texts are given, one of them must have these texts.
  if (found.empty()) throw CExpectationFailure("there is no such window");
  const auto matches = [&](const WindowView& window) {
    return window.visible == shown &&
           (!arguments.HasBlock() || std::ranges::equal(window.texts, arguments.Block(), Shows));
  };
  if (std::any_of(found.begin(), found.end(), matches)) return;
  std::string text = "it is";
  for (const WindowView& window : found)
    text += "\n" + Describe(window);
  throw CExpectationFailure(text);
}

void ExpectTooltip(CRun& run, const CCommandArguments& arguments) {
  const ExplainedText found = run.stage.screen.Explanation(arguments.Text(0), arguments.Text(1));
  std::string expected;
  for (const std::string& line : arguments.Block())
    expected += (expected.empty() ? "" : "\r\n") + line;
  if (found.tooltip != expected) throw CExpectationFailure("it is \"" + found.tooltip + "\"");
  if (found.description != expected) {
    throw CExpectationFailure("a screen reader reads \"" + found.description + "\"");
  }
}

void ExpectAnnounced(CRun& run, const CCommandArguments& arguments) {
  const std::string name = run.stage.screen.AccessibleName(arguments.Text(0));
  if (name != arguments.Text(1)) throw CExpectationFailure("it is \"" + name + "\"");
}

void OpenOptions(CRun& run, const CCommandArguments&) {
  run.stage.screen.OpenOptions();
  run.stage.host.Pump();
}

void DumpWindows(CRun& run, const CCommandArguments&) {
  std::string text;
  for (const WindowView& window : run.stage.screen.Windows()) {
    text += (text.empty() ? "" : "\n") + Describe(window);
  }
  run.transcript.Show(text.empty() ? "no windows" : text);
}

void DeleteControl(CRun& run, const CCommandArguments& arguments) {
  const ControlName name = ReadControlName(arguments);
  ExpectNoMore(arguments, name);
  run.stage.screen.DeleteControl(name.path);
  run.stage.host.Pump();
}

void Enter(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostFields = 100;
  run.stage.screen.Enter(arguments.Text(0), arguments.Number(1, 1, kMostFields), arguments.Text(2));
  run.stage.host.Pump();
}

void Keys(CRun& run, const CCommandArguments& arguments) {
  for (size_t key = 1; key < arguments.Count(); ++key) {
    run.stage.screen.PressKey(arguments.Text(0), arguments.Text(key));
  }
}

void CloseWindow(CRun& run, const CCommandArguments& arguments) {
  run.stage.screen.CloseWindow(arguments.Text(0));
  run.stage.host.Pump();
}

void Screenshot(CRun& run, const CCommandArguments& arguments) {
  if (arguments.Count() > 1 && !arguments.Is(1, "of")) arguments.ThrowUsage();
  const std::string title = arguments.Count() > 1 ? arguments.Text(2) : std::string();
  const std::string path = run.stage.screen.Screenshot(arguments.Text(0), title);
  run.transcript.Show(path.empty() ? "no screen to take a picture of" : "picture: " + path);
}

// [of CONTACT] [menu CONTROL [> ITEM]...] [scale N] [dark], in any order.
PictureOrder ReadPictureOrder(const CCommandArguments& arguments) {
  PictureOrder order;
  order.name = arguments.Text(0);
  for (size_t at = 1; at < arguments.Count(); ++at) {
    if (arguments.Is(at, "dark")) {
      order.dark = true;
    } else if (arguments.Is(at, "of")) {
      order.inspector = arguments.Text(++at);
    } else if (arguments.Is(at, "scale")) {
      order.scale = arguments.Number(++at, 100, 200);
    } else if (arguments.Is(at, "menu")) {
      order.menu.push_back(arguments.Text(++at));
      for (; arguments.Is(at + 1, ">"); at += 2)
        order.menu.push_back(arguments.Text(at + 2));
    } else {
      throw CScenarioError("\"" + arguments.Text(at) + "\" has no meaning here");
    }
  }
  if (order.scale % 50 != 0) throw CScenarioError("pictures are drawn at 100, 150 and 200 %");
  return order;
}

void Picture(CRun& run, const CCommandArguments& arguments) {
  run.transcript.Show("picture: " + run.stage.screen.Picture(ReadPictureOrder(arguments)));
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"click", 1, 7, Block::None, Click},
    {"type", 2, 2, Block::None, WithTwoTexts<&CScreenStage::Type>},
    {"pick", 2, 2, Block::None, WithTwoTexts<&CScreenStage::Pick>},
    {"expect control", 2, kAnyNumber, Block::None, ExpectControl},
    {"expect enabled", 1, kAnyNumber, Block::None, ExpectEnabled<true>},
    {"expect disabled", 1, kAnyNumber, Block::None, ExpectEnabled<false>},
    {"wait control", 2, kAnyNumber, Block::None, WaitControl},
    {"dump controls", 0, 1, Block::None, DumpControls},
    {"expect window", 2, 2, Block::Optional, ExpectWindow},
    {"expect tooltip", 2, 2, Block::Optional, ExpectTooltip},
    {"point at", 2, 2, Block::None, WithTwoTexts<&CScreenStage::PointAt>},
    {"expect announced", 2, 2, Block::None, ExpectAnnounced},
    {"open options", 0, 0, Block::None, OpenOptions},
    {"dump windows", 0, 0, Block::None, DumpWindows},
    {"delete control", 1, 5, Block::None, DeleteControl},
    {"press", 2, 2, Block::None, WithTwoTexts<&CScreenStage::Press>},
    {"enter", 3, 3, Block::None, Enter},
    {"keys", 2, kAnyNumber, Block::None, Keys},
    {"close window", 1, 1, Block::None, CloseWindow},
    {"screenshot", 1, 3, Block::None, Screenshot},
    {"picture", 1, kAnyNumber, Block::None, Picture},
};

}  // namespace

constinit const std::span<const Command> kScreenCommands = kCommands;

}  // namespace quor::workbench
