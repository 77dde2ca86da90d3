#ifndef QUOR_DOCTOR_FACTS_H
#define QUOR_DOCTOR_FACTS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "module/session_times.h"

namespace quor::doctor {

// What was found on a computer, before any conclusions. Texts are UTF-8.

// The users that a registration applies to.
enum class Scope { User, Machine };

struct OutlookInstall {
  int version = 0;  // 11, 12, 14, 15 or 16
  int bitness = 0;  // 0: unknown
  std::string path;
  std::string fileVersion;
};

// An InprocServer32 key of the add-in's class.
struct ClassRegistration {
  Scope scope = Scope::Machine;
  int bitness = 0;  // registry view that contains it
  std::string path;
  bool fileExists = false;
  int fileBitness = 0;
  std::string fileVersion;
};

// The add-in's key under Outlook's "Addins".
struct AddInKey {
  Scope scope = Scope::Machine;
  int bitness = 0;  // 0 for the user's key, which both bitnesses share
  std::optional<uint32_t> loadBehavior;
};

// An entry about the add-in in one of Outlook's own lists.
struct OutlookListEntry {
  enum class List {
    Disabled,  // DisabledItems: no longer loaded
    Crashing,  // CrashingAddinList
    Kept,      // DoNotDisableAddinList: stays enabled
  };
  List list = List::Disabled;
  int version = 0;
  std::string name;     // name of the value
  uint32_t reason = 0;  // for Kept and Crashing
};

// An administrator's policies for Outlook.
struct Policy {
  int version = 0;
  std::string addIn;        // AddinList: "0" never, "1" always, "2" the user decides; or empty
  bool onlyListed = false;  // RestrictToList: unlisted add-ins stay off
  bool signedOnly = false;  // RequireAddinSig
  bool allAddInsDisabled = false;  // DisableAllAddins
};

// The USB library, where an add-in of that bitness searches for it.
struct UsbLibrary {
  int bitness = 0;      // of the add-in
  std::string path;     // empty: not found
  int fileBitness = 0;  // 0: not a library for Intel processors
  std::vector<uint32_t> missingOrdinals;
};

// A base that the USB library lists.
struct UsbBase {
  std::string description;  // the product string, ASCII
  bool isFree = false;      // it could be opened; otherwise a program uses it
};

struct SettingsFile {
  std::string path;
  bool exists = false;
  bool readable = true;  // well-formed
  bool writable = true;  // the add-in can replace it
  int asideCopies = 0;
  bool logIsOn = false;
  std::string newestLog;  // path; empty: none
};

struct RunningOutlook {
  bool runs = false;
  bool elevated = false;
  bool answers = false;           // it returned its add-ins
  std::optional<bool> connected;  // our add-in; nothing: not in the list
};

struct Facts {
  std::string windows;
  int windowsBitness = 0;
  std::vector<OutlookInstall> outlooks;
  bool newOutlookInstalled = false;
  bool newOutlookChosen = false;  // the user has switched to it
  bool storeOutlook = false;
  std::vector<ClassRegistration> classes;
  std::vector<AddInKey> addInKeys;
  std::vector<OutlookListEntry> listed;
  std::vector<Policy> policies;
  std::vector<UsbLibrary> libraries;
  std::optional<std::vector<UsbBase>> bases;  // nothing: unknown
  SettingsFile settings;
  std::vector<SessionTimes> sessions;  // the oldest first
  RunningOutlook running;
};

}  // namespace quor::doctor

#endif
