// Any records and events of the base, mixed with the user's clicks, with and without a ribbon.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>

#include "fuzz/require.h"
#include "tests/telephone/telephone_desk.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr uint32_t kEvents[] = {5000, 5001, 5010, 5100, 5101, 5102, 5103, 5104, 0};
constexpr uint32_t kLines[] = {kLine1, kLine2, kCell1, kCell2, kCell3, kCell4, 0, 3, 0xFFFFFFFF};

// The base's texts end within their fields; the cells' names need no terminator.
void FillRecords(FuzzedDataProvider& input, DeviceRecords& records) {
  const auto fill = [&input](auto& record) { input.ConsumeData(&record, sizeof record); };
  fill(records.status);
  fill(records.cells);
  for (CallerIdRecord& caller : records.callerId) {
    fill(caller);
    caller.name[sizeof caller.name - 1] = caller.number[sizeof caller.number - 1] = '\0';
  }
  for (LastCallerRecord& caller : records.lastCaller) {
    fill(caller);
    caller.number[sizeof caller.number - 1] = '\0';
  }
}

void Act(FuzzedDataProvider& input, CTelephoneDesk& desk) {
  const uint32_t line = input.PickValueInArray(kLines);
  const auto text = [&input] {
    std::wstring typed(input.ConsumeIntegralInRange<size_t>(0, 40), L'\0');
    for (wchar_t& unit : typed)
      unit = input.ConsumeIntegralInRange<uint8_t>(0x20, 0x7F);
    return typed;
  };
  switch (input.ConsumeIntegralInRange(0, 7)) {
    case 0:
      FillRecords(input, desk.records);
      break;
    case 1:
      desk.phone.Lines().Click(line);
      break;
    case 2:
      desk.phone.Lines().AnswerUSB(input.ConsumeIntegralInRange(-1, 6));
      break;
    case 3:
      desk.phone.Dialler().OnChangeComboBox(text(), input.ConsumeIntegralInRange(-1, 21));
      break;
    case 4:
      desk.phone.Lines().DialOnLine(line, text());
      break;
    case 5:
      desk.phone.Dialler().OnClearDial();
      break;
    case 6:
      desk.tick += input.ConsumeIntegral<uint16_t>();
      desk.postsFail = input.ConsumeBool();
      break;
    default:
      desk.phone.Events().OnEventGet(input.PickValueInArray(kEvents), line);
  }
}

// Only complete dial strings are waiting, each for its own line.
void CheckRequests(const DeviceRecords& records) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const DialRecord& dial = records.dial[static_cast<size_t>(slot)];
    const std::string_view number = FieldText(dial.number);
    Require(dial.lineType == 0 || dial.lineType == LineTypeFromSlot(slot));
    Require(number.size() == dial.numberLength && number.size() < sizeof dial.number);
    Require(number.find_first_not_of(kDialChars) == std::string_view::npos);
  }
}

void CheckTextsAndLists(const CTelephoneDesk& desk) {
  const TelephoneState& state = desk.phone.State();
  Require(FieldText(state.caller.number).size() < sizeof state.caller.number);
  Require(FieldText(state.caller.name).size() < sizeof state.caller.name);
  Require(desk.configuration.histories.size() <= kHistoryLimit);
  Require(desk.configuration.callerLists.size() <= kCallerListLimit);
}

}  // namespace
}  // namespace quor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace quor;
  FuzzedDataProvider input(data, size);
  CTelephoneDesk desk(input.ConsumeBool() ? kRibbonVersion : kToolbarVersion);
  desk.BeQuiet();
  for (int32_t& mode : desk.configuration.popUpModes)
    mode = input.ConsumeIntegralInRange(0, 3);
  desk.found["0551"] = {L"Lee, Anna", L"0551"};
  while (input.remaining_bytes() != 0) {
    Act(input, desk);
    CheckRequests(desk.records);
    CheckTextsAndLists(desk);
  }
  desk.phone.Events().OnEventGet(5001, 0);
  Require(desk.phone.State().record == TelephoneRecord{});
  return 0;
}
