#include "doctor/findings.h"

#include <algorithm>
#include <set>

namespace quor::doctor {
namespace {

constexpr uint32_t kLoadAtStart = 2;
constexpr uint32_t kConnected = 1;

std::string Number(uint64_t number) {
  return std::to_string(number);
}

class CExamination {
 public:
  explicit CExamination(const Facts& facts) : m_facts(facts) {}

  std::vector<Finding> Run() {
    LookAtOutlook();
    for (const int bitness : Bitnesses()) {
      LookAtRegistration(bitness);
    }
    LookAtLeftovers();
    LookAtElevation();
    LookAtLoadBehavior();
    LookAtPolicies();
    LookAtLists();
    LookAtLibraries();
    LookAtBases();
    LookAtSettings();
    LookAtRunningOutlook();
    LookAtTimes();
    return std::move(m_findings);
  }

 private:
  void Add(FindingKind kind, std::vector<std::string> arguments = {}) {
    Finding finding{kind, std::move(arguments)};
    if (std::ranges::find(m_findings, finding) == m_findings.end()) {
      m_findings.push_back(std::move(finding));
    }
  }

  std::set<int> Bitnesses() const {
    std::set<int> bitnesses;
    for (const OutlookInstall& outlook : m_facts.outlooks) {
      if (outlook.bitness != 0) bitnesses.insert(outlook.bitness);
    }
    if (!bitnesses.empty()) return bitnesses;
    for (const ClassRegistration& registration : m_facts.classes) {
      bitnesses.insert(registration.bitness);
    }
    return bitnesses;
  }

  void LookAtOutlook() {
    if (m_facts.outlooks.empty()) Add(FindingKind::NoOutlook);
    if (m_facts.newOutlookChosen || (m_facts.outlooks.empty() && m_facts.newOutlookInstalled)) {
      Add(FindingKind::NewOutlook);
    }
    if (m_facts.storeOutlook) Add(FindingKind::StoreOutlook);
  }

  // The class that an Outlook of that bitness uses: the user's takes precedence over the machine's.
  const ClassRegistration* EffectiveClass(int bitness) const {
    const ClassRegistration* found = nullptr;
    for (const ClassRegistration& registration : m_facts.classes) {
      if (registration.bitness != bitness) continue;
      if (found == nullptr || registration.scope == Scope::User) found = &registration;
    }
    return found;
  }

  const AddInKey* EffectiveKey(int bitness) const {
    const AddInKey* found = nullptr;
    for (const AddInKey& key : m_facts.addInKeys) {
      if (key.scope == Scope::Machine && key.bitness != bitness) continue;
      if (found == nullptr || key.scope == Scope::User) found = &key;
    }
    return found;
  }

  void LookAtRegistration(int bitness) {
    const ClassRegistration* registration = EffectiveClass(bitness);
    const AddInKey* key = EffectiveKey(bitness);
    const std::string bits = Number(static_cast<uint64_t>(bitness));
    if (registration == nullptr && key == nullptr) return Add(FindingKind::NotRegistered, {bits});
    if (registration == nullptr) return Add(FindingKind::ClassMissing, {bits});
    if (key == nullptr) Add(FindingKind::KeyMissing, {bits});
    if (!registration->fileExists) return Add(FindingKind::FileMissing, {bits, registration->path});
    if (registration->fileBitness != bitness) {
      return Add(FindingKind::FileOfOtherBitness, {bits, registration->path});
    }
    for (const ClassRegistration& other : m_facts.classes) {
      if (other.fileExists && other.fileVersion != registration->fileVersion) {
        Add(FindingKind::VersionsDiffer, {std::min(other.fileVersion, registration->fileVersion),
                                          std::max(other.fileVersion, registration->fileVersion)});
      }
    }
  }

  // Broken registrations that no installed Outlook uses.
  void LookAtLeftovers() {
    const std::set<int> bitnesses = Bitnesses();
    for (const ClassRegistration& registration : m_facts.classes) {
      if (registration.fileExists && registration.fileBitness == registration.bitness) continue;
      const bool isUsed = bitnesses.contains(registration.bitness) &&
                          EffectiveClass(registration.bitness) == &registration;
      if (!isUsed) {
        Add(FindingKind::Leftover,
            {Number(static_cast<uint64_t>(registration.bitness)), registration.path});
      }
    }
  }

  bool IsRegistered(Scope scope, int bitness) const {
    return std::ranges::any_of(m_facts.classes, [&](const ClassRegistration& registration) {
      return registration.scope == scope && registration.bitness == bitness;
    });
  }

  void LookAtElevation() {
    if (!m_facts.running.elevated) return;
    for (const int bitness : Bitnesses()) {
      if (IsRegistered(Scope::User, bitness) && !IsRegistered(Scope::Machine, bitness)) {
        Add(FindingKind::ElevatedOutlook);
      }
    }
  }

  void LookAtLoadBehavior() {
    for (const int bitness : Bitnesses()) {
      const AddInKey* key = EffectiveKey(bitness);
      if (key == nullptr) continue;
      const uint32_t value = key->loadBehavior.value_or(0);
      if ((value & kLoadAtStart) == 0) {
        Add(FindingKind::NotAtStart, {Number(value)});
      } else if ((value & kConnected) == 0) {
        Add(FindingKind::SwitchedOff, {Number(value)});
      }
    }
  }

