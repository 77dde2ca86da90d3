#include "workbench/scenario/results.h"

#include <cstdio>
#include <iterator>

#include "workbench/scenario/numbers.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

struct NamedResult {
  const char* name;
  uint32_t value;
};

constexpr NamedResult kResults[] = {
    {"S_OK", 0},
    {"S_FALSE", 1},
    {"E_NOTIMPL", 0x80004001},
    {"E_NOINTERFACE", 0x80004002},
    {"E_POINTER", 0x80004003},
    {"E_FAIL", 0x80004005},
    {"E_UNEXPECTED", 0x8000FFFF},
    {"E_ACCESSDENIED", 0x80070005},
    {"E_OUTOFMEMORY", 0x8007000E},
    {"E_INVALIDARG", 0x80070057},
    {"CONNECT_E_NOCONNECTION", 0x80040200},
    {"CONNECT_E_CANNOTCONNECT", 0x80040202},
    {"DISP_E_EXCEPTION", 0x80020009},
};

}  // namespace

uint32_t ResultFromName(const std::string& name) {
  for (const NamedResult& result : kResults) {
    if (name == result.name) return result.value;
  }
  const auto value = ParseNumber<uint32_t>(name);
  if (!value) throw CScenarioError("unknown result \"" + name + "\"");
  return *value;
}

std::string ResultName(uint32_t result) {
  for (const NamedResult& known : kResults) {
    if (result == known.value) return known.name;
  }
  char text[16];
  std::snprintf(text, std::size(text), "0x%08X", static_cast<unsigned>(result));
  return text;
}

FailingCalls ParseCalls(const std::string& text, uint32_t status) {
  FailingCalls fault;
  fault.status = status;
  const size_t dash = text.find('-');
  const uint32_t first = ParseNumber<uint32_t>(text.substr(0, dash)).value_or(0);
  uint32_t last = first;
  bool good = first > 0;
  if (dash != std::string::npos) {
    const bool open = dash + 1 == text.size();
    last = open ? 0 : ParseNumber<uint32_t>(text.substr(dash + 1)).value_or(0);
    good = good && (open || last >= first);
  }
  if (!good) throw CScenarioError("\"" + text + "\" is not a call number, N, N-M or N-");
  fault.firstCall = first;
  fault.lastCall = last;
  return fault;
}

}  // namespace quor::workbench
