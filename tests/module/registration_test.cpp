#include "module/registration.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "text/ansi.h"

namespace quor {
namespace {

using testing::HasSubstr;

// A registry in memory that fails at a given call.
class CMemoryRegistry final : public IRegistry {
 public:
  void FailAt(int call) { m_callsUntilFailure = call; }
  void Add(const std::wstring& path) { m_keys[path]; }

  // All keys in order, with the names of their values.
  std::string Dump() const {
    std::wstring dump;
    for (const auto& [path, values] : m_keys) {
      dump += path + L"\n";
      for (const std::wstring& name : values)
        dump += L"  " + name + L"\n";
    }
    return AnsiFromWide(dump);
  }

  uint32_t CreateKey(const RegistryKey& key) override {
    if (Fails()) return kDenied;
    const std::wstring path = Path(key);
    for (size_t at = 0; at != std::wstring::npos;) {
      at = path.find(L'\\', at + 1);
      m_keys[path.substr(0, at)];
    }
    return 0;
  }
  uint32_t SetValue(const RegistryKey& key, const RegistryValue& value) override {
    if (Fails()) return kDenied;
    m_keys.at(Path(key)).insert(value.name);
    return 0;
  }
  uint32_t RemoveValue(const RegistryKey& key, const RegistryValue& value) override {
    if (Fails()) return kDenied;
    const auto found = m_keys.find(Path(key));
    if (found != m_keys.end()) found->second.erase(value.name);
    return 0;
  }
  uint32_t RemoveKeyWhenEmpty(const RegistryKey& key) override {
    if (Fails()) return kDenied;
    const auto found = m_keys.find(Path(key));
    if (found == m_keys.end() || !found->second.empty()) return 0;
    const auto below = m_keys.lower_bound(Path(key) + L"\\");
    if (below == m_keys.end() || !below->first.starts_with(Path(key) + L"\\")) m_keys.erase(found);
    return 0;
  }
  uint32_t RemoveKeyWithContents(const RegistryKey& key) override {
    if (Fails()) return kDenied;
    std::erase_if(m_keys, [path = Path(key)](const auto& entry) {
      return entry.first == path || entry.first.starts_with(path + L"\\");
    });
    return 0;
  }

  bool IsInCommon(const RegistryKey&) const override { return false; }
  bool IsInOtherBitness(const RegistryKey&) const override { return false; }

  static constexpr uint32_t kDenied = 5;

 private:
  static std::wstring Path(const RegistryKey& key) {
    return (key.root == RegistryRoot::Classes ? L"HKCR\\" : L"HKLM\\") + key.path;
  }
  bool Fails() { return m_callsUntilFailure-- == 0; }

  std::map<std::wstring, std::set<std::wstring>> m_keys;
  int m_callsUntilFailure = -1;
};

RegistrationScript ReadShipped(const char* name) {
  std::ifstream file(std::string(QUOR_REGISTRATION_SCRIPTS) + name);
  std::stringstream text;
  text << file.rdbuf();
  return ParseRegistrationScript(text.str(), L"C:\\q.dll").value();
}

class CRegistrationTest : public testing::Test {
 protected:
  const RegistrationScript m_scripts[2] = {ReadShipped("addin.rgs"),
                                           ReadShipped("property_page.rgs")};
  CMemoryRegistry m_registry;
};

// registration_check.sh and registration.scn compare what is written with the expected entries; the
// former also registers both bitnesses.
constexpr char kSharedKeys[] = R"(HKCR
HKCR\CLSID
HKLM
HKLM\Software
HKLM\Software\Microsoft
HKLM\Software\Microsoft\Office
HKLM\Software\Microsoft\Office\Outlook
HKLM\Software\Microsoft\Office\Outlook\Addins
)";

TEST_F(CRegistrationTest, TakesAwayWhatItWroteAndNothingShared) {
  ASSERT_EQ(ApplyScripts(m_scripts, m_registry), 0u);
  EXPECT_THAT(m_registry.Dump(), HasSubstr("  LoadBehavior\n"));
  // Entries under our class, left by an older version or by others.
  m_registry.Add(L"HKCR\\CLSID\\{DA593EC2-67C4-4602-B30E-3FEC47C1C55A}\\Old\\Deep");
  m_registry.Add(L"HKCR\\QuorTelephoneToolbar.Addin\\Foreign");
  EXPECT_EQ(RevokeScripts(m_scripts, m_registry), 0u);
  std::string expected = kSharedKeys;
  expected.insert(expected.find("HKLM"),
                  "HKCR\\QuorTelephoneToolbar.Addin\nHKCR\\QuorTelephoneToolbar.Addin\\Foreign\n");
  EXPECT_EQ(m_registry.Dump(), expected);
}

TEST_F(CRegistrationTest, AFailureAnywhereLeavesNothing) {
  int failures = 0;
  for (int call = 0;; ++call) {
    CMemoryRegistry registry;
    registry.FailAt(call);
    const uint32_t error = ApplyScripts(m_scripts, registry);
    if (error == 0) break;
    ++failures;
    EXPECT_EQ(error, CMemoryRegistry::kDenied);
    EXPECT_TRUE(std::string(kSharedKeys).starts_with(registry.Dump())) << registry.Dump();
  }
  EXPECT_GT(failures, 50);
}

TEST_F(CRegistrationTest, UnregistrationGoesOnPastAFailure) {
  ApplyScripts(m_scripts, m_registry);
  m_registry.FailAt(0);
  EXPECT_EQ(RevokeScripts(m_scripts, m_registry), CMemoryRegistry::kDenied);
  EXPECT_EQ(m_registry.Dump().find("PropPage"), std::string::npos);
}

}  // namespace
}  // namespace quor
