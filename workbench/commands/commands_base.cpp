// The telephone base at the other end of the cable.

#include <algorithm>
#include <array>

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/indications.h"
#include "workbench/scenario/log_lines.h"
#include "workbench/scenario/results.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kLongestPause = 10'000;  // milliseconds

void Library(CRun& run, const CCommandArguments& arguments) {
  using Library = CBaseStage::Library;
  const bool none = arguments.Choice(0, {"none", "old"}) == 0;
  run.stage.base.InstallLibrary(none ? Library::Missing : Library::Old);
}

void Driver(CRun& run, const CCommandArguments& arguments) {
  constexpr int kSlowest = 10'000;  // milliseconds
  DriverManners manners;
  if (const auto status = arguments.After("empty")) {
    manners.withoutDevice = static_cast<int>(ResultFromName(*status));
  }
  if (const auto status = arguments.After("busy")) {
    manners.secondOpen = static_cast<int>(ResultFromName(*status));
  }
  const auto time = [&](const char* word) {
    return static_cast<uint32_t>(arguments.NumberAfter(word, 0, kSlowest).value_or(0));
  };
  manners.stringTime = time("string");
  manners.openTime = time("open");
  run.stage.base.Base().SetManners(manners);
}

void Plug(CRun& run, const CCommandArguments& arguments) {
  constexpr std::array<const char*, 5> kNames = {"serial", "description", "link", "vendor",
                                                 "product"};
  DeviceStrings strings = {"0001", "Telephone base", "link", "10C4", "EA61"};
  for (const std::string& word : arguments.Words()) {
    const size_t equals = word.find('=');
    const auto name = std::find(kNames.begin(), kNames.end(), word.substr(0, equals));
    if (equals == std::string::npos || name == kNames.end()) {
      throw CScenarioError("\"" + word +
                           "\" is not serial=, description=, link=, vendor=, product=");
    }
    const std::string value = word.substr(equals + 1);
    auto& string = strings[static_cast<size_t>(name - kNames.begin())];
    string = value == "unreadable" ? std::optional<std::string>() : value;
  }
  run.stage.base.Plug(strings);
}

void Unplug(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostDevices = 10;
  run.stage.base.Unplug(
      arguments.Count() ? static_cast<unsigned>(arguments.Number(0, 1, kMostDevices)) - 1 : 0);
}

// Bytes that arrive `delay` milliseconds after the previous piece.
struct Piece {
  Bytes bytes;
  unsigned delay = 0;
};

// The bytes of one piece, up to the next "pause".
Bytes PieceBytes(std::span<const std::string> words) {
  if (words.empty()) throw CScenarioError("no bytes before or after a pause");
  return IsIndicationName(words.front()) ? IndicationFromWords(words) : ParseHex(words);
}

void Queue(CRun& run, const CCommandArguments& arguments) {
  std::vector<Piece> pieces;
  unsigned delay = 0;
  size_t first = 0;
  for (size_t i = 0; i < arguments.Count(); ++i) {
    if (!arguments.Is(i, "pause")) continue;
    pieces.push_back({PieceBytes(arguments.Words().subspan(first, i - first)), delay});
    delay = static_cast<unsigned>(arguments.Number(i + 1, 0, kLongestPause));
    first = i + 2;
    ++i;
  }
  if (first > arguments.Count()) throw CScenarioError("no bytes after the last pause");
  pieces.push_back({PieceBytes(arguments.WordsFrom(first)), delay});
  for (const Piece& piece : pieces)
    run.stage.base.Base().Queue(piece.bytes, piece.delay);
}

void Send(CRun& run, const CCommandArguments& arguments) {
  Queue(run, arguments);
  run.stage.host.Poll();
}

void SendIndication(CRun& run, const std::vector<std::string>& words) {
  run.stage.base.Base().Queue(IndicationFromWords(words));
  run.stage.host.Poll();
}

void Ring(CRun& run, const CCommandArguments& arguments) {
  const std::string line = "line=" + arguments.Text(0);
  SendIndication(run, {"receive-call", line, "line1=2", "line2=2", "cell=2"});
  std::vector<std::string> callerId = {"caller-id", line};
  callerId.insert(callerId.end(), arguments.Words().begin() + 1, arguments.Words().end());
  SendIndication(run, callerId);
}

uint32_t QueueStatusFromName(const std::string& name) {
  if (name == "empty") return 0;
  if (name == "overrun") return 1;
  if (name == "ready") return 2;
  return ResultFromName(name);
}

