#ifndef QUOR_DOCTOR_FINDINGS_H
#define QUOR_DOCTOR_FINDINGS_H

#include <string>
#include <vector>

#include "doctor/facts.h"

namespace quor::doctor {

// Possible reasons why the telephone is missing. The texts in finding_texts.cpp have the same
// order.
enum class FindingKind {
  NoOutlook,
  NewOutlook,
  StoreOutlook,
  NotRegistered,
  ClassMissing,
  KeyMissing,
  FileMissing,
  FileOfOtherBitness,
  VersionsDiffer,
  Leftover,
  ElevatedOutlook,
  SwitchedOff,
  NotAtStart,
  Disabled,
  Crashed,
  Kept,
  PolicyOff,
  PolicyUnlisted,
  PolicySignedOnly,
  PolicyAllOff,
  LibraryMissing,
  LibraryOfOtherBitness,
  LibraryIncomplete,
  NoBase,
  BaseInUse,
  SettingsUnreadable,
  SettingsReadOnly,
  SettingsAside,
  NotConnected,
  NotAmongAddIns,
  Slow,
  Count,
};

struct Finding {
  FindingKind kind = FindingKind::NoOutlook;
  std::vector<std::string> arguments;  // for {0}, {1}... of its texts

  bool operator==(const Finding&) const = default;
};

// Whether "--fix" repairs it.
bool IsRepairable(FindingKind kind);

// Information only; not a reason why the telephone is missing.
bool IsNote(FindingKind kind);

// The findings, most serious first. Checks the bitness of each installed Outlook; if none is known,
// each bitness for which some part of the add-in is registered.
std::vector<Finding> Examine(const Facts& facts);

}  // namespace quor::doctor

#endif
