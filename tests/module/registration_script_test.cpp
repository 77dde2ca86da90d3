#include "module/registration_script.h"

#include <gmock/gmock.h>

namespace quor {
namespace {

constexpr wchar_t kPath[] = L"C:\\Ren\u00e9's {100%} =Add-ins=\\%MODULE%.dll";

auto Parse(std::string_view text) {
  return ParseRegistrationScript(text, kPath);
}

TEST(ParseRegistrationScript, GivesKeysParentsFirst) {
  const auto script = Parse(R"(
    ; a comment { = ' }
    HKCR
    {
      A.1 = s 'It''s; {x}'   ; a comment
      {
        val Path = s '"%MODULE%", %MODULE% %MODUL'
        val 'A number' = d 4294967295
        NoRemove '{B}' { ForceRemove C }
      }
      D
    }
    HKLM{E=d 0})");
  ASSERT_TRUE(script);
  const std::wstring path = kPath;
  EXPECT_THAT(
      *script,
      testing::ElementsAre(
          RegistryKey{RegistryRoot::Classes,
                      L"A.1",
                      KeyRemoval::WhenEmpty,
                      {{L"", L"It's; {x}"},
                       {L"Path", L"\"" + path + L"\", " + path + L" %MODUL"},
                       {L"A number", 4294967295u}}},
          RegistryKey{RegistryRoot::Classes, L"A.1\\{B}", KeyRemoval::Never, {}},
          RegistryKey{RegistryRoot::Classes, L"A.1\\{B}\\C", KeyRemoval::WithContents, {}},
          RegistryKey{RegistryRoot::Classes, L"D", KeyRemoval::WhenEmpty, {}},
          RegistryKey{RegistryRoot::LocalMachine, L"E", KeyRemoval::WhenEmpty, {{L"", 0u}}}));
}

TEST(ParseRegistrationScript, RefusesWhatIsNoScript) {
  const auto nested = [](int depth) {
    std::string text = "HKCR {";
    for (int i = 0; i < depth; ++i)
      text += " k {";
    return text + std::string(static_cast<size_t>(depth) + 1, '}');
  };
  const auto named = [](size_t length) { return "HKCR { " + std::string(length, 'k') + " }"; };
  EXPECT_TRUE(Parse(""));
  EXPECT_TRUE(Parse("HKCR {}"));
  EXPECT_TRUE(Parse(nested(16)));
  EXPECT_TRUE(Parse(named(255)));
  const std::string refused[] = {
      "HKCU {}",
      "HKCR {",
      "HKCR {} }",
      "HKCR { k = s word }",
      "HKCR { k = s 'open }",
      "HKCR { k = x '1' }",
      "HKCR { k = d 4294967296 }",
      "HKCR { val v = s 'x' }",
      "HKCR { 'a\\b' }",
      "HKCR { NoRemove ForceRemove k }",
      std::string("HKCR { \0 }", 10),
      named(256),
      nested(17),
      std::string(70000, ' '),
  };
  for (const std::string& text : refused)
    EXPECT_FALSE(Parse(text)) << text.substr(0, 80);
}

}  // namespace
}  // namespace quor