  void LookAtPolicies() {
    for (const Policy& policy : m_facts.policies) {
      const std::string version = Number(static_cast<uint64_t>(policy.version));
      if (policy.addIn == "0") Add(FindingKind::PolicyOff, {version});
      if (policy.addIn.empty() && policy.onlyListed) Add(FindingKind::PolicyUnlisted, {version});
      if (policy.signedOnly) Add(FindingKind::PolicySignedOnly, {version});
      if (policy.allAddInsDisabled) Add(FindingKind::PolicyAllOff, {version});
    }
  }

  void LookAtLists() {
    for (const OutlookListEntry& entry : m_facts.listed) {
      const std::string version = Number(static_cast<uint64_t>(entry.version));
      switch (entry.list) {
        case OutlookListEntry::List::Disabled:
          Add(FindingKind::Disabled, {version});
          break;
        case OutlookListEntry::List::Crashing:
          Add(FindingKind::Crashed, {version});
          break;
        case OutlookListEntry::List::Kept:
          Add(FindingKind::Kept, {version, Number(entry.reason)});
          break;
      }
    }
  }

  void LookAtLibraries() {
    const std::set<int> bitnesses = Bitnesses();
    for (const UsbLibrary& library : m_facts.libraries) {
      // Without the add-in there is no folder to search, and installing it installs the library,
      // too.
      if (!bitnesses.contains(library.bitness)) continue;
      if (EffectiveClass(library.bitness) == nullptr) continue;
      const std::string bits = Number(static_cast<uint64_t>(library.bitness));
      if (library.path.empty()) {
        Add(FindingKind::LibraryMissing, {bits});
      } else if (library.fileBitness != library.bitness) {
        Add(FindingKind::LibraryOfOtherBitness, {bits, library.path});
      } else if (!library.missingOrdinals.empty()) {
        Add(FindingKind::LibraryIncomplete,
            {library.path, Number(library.missingOrdinals.front())});
      }
    }
  }

  void LookAtBases() {
    if (!m_facts.bases) return;
    if (m_facts.bases->empty()) Add(FindingKind::NoBase);
    const bool inOutlook = m_facts.running.connected.value_or(false);
    for (const UsbBase& base : *m_facts.bases) {
      if (!base.isFree && !inOutlook) Add(FindingKind::BaseInUse, {base.description});
    }
  }

  void LookAtSettings() {
    const SettingsFile& settings = m_facts.settings;
    if (settings.exists && !settings.readable)
      Add(FindingKind::SettingsUnreadable, {settings.path});
    if (!settings.writable) Add(FindingKind::SettingsReadOnly, {settings.path});
    if (settings.asideCopies > 0) {
      Add(FindingKind::SettingsAside, {Number(static_cast<uint64_t>(settings.asideCopies))});
    }
  }

  void LookAtRunningOutlook() {
    const RunningOutlook& running = m_facts.running;
    if (!running.answers) return;
    if (!running.connected) {
      Add(FindingKind::NotAmongAddIns);
    } else if (!*running.connected) {
      Add(FindingKind::NotConnected);
    }
  }

  // Uses the median of the last five sessions, as Outlook does.
  void LookAtTimes() {
    constexpr size_t kSessions = 5;
    const struct {
      std::optional<uint32_t> SessionTimes::*time;
      uint32_t limit;
      uint64_t number;
    } phases[] = {{&SessionTimes::start, kStartLimit, 0},
                  {&SessionTimes::folderSwitch, kFolderSwitchLimit, 1},
                  {&SessionTimes::shutdown, kShutdownLimit, 2}};
    const std::vector<SessionTimes> newestFirst(m_facts.sessions.rbegin(), m_facts.sessions.rend());
    for (const auto& phase : phases) {
      std::vector<uint32_t> times;
      for (const SessionTimes& session : newestFirst) {
        const std::optional<uint32_t>& time = session.*phase.time;
        if (time && times.size() < kSessions) times.push_back(*time);
      }
      if (times.size() < kSessions) continue;
      std::ranges::sort(times);
      const uint32_t median = times[kSessions / 2];
      if (median < phase.limit) continue;
      Add(FindingKind::Slow, {Number(median), Number(phase.limit), Number(phase.number)});
    }
  }

  const Facts& m_facts;
  std::vector<Finding> m_findings;
};

}  // namespace

bool IsRepairable(FindingKind kind) {
  switch (kind) {
    case FindingKind::SwitchedOff:
    case FindingKind::NotAtStart:
    case FindingKind::Disabled:
    case FindingKind::Crashed:
      return true;
    default:
      return false;
  }
}

bool IsNote(FindingKind kind) {
  return kind == FindingKind::Leftover || kind == FindingKind::Kept ||
         kind == FindingKind::SettingsAside || kind == FindingKind::Slow;
}

std::vector<Finding> Examine(const Facts& facts) {
  return CExamination(facts).Run();
}

}  // namespace quor::doctor
