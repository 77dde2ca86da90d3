#ifndef QUOR_MODULE_REGISTRATION_SCRIPT_H
#define QUOR_MODULE_REGISTRATION_SCRIPT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quor {

// What registration writes is kept as scripts among the DLL's resources. A script reads like the
// part of the registry that it makes:
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
// Names and texts are ASCII; what holds blanks, braces or other marks stands in apostrophes, an
// apostrophe itself as two. Every name is one key. %MODULE% in a text is the module's full path.

enum class RegistryRoot { Classes, LocalMachine };

struct RegistryValue {
  std::wstring name;  // empty: the key's default value
  std::variant<std::wstring, uint32_t> data;

  bool operator==(const RegistryValue&) const = default;
};

// What unregistration does with a key. Its values written by registration go in any case.
enum class KeyRemoval {
  WhenEmpty,     // plain keys: removed unless others have put something there
  Never,         // NoRemove: shared with others
  WithContents,  // ForceRemove: removed with all below it, at registration too, before it is made
                 // anew
};

struct RegistryKey {
  RegistryRoot root = RegistryRoot::Classes;
  std::wstring path;
  KeyRemoval removal = KeyRemoval::WhenEmpty;
  std::vector<RegistryValue> values;

  bool operator==(const RegistryKey&) const = default;
};

// Every key a script names, parents before their children.
using RegistrationScript = std::vector<RegistryKey>;

// Nothing when the text is no script. Any text is safe to give.
std::optional<RegistrationScript> ParseRegistrationScript(std::string_view text,
                                                          std::wstring_view modulePath);

}  // namespace quor

#endif
