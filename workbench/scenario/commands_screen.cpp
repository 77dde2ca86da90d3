// What the user sees and does on toolbar, ribbon and windows.

#include <algorithm>

#include "workbench/scenario/commands.h"
#include "workbench/scenario/run.h"
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

ControlName ReadControlName(const CCommandArguments& arguments) {
  ControlName name;
  name.path.push_back(arguments.Text(0));
  size_t at = 1;
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
  const auto found = std::find_if(
      controls.begin(), controls.end(),
      [&](const ControlView& control) { return control.id == id || control.caption == id; });
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

// The first difference from what the words say; nothing if there is none.
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

void Click(CRun& run, const CCommandArguments& arguments) {
  const ControlName name = ReadControlName(arguments);
  ExpectNoMore(arguments, name);
  run.stage.screen.Click(name.inspector, name.path);
  run.stage.host.Pump();
}

void Type(CRun& run, const CCommandArguments& arguments) {
  run.stage.screen.Type(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

void Pick(CRun& run, const CCommandArguments& arguments) {
  run.stage.screen.Pick(arguments.Text(0), arguments.Text(1));
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
  if (!arguments.Is(1, "shown") && !arguments.Is(1, "hidden")) {
    throw CScenarioError("usage: expect window TITLE shown|hidden|missing [:]");
  }
  // Several windows may share a title; if texts are given, one of them must have these texts.
  if (found.empty()) throw CExpectationFailure("there is no such window");
  const bool shown = arguments.Is(1, "shown");
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

void PointAt(CRun& run, const CCommandArguments& arguments) {
  run.stage.screen.PointAt(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
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

void Press(CRun& run, const CCommandArguments& arguments) {
  run.stage.screen.Press(arguments.Text(0), arguments.Text(1));
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
  if (arguments.Count() != 1 && !(arguments.Count() == 3 && arguments.Is(1, "of"))) {
    throw CScenarioError("usage: screenshot NAME [of TITLE]");
  }
  const std::string title = arguments.Count() == 3 ? arguments.Text(2) : std::string();
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
    {"click", "CONTROL [> ITEM [> ITEM]] [of CONTACT]",
     "Clicks a button or a menu item, by tag, ribbon id or caption, in the main window or in a "
     "contact's own window.",
     1, 7, Block::None, Click},
    {"type", "CONTROL TEXT", "Types into a combo box and presses Enter.", 2, 2, Block::None, Type},
    {"pick", "CONTROL ITEM", "Picks an entry of a combo box by its text.", 2, 2, Block::None, Pick},
    {"expect control",
     "CONTROL [> ITEM [> ITEM]] [of CONTACT] missing | [caption|text|items TEXT] "
     "[enabled|visible|picture yes|no]...",
     "Properties of a control. Items are separated by bars: \"Cell1|Cell2\".", 2, kAnyNumber,
     Block::None, ExpectControl},
    {"wait control", "as expect control", "Runs everything until a control has these properties.",
     2, kAnyNumber, Block::None, WaitControl},
    {"dump controls", "[CONTACT]", "Shows every control with its caption, state and items.", 0, 1,
     Block::None, DumpControls},
    {"expect window", "TITLE shown|hidden|missing",
     "A window of the add-in by title or class, or \"TITLE with TEXT\" for one of several in which "
     "a control has that text. The block lists the texts of its controls in order, disabled ones "
     "in brackets; \"...\" at the beginning of a text matches any beginning.",
     2, 2, Block::Optional, ExpectWindow},
    {"expect tooltip", "TITLE TEXT",
     "The tooltip over a text of a window, which a screen reader must read as the text's "
     "description, too. The block holds its lines; without a block there is none.",
     2, 2, Block::Optional, ExpectTooltip},
    {"point at", "TITLE TEXT",
     "Moves the mouse over a text of a window; its tooltip comes after a while.", 2, 2, Block::None,
     PointAt},
    {"expect announced", "TITLE NAME", "What a screen reader calls a window.", 2, 2, Block::None,
     ExpectAnnounced},
    {"open options", "",
     "Opens \"Outlook Options\" with the add-ins' pages: raises OptionsPagesAdd.", 0, 0,
     Block::None, OpenOptions},
    {"dump windows", "", "Shows every window of the add-in with its texts.", 0, 0, Block::None,
     DumpWindows},
    {"delete control", "CONTROL [> ITEM [> ITEM]]",
     "The user removes a control from the command bar, with Customize.", 1, 5, Block::None,
     DeleteControl},
    {"press", "TITLE BUTTON", "Presses a button of a window by its text.", 2, 2, Block::None,
     Press},
    {"enter", "TITLE FIELD TEXT",
     "Types into the FIELDth input field of a window, from 1; in a list, selects the entry.", 3, 3,
     Block::None, Enter},
    {"keys", "TITLE KEY...",
     "Presses keys in a window: Tab, Shift+Tab, Alt+l, Enter, Esc, Space, Down and the like; any "
     "other word is typed.",
     2, kAnyNumber, Block::None, Keys},
    {"close window", "TITLE", "Closes a window by its title bar.", 1, 1, Block::None, CloseWindow},
    {"screenshot", "NAME [of TITLE]",
     "Saves a picture of the screen, or of one window with its tooltip; without a screen, prints "
     "this and continues.",
     1, 3, Block::None, Screenshot},
    {"picture", "NAME [of CONTACT] [menu CONTROL [> ITEM]...] [scale 100|150|200] [dark]",
     "Draws the main window or a contact's own window into a file, optionally with a menu or a "
     "combo box's list opened, enlarged, or in Office's dark theme; needs no screen.",
     1, kAnyNumber, Block::None, Picture},
};

}  // namespace

std::span<const Command> ScreenCommands() {
  return kCommands;
}

}  // namespace quor::workbench
