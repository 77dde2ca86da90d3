#ifndef QUOR_CONTACTS_ENTRY_ID_INDEX_H
#define QUOR_CONTACTS_ENTRY_ID_INDEX_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/dial_tail.h"
#include "contacts/paged_array.h"
#include "contacts/record_lists.h"

namespace quor {

// Keys under which records of one contact were added in one go: the tail's own last digit + 4
// symbols for each digit from lowDigit to that of the tail's length. A key that is not made of dial
// characters is named by the place of its text instead.
struct KeyRun {
  DialTail tail;
  int lowDigit = 0;
  std::optional<EntryId> otherKey;
};

// The entry IDs that the index has seen, each once, and with each the keys added for it, in order.
// Entry IDs are compared byte by byte, upper and lower case apart. An entry ID once entered stays:
// the tables keep records of most contacts that go.
//
// The entry IDs of one store, and all the more of one folder, begin alike, so a beginning is kept
// once and each entry ID's own ending with it; hexadecimal digits of one case, which they usually
// are, take half their length.
class CEntryIdIndex {
 public:
  EntryId Enter(std::string_view text);
  std::optional<EntryId> Find(std::string_view text) const;
  void Read(EntryId id, std::string& text) const;

  void AddKeys(EntryId id, const KeyRun& keys);
  // Takes out the oldest of the entry ID's runs; nothing if it has none.
  std::optional<KeyRun> TakeFirstKeys(EntryId id) noexcept;

 private:
  // In m_words: the ring of the key runs by its last one, the text's hash and shape, its ending.
  static constexpr uint32_t kHeaderWords = 3;
  enum class Form : uint8_t { Plain, UpperHex, LowerHex };
  // What a text is made of, in one word: its ending's form and length and its beginning.
  struct Shape {
    uint32_t form : 2;
    uint32_t beginning : 5;
    uint32_t length : 25;

    size_t StoredSize() const noexcept {
      return static_cast<Form>(form) == Form::Plain ? length : length / 2;
    }
  };
  // The symbols 0-47, the tail's length 48-51 and the low digit 52-55, in halves.
  struct StoredKeys {
    uint32_t low;
    uint32_t high;
    uint32_t next;
  };

  static constexpr uint32_t kNone = UINT32_MAX;
  static constexpr unsigned kOtherKeyLength = 15;

  EntryId FindOrAdd(std::string_view text);
  EntryId Add(std::string_view text, uint32_t hash);
  uint32_t BeginningOf(std::string_view text);
  Form Pack(std::string_view ending);
  Shape ShapeOf(EntryId id) const noexcept { return std::bit_cast<Shape>(m_words[id + 2]); }
  std::span<const uint8_t> StoredEnding(EntryId id) const noexcept {
    return {reinterpret_cast<const uint8_t*>(&m_words[id] + kHeaderWords),
            ShapeOf(id).StoredSize()};
  }
  bool Holds(EntryId id, std::string_view text) const;
  static uint32_t HashOf(std::string_view text) noexcept;
  size_t FindPlace(std::string_view text, uint32_t hash) const;
  size_t Home(uint32_t hash) const noexcept;
  void Place(EntryId id) noexcept;
  void Grow();

  CPagedArray<uint32_t> m_words;
  std::vector<uint32_t> m_places;  // entry ID and four bits of its hash; kNone if vacant
  size_t m_count = 0;
  CPagedArray<StoredKeys> m_keys;
  uint32_t m_freeKeys = kNone;
  std::vector<std::string> m_beginnings{std::string()};
  uint32_t m_usualBeginning = 0;          // of those that were entered last
  mutable std::vector<uint8_t> m_packed;  // the ending that is being looked for
  std::string m_lastText;  // what was entered last: a contact's numbers come one after the other
  EntryId m_lastId = kNone;
};

}  // namespace quor

#endif
