#ifndef QUOR_MODULE_REGISTRATION_SCRIPT_H
#define QUOR_MODULE_REGISTRATION_SCRIPT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quor {

// The DLL's resources contain scripts with the keys and values to register. A script looks like the
// part of the registry that it creates:
//
//   ; a comment, to the end of the line
//   HKCR                                    ; or HKLM
//   {
//     Some.Name = s 'Text'                  ; a key and its default value
//     {
//       CLSID = s '{...}'                   ; a key below it
//     }
//     NoRemove CLSID
//     {
//       ForceRemove '{...}'
//       {
//         InprocServer32 = s '%MODULE%'
//         {
//           val ThreadingModel = s 'Apartment'     ; a named value
//           val Answer = d 42                      ; d: DWORD, decimal
//         }
//       }
//     }
//   }
//
// Names and texts are ASCII. A text with blanks, braces or other punctuation is put in apostrophes,
// an apostrophe inside it written twice. Every name is one key. %MODULE% in a text stands for the
// module's full path.

enum class RegistryRoot { Classes, LocalMachine };

struct RegistryValue {
  std::wstring name;  // empty: the key's default value
  std::variant<std::wstring, uint32_t> data;

  bool operator==(const RegistryValue&) const = default;
};

// What unregistration does with a key. It always removes the values that registration wrote.
enum class KeyRemoval {
  WhenEmpty,     // plain keys: removed unless they hold entries of others
  Never,         // NoRemove: shared with others
  WithContents,  // ForceRemove: removed with its contents, also before registration creates it
};

struct RegistryKey {
  RegistryRoot root = RegistryRoot::Classes;
  std::wstring path;
  KeyRemoval removal = KeyRemoval::WhenEmpty;
  std::vector<RegistryValue> values;

  bool operator==(const RegistryKey&) const = default;
};

// All keys of a script, parents before their children.
using RegistrationScript = std::vector<RegistryKey>;

// Returns nothing if the text is not a valid script. Any text is accepted.
std::optional<RegistrationScript> ParseRegistrationScript(std::string_view text,
                                                          std::wstring_view modulePath);

}  // namespace quor

#endif
