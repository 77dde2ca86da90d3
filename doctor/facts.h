#ifndef QUOR_DOCTOR_FACTS_H
#define QUOR_DOCTOR_FACTS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quor::doctor {

// What was found on a computer, before anything is concluded from it. Texts are UTF-8.

// For whom something is registered.
enum class Scope { User, Machine };

struct OutlookInstall {
  int version = 0;  // 11, 12, 14, 15 or 16
  int bitness = 0;  // 0: could not be told
  std::string path;
  std::string fileVersion;
};

// One InprocServer32 of the add-in's class.
struct ClassRegistration {
  Scope scope = Scope::Machine;
  int bitness = 0;  // the view of the registry that it is in
  std::string path;
  bool fileExists = false;
  int fileBitness = 0;
  std::string fileVersion;
};

// The add-in's key below Outlook's "Addins".
struct AddInKey {
  Scope scope = Scope::Machine;
  int bitness = 0;  // 0 for the user, who has one for both
  std::optional<uint32_t> loadBehavior;
};

// An entry about the add-in in a list that Outlook keeps for itself.
struct OutlookListEntry {
  enum class List {
    Disabled,  // DisabledItems: not loaded any more
    Crashing,  // CrashingAddinList
    Kept,      // DoNotDisableAddinList: loads in spite of what happened
  };
  List list = List::Disabled;
  int version = 0;
  std::string name;     // the value's
  uint32_t reason = 0;  // of Kept and Crashing
};

// What an administrator prescribes for Outlook.
struct Policy {
  int version = 0;
  std::string addIn;        // AddinList: "0" never, "1" always, "2" as the user likes; or empty
  bool onlyListed = false;  // RestrictToList: what is not listed stays off
  bool signedOnly = false;  // RequireAddinSig
  bool allAddInsDisabled = false;  // DisableAllAddins
};

// The USB library where an add-in of that bitness looks for it.
struct UsbLibrary {
  int bitness = 0;      // of the add-in
  std::string path;     // empty: not found
  int fileBitness = 0;  // 0: no library of Intel's processors
  std::vector<uint32_t> missingOrdinals;
};

struct SettingsFile {
  std::string path;
  bool exists = false;
  bool readable = true;  // well-formed
  bool writable = true;
  int asideCopies = 0;
  bool logIsOn = false;
  std::string newestLog;  // path; empty: none
};

struct RunningOutlook {
  bool runs = false;
  bool elevated = false;
  bool answers = false;           // could be asked for its add-ins
  std::optional<bool> connected;  // ours; nothing: not among its add-ins
};

struct Facts {
  std::string windows;
  std::vector<OutlookInstall> outlooks;
  bool newOutlookInstalled = false;
  bool newOutlookChosen = false;  // the user has switched over
  bool storeOutlook = false;
  std::vector<ClassRegistration> classes;
  std::vector<AddInKey> addInKeys;
  std::vector<OutlookListEntry> listed;
  std::vector<Policy> policies;
  std::vector<UsbLibrary> libraries;
  SettingsFile settings;
  RunningOutlook running;
};

}  // namespace quor::doctor

#endif
