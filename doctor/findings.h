#ifndef QUOR_DOCTOR_FINDINGS_H
#define QUOR_DOCTOR_FINDINGS_H

#include <string>
#include <vector>

#include "doctor/facts.h"

namespace quor::doctor {

// Why the telephone may not be there. The texts in finding_texts.cpp are in this order.
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
  SettingsUnreadable,
  SettingsReadOnly,
  SettingsAside,
  NotConnected,
  NotAmongAddIns,
  Count,
};

struct Finding {
  FindingKind kind = FindingKind::NoOutlook;
  std::vector<std::string> arguments;  // for {0}, {1}... of its texts

  bool operator==(const Finding&) const = default;
};

// Whether "--fix" mends it.
bool IsMendable(FindingKind kind);

// Good to know, and no reason for the telephone to be away.
bool IsNote(FindingKind kind);

// The gravest first. Looks at the bitness of each Outlook that is there; where none is known, at
// each bitness for which something of the add-in is registered.
std::vector<Finding> Examine(const Facts& facts);

}  // namespace quor::doctor

#endif
