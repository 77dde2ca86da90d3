// What a run leaves behind: diagnostic log, files, registry, references.

#include <algorithm>
#include <climits>
#include <cstdio>
#include <utility>

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/log_lines.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines)
    text += (text.empty() ? "" : "\n") + line;
  return text;
}

void CompareLog(const std::vector<std::string>& expected, const std::vector<std::string>& seen) {
  const std::string difference = DescribeDifference(expected, seen);
  if (!difference.empty()) throw CExpectationFailure("the log differs:\n" + difference);
}

void ExpectLog(CRun& run, const CCommandArguments& arguments) {
  std::vector<std::string> expected = arguments.Block();
  if (arguments.HasBlock() == (arguments.Count() != 0)) arguments.ThrowUsage();
  if (!arguments.Is(0, "nothing")) {
    expected.insert(expected.end(), arguments.Words().begin(), arguments.Words().end());
  }
  CompareLog(expected, run.NewLogLines());
  run.ForgetLog();
}

void ExpectLogHas(CRun& run, const CCommandArguments& arguments) {
  const std::vector<std::string> lines = run.NewLogLines();
  const std::optional<int> times = arguments.NumberAfter("times", 0, 100'000);
  for (const std::string& line : arguments.Words().first(arguments.Count() - (times ? 2 : 0))) {
    const auto count = std::count(lines.begin(), lines.end(), line);
    if (times ? count == *times : count != 0) continue;
    throw CExpectationFailure("\"" + line + "\" found " + std::to_string(count) +
                              " times; the new lines are\n" + Joined(lines));
  }
}

void ExpectLogWith(CRun& run, const CCommandArguments& arguments) {
  std::vector<std::string> lines = run.NewLogLines();
  std::erase_if(lines, [&](const std::string& line) {
    return std::ranges::none_of(arguments.Words(), [&](const std::string& text) {
      return line.find(text) != std::string::npos;
    });
  });
  CompareLog(arguments.Block(), lines);
}

void ShowLog(CRun& run, const CCommandArguments&) {
  run.transcript.Show(Joined(run.NewLogLines()));
}

void ExpectFile(CRun& run, const CCommandArguments& arguments) {
  const std::optional<std::string> content = run.stage.data.Read(arguments.Text(0));
  if (arguments.Is(1, "missing")) {
    if (content) throw CExpectationFailure("the file is there");
    return;
  }
  if (!content) throw CExpectationFailure("there is no such file");
  if (arguments.Is(1, "exists")) return;
  if (!arguments.Is(1, "is") || !arguments.HasBlock()) arguments.ThrowUsage();
  if (*content != arguments.BlockText())
    throw CExpectationFailure("the file contains\n" + *content);
}

void ExpectFiles(CRun& run, const CCommandArguments& arguments) {
  CompareLog(arguments.Block(), run.stage.data.List());
}

void ExpectOpened(CRun& run, const CCommandArguments& arguments) {
  const std::optional<std::string> opened = run.stage.evidence.LastOpened();
  if (!opened) throw CExpectationFailure("nothing was opened");
  if (*opened != arguments.Text(0)) throw CExpectationFailure("opened: " + *opened);
}

void ExpectXml(CRun& run, const CCommandArguments& arguments) {
  const std::vector<std::string> texts =
      run.stage.evidence.ReadXml(arguments.Text(0), arguments.Text(1));
  const std::vector<std::string> expected =
      arguments.HasBlock()
          ? arguments.Block()
          : std::vector<std::string>(arguments.Words().begin() + 2, arguments.Words().end());
  if (texts != expected) throw CExpectationFailure("found\n" + Joined(texts));
}

void ExpectSetting(CRun& run, const CCommandArguments& arguments) {
  for (size_t i = 0; i < arguments.Count(); i += 2) {
    const std::vector<std::string> texts =
        run.stage.evidence.ReadXml("Microsoft\\AddIns\\vex_cfg.xml", "//" + arguments.Text(i));
    if (texts == std::vector<std::string>{arguments.Text(i + 1)}) continue;
    throw CExpectationFailure("the settings file has \"" + Joined(texts) + "\"");
  }
}

void ExpectRegistry(CRun& run, const CCommandArguments& arguments) {
  const std::optional<std::string> value =
      run.stage.evidence.ReadRegistry(arguments.Text(0), arguments.Text(1));
  if (arguments.Count() == 2) {
    if (value) throw CExpectationFailure("the value is \"" + *value + "\"");
  } else if (value != arguments.Text(2)) {
    throw CExpectationFailure(value ? "the value is \"" + *value + "\""
                                    : std::string("there is no such value"));
  }
}

void NoteHeld(CRun& run, const CCommandArguments&) {
  run.notedHeld = run.Held();
}

void ExpectHeld(CRun& run, const CCommandArguments& arguments) {
  const std::vector<std::string> held = run.Held();
  std::vector<std::string> expected = arguments.Block();
  if (arguments.Is(0, "noted")) expected = run.notedHeld;
  if (held != expected) {
    throw CExpectationFailure("the add-in holds\n" + Joined(held));
  }
}

void ExpectJournal(CRun& run, const CCommandArguments& arguments) {
  const std::vector<std::string> journal = run.stage.outlook.Journal();
  const auto matches = [](const std::string& entry, std::string_view expected) {
    if (!expected.ends_with("...")) return entry == expected;
    expected.remove_suffix(3);
    return entry.starts_with(expected);
  };
  if (!std::ranges::equal(journal, arguments.Block(), matches)) {
    throw CExpectationFailure("the journal holds\n" + Joined(journal));
  }
}

void ShowHeld(CRun& run, const CCommandArguments&) {
  const std::vector<std::string> held = run.Held();
  run.transcript.Show(held.empty() ? "the add-in holds no objects of Outlook"
                                   : "the add-in holds\n" + Joined(held));
}

void WatchXml(CRun& run, const CCommandArguments& arguments) {
  run.stage.evidence.WatchXml(arguments.Text(0));
}

void ExpectWatched(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostReadings = 1'000'000'000;
  const auto least = static_cast<uint64_t>(arguments.Number(0, 1, kMostReadings));
  const uint64_t readings = run.stage.evidence.EndWatch();
  if (readings < least) {
    throw CExpectationFailure("it was read only " + std::to_string(readings) + " times");
  }
}

struct UseLine {
  const char* what;
  int64_t now;
  int64_t noted;
};

// Without the bytes: they count the whole process and vary from run to run.
std::vector<UseLine> CountedUse(CRun& run, const ResourceUse& now) {
  const CRun::NotedUse noted = run.notedUse.value_or(CRun::NotedUse());
  const ResourceUse& then = noted.process;
  std::vector<UseLine> lines = {{"memory blocks of the add-in", now.blocks, then.blocks},
                                {"handles", now.handles, then.handles},
                                {"windows", now.windows, then.windows},
                                {"objects held of Outlook", static_cast<int64_t>(run.Held().size()),
                                 static_cast<int64_t>(noted.objects)}};
  if (now.gdiObjects) {
    lines.push_back({"GDI objects", *now.gdiObjects, then.gdiObjects.value_or(0)});
  }
  return lines;
}

void NoteUse(CRun& run, const CCommandArguments&) {
  run.notedUse = {run.stage.host.Use(), run.Held().size()};
}

void ExpectUse(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostKilobytes = 1'000'000;
  constexpr int kUsualKilobytes = 1024;
  if (!run.notedUse) throw CScenarioError("\"note use\" is missing");
  const ResourceUse now = run.stage.host.Use();
  for (const UseLine& line : CountedUse(run, now)) {
    if (line.now <= line.noted) continue;
    throw CExpectationFailure(std::string(line.what) + ": " + std::to_string(line.now) +
                              ", recorded " + std::to_string(line.noted));
  }
  const int most = arguments.NumberAfter("memory", 0, kMostKilobytes).value_or(kUsualKilobytes);
  const int64_t more = (now.bytes - run.notedUse->process.bytes) / 1024;
  if (more > most) {
    throw CExpectationFailure("the process has " + std::to_string(more) + " KB more");
  }
}

void ShowUse(CRun& run, const CCommandArguments&) {
  const ResourceUse now = run.stage.host.Use();
  std::string text = "memory: " + std::to_string(now.bytes / 1024) + " KB";
  for (const UseLine& line : CountedUse(run, now))
    text += std::string("\n") + line.what + ": " + std::to_string(line.now);
  run.transcript.Show(text);
}

std::string OneDecimal(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", value);
  return text;
}

// Outlook disables an add-in whose median time for an event exceeds the limit.
std::string TimeLine(const char* moment, const std::optional<double>& milliseconds, int limit) {
  if (!milliseconds) return {};
  return std::string(moment) + ": " + OneDecimal(*milliseconds) + " ms, " +
         OneDecimal(*milliseconds * 100 / limit) + " % of " + std::to_string(limit) + " ms\n";
}

std::string WorkLine(const char* name, const std::optional<Figures::Work>& work) {
  if (!work) return {};
  return std::string(name) + ": " + std::to_string(work->calls) + " calls of the object model, " +
         OneDecimal(work->microsecondsInModel) + " us inside it, " +
         OneDecimal(work->microsecondsInWindows) + " us in the system's windows, " +
         OneDecimal(work->microsecondsInAddIn) + " us in the add-in; " +
         std::to_string(work->messages) + " messages, the longest " +
         OneDecimal(work->longestMilliseconds) + " ms, from first to last " +
         OneDecimal(work->ended - work->begun) + " ms\n";
}

double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double MedianOf(const std::vector<Figures::Caller>& callers, double Figures::Caller::*share) {
  std::vector<double> values;
  values.reserve(callers.size());
  for (const Figures::Caller& caller : callers)
    values.push_back(caller.*share);
  return MedianOf(std::move(values));
}

// Medians and the maximum.
std::string CallerLine(const std::vector<Figures::Caller>& callers) {
  using Caller = Figures::Caller;
  if (callers.empty()) return {};
  const double whole = MedianOf(callers, &Caller::milliseconds);
  const auto share = [&](double Caller::*part) {
    return OneDecimal(MedianOf(callers, part) * 100 / whole) + " % in ";
  };
  const auto dearest = std::ranges::max_element(callers, {}, &Caller::milliseconds);
  const auto longest = std::ranges::max_element(callers, {}, &Caller::messages);
  return "caller ID to caller window: " + OneDecimal(whole) + " ms, at most " +
         OneDecimal(dearest->milliseconds) + " ms (" + std::to_string(callers.size()) +
         " calls), " + std::to_string(longest->messages) + " messages on the way; " +
         share(&Caller::savingMilliseconds) + "saving the settings, " +
         share(&Caller::windowMilliseconds) + "showing the window, " +
         share(&Caller::outlookMilliseconds) + "Outlook's objects\n";
}

void WatchDelays(CRun& run, const CCommandArguments&) {
  run.stage.figures.WatchDelays();
}

void ShowFigures(CRun& run, const CCommandArguments&) {
  constexpr int kStartLimit = 1000;
  constexpr int kShutdownLimit = 500;
  constexpr int kFolderSwitchLimit = 500;
  const Figures figures = run.stage.figures.Take();
  std::string text = TimeLine("OnConnection", figures.connection, kStartLimit) +
                     TimeLine("folder switch", figures.folderSwitch, kFolderSwitchLimit) +
                     TimeLine("shutdown", figures.shutdown, kShutdownLimit);
  text += WorkLine("start-up scan", figures.scan) + WorkLine("messages", figures.messages);
  text += CallerLine(figures.callers);
  if (figures.delays) {
    text += "the longest delay: of a key stroke " + OneDecimal(figures.delays->key) +
            " ms, of a poll " + OneDecimal(figures.delays->poll) + " ms\n";
  }
  text += "ribbon: " + std::to_string(figures.ribbonInvalidations) + " invalidations, " +
          std::to_string(figures.ribbonCallbacks) + " callbacks, " +
          OneDecimal(figures.ribbonMicroseconds) + " us in them";
  run.transcript.Show(text);
}

void ExpectInvalidations(CRun& run, const CCommandArguments& arguments) {
  const uint64_t times = run.stage.figures.Take().ribbonInvalidations;
  if (arguments.Count() == 1 && times != static_cast<uint64_t>(arguments.Number(0, 0, INT_MAX))) {
    throw CExpectationFailure("the ribbon was invalidated " + std::to_string(times) + " times");
  }
}

void ExpectFailure(CRun& run, const CCommandArguments& arguments) {
  for (const Statement& one : arguments.Commands(1, run.stage.outlook.Version())) {
    const std::string failure = run.FailureOf(one);
    if (failure.empty()) throw CExpectationFailure("it succeeds: " + one.source);
    if (failure.find(arguments.Text(0)) != std::string::npos) continue;
    throw CExpectationFailure(one.source + " fails otherwise: " + failure);
  }
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"expect log", 0, kAnyNumber, Block::Optional, ExpectLog},
    {"expect log has", 1, kAnyNumber, Block::None, ExpectLogHas},
    {"expect log with", 1, kAnyNumber, Block::Required, ExpectLogWith},
    {"show log", 0, 0, Block::None, ShowLog},
    {"expect file", 2, 2, Block::Optional, ExpectFile},
    {"expect files", 0, 0, Block::Required, ExpectFiles},
    {"expect opened", 1, 1, Block::None, ExpectOpened},
    {"expect xml", 2, kAnyNumber, Block::Optional, ExpectXml},
    {"expect setting", 2, kAnyNumber, Block::None, ExpectSetting},
    {"expect registry", 2, 3, Block::None, ExpectRegistry},
    {"note held", 0, 0, Block::None, NoteHeld},
    {"expect held", 0, 1, Block::Optional, ExpectHeld},
    {"expect journal", 0, 0, Block::Optional, ExpectJournal},
    {"show held", 0, 0, Block::None, ShowHeld},
    {"watch xml", 1, 1, Block::None, WatchXml},
    {"expect watched", 1, 1, Block::None, ExpectWatched},
    {"note use", 0, 0, Block::None, NoteUse},
    {"expect use", 0, 2, Block::None, ExpectUse},
    {"show use", 0, 0, Block::None, ShowUse},
    {"expect invalidations", 0, 1, Block::None, ExpectInvalidations},
    {"watch delays", 0, 0, Block::None, WatchDelays},
    {"show figures", 0, 0, Block::None, ShowFigures},
    {"expect failure", 1, kAnyNumber, Block::Optional, ExpectFailure},
};

}  // namespace

constinit const std::span<const Command> kEvidenceCommands = kCommands;

}  // namespace quor::workbench
