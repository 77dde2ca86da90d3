// Any text is either one of our controls with a valid index, or not a control. Pieces of real ids
// in any order give near misses.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/require.h"
#include "toolbar/ribbon_control_id.h"

namespace quor {
namespace {

constexpr const wchar_t* kPieces[] = {
    L"Mail",       L"Calendar",   L"TableView",  L"Contacts", L"Custom",    L"Menu",
    L"Button",     L"Line1",      L"Line2C",     L"Cell",     L"CallFrom",  L"CallerList",
    L"SpeedDial",  L"SpeedDialC", L"SpeedDialU", L"Option",   L"ComboDial", L"DialNum",
    L"MenuMobile", L"MenuHome2",  L"0",          L"3",        L"9",         L"10"};

size_t CountOf(RibbonFunction function) {
  switch (function) {
    case RibbonFunction::Cell:
      return 4;
    case RibbonFunction::Caller:
    case RibbonFunction::SpeedDialEntry:
    case RibbonFunction::SpeedDialItem:
      return 10;
    case RibbonFunction::ContactNumber:
      return 13;  // telNumberType, 1 to 12
    default:
      return 1;
  }
}

}  // namespace
}  // namespace quor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace quor;
  FuzzedDataProvider input(data, size);
  std::wstring id;
  while (input.remaining_bytes() != 0) {
    if (input.ConsumeBool()) {
      id += input.PickValueInArray(kPieces);
    } else {
      id += static_cast<wchar_t>(input.ConsumeIntegral<uint16_t>());
    }
  }
  const RibbonControlId control = RibbonControlIdFrom(id);
  Require(control.index < CountOf(control.function));
  Require(control.function != RibbonFunction::ContactNumber || control.index != 0);
  Require(control.function != RibbonFunction::None || control == RibbonControlId());
  // Nothing may follow a control's id.
  Require(RibbonControlIdFrom(id + L'x').function == RibbonFunction::None);
  Require(RibbonControlIdFrom(id + L'0').function != control.function ||
          control.function == RibbonFunction::None);
  return 0;
}
