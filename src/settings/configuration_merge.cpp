#include "settings/configuration_merge.h"

namespace quor {
namespace {

constexpr int32_t Configuration::*kNumbers[] = {
    &Configuration::aCheckInterval, &Configuration::connectInterval, &Configuration::dialClear,
    &Configuration::connectWait,    &Configuration::debugLog,        &Configuration::delayBtnEvent,
    &Configuration::languageNo,     &Configuration::callerInfo,      &Configuration::popUp,
    &Configuration::recordCalls,
};

constexpr ToolBarRecord Configuration::*kToolBarRecords[] = {&Configuration::mainToolBar,
                                                             &Configuration::contactToolBar};

template <typename Value>
bool Same(const Value& one, const Value& other) {
  return one == other;
}

// Ignore whether the values come from the file.
bool Same(ToolBarRecord one, const ToolBarRecord& other) {
  one.read = other.read;
  return one == other;
}

template <typename Value>
void Merge(const Value& known, const Value& file, MergeConflict conflict, Value& memory) {
  if (Same(file, known)) return;
  if (Same(memory, known) || conflict == MergeConflict::FileWins) memory = file;
}

}  // namespace

void MergeFileChanges(const Configuration& known, const Configuration& file, MergeConflict conflict,
                      Configuration& memory) {
  for (const auto member : kNumbers)
    Merge(known.*member, file.*member, conflict, memory.*member);
  for (const auto member : kToolBarRecords)
    Merge(known.*member, file.*member, conflict, memory.*member);
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    Merge(known.popUpModes[slot], file.popUpModes[slot], conflict, memory.popUpModes[slot]);
  }
  constexpr MergeConflict kLists = MergeConflict::MemoryWins;
  Merge(known.histories, file.histories, kLists, memory.histories);
  Merge(known.callerLists, file.callerLists, kLists, memory.callerLists);
  Merge(known.speedDials, file.speedDials, kLists, memory.speedDials);
}

bool HaveSameLists(const Configuration& one, const Configuration& other) {
  return one.histories == other.histories && one.callerLists == other.callerLists &&
         one.speedDials == other.speedDials;
}

}  // namespace quor