void ReportQueue(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostCalls = 1000;
  const std::optional<int> count = arguments.NumberAfter("count", 0, 0x7FFFFFFF);
  const int calls = arguments.NumberAfter("calls", 1, kMostCalls).value_or(1);
  run.stage.base.Base().ReportQueue(QueueStatusFromName(arguments.Text(0)), count,
                                    static_cast<unsigned>(calls));
}

UsbFunction FunctionFromName(const std::string& name) {
  const std::optional<UsbFunction> function = UsbFunctionFromName(name);
  if (!function) throw CScenarioError("\"" + name + "\" is not a function of the USB library");
  return *function;
}

CallRange CallsFromWords(const CCommandArguments& arguments) {
  const FailingCalls calls = ParseCalls(arguments.After("call").value_or("1"), 0);
  return {calls.firstCall, calls.lastCall == 0 ? kForEver : calls.lastCall};
}

void Fail(CRun& run, const CCommandArguments& arguments) {
  const std::optional<std::string> status = arguments.After("status");
  if (!status) throw CScenarioError("which status? status 4, say");
  run.stage.base.Base().Fail(FunctionFromName(arguments.Text(0)),
                             static_cast<int>(ResultFromName(*status)), CallsFromWords(arguments));
}

void Shorten(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostBytes = 65536;
  const std::optional<int> bytes = arguments.NumberAfter("to", 0, kMostBytes);
  if (!bytes) throw CScenarioError("to how many bytes?");
  run.stage.base.Base().Shorten(FunctionFromName(arguments.Text(0)), static_cast<unsigned>(*bytes),
                                CallsFromWords(arguments));
}

void ExpectWire(CRun& run, const CCommandArguments& arguments) {
  const Bytes expected = arguments.Is(0, "nothing") ? Bytes() : ParseHex(arguments.Words());
  const Bytes seen = run.NewWire();
  if (seen != expected) {
    throw CExpectationFailure("on the wire: " + (seen.empty() ? "nothing" : FormatHex(seen)));
  }
  run.ForgetWire();
}

void ExpectHandles(CRun& run, const CCommandArguments& arguments) {
  const auto expected = static_cast<unsigned>(arguments.Number(0, 0, 100));
  const unsigned open = run.stage.base.OpenHandles();
  if (open != expected) throw CExpectationFailure(std::to_string(open) + " handles are open");
}

void Mobiles(CRun& run, const CCommandArguments& arguments) {
  constexpr size_t kMost = 4;
  if (arguments.Count() > kMost) throw CScenarioError("the base relays four mobiles");
  std::array<std::string, kMost> names;
  uint8_t reachable = 0;
  for (size_t i = 0; i < arguments.Count(); ++i) {
    names[i] = arguments.Text(i);
    if (!names[i].empty()) reachable = static_cast<uint8_t>(reachable | 1 << i);
  }
  run.stage.base.Enliven().SetCells(reachable, names);
}

// The calls of every poll that only check for the device.
bool IsEnumeration(const std::string& call) {
  return call.starts_with("SI_GetNumDevices") || call.starts_with("SI_GetProductString");
}

void ExpectUsb(CRun& run, const CCommandArguments& arguments) {
  std::vector<std::string> calls = run.NewUsbCalls();
  if (!arguments.Is(0, "all")) std::erase_if(calls, IsEnumeration);
  const std::string difference = DescribeDifference(arguments.Block(), calls);
  if (!difference.empty()) throw CExpectationFailure("the calls differ:\n" + difference);
  run.ForgetUsbCalls();
}

void ShowWire(CRun& run, const CCommandArguments&) {
  const Bytes seen = run.NewWire();
  run.transcript.Show(seen.empty() ? "nothing written" : "written: " + FormatHex(seen));
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"library", 1, 1, Block::None, Library},
    {"driver", 0, 8, Block::None, Driver},
    {"plug", 0, 5, Block::None, Plug},
    {"unplug", 0, 1, Block::None, Unplug},
    {"queue", 1, kAnyNumber, Block::None, Queue},
    {"send", 1, kAnyNumber, Block::None, Send},
    {"ring", 1, kAnyNumber, Block::None, Ring},
    {"report queue", 1, 5, Block::None, ReportQueue},
    {"fail", 3, 5, Block::None, Fail},
    {"shorten", 3, 5, Block::None, Shorten},
    {"mobiles", 0, 4, Block::None, Mobiles},
    {"expect wire", 1, kAnyNumber, Block::None, ExpectWire},
    {"expect handles", 1, 1, Block::None, ExpectHandles},
    {"expect usb", 0, 1, Block::Required, ExpectUsb},
    {"show wire", 0, 0, Block::None, ShowWire},
};

}  // namespace

constinit const std::span<const Command> kBaseCommands = kCommands;

}  // namespace quor::workbench
