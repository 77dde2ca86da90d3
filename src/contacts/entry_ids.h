#ifndef QUOR_CONTACTS_ENTRY_IDS_H
#define QUOR_CONTACTS_ENTRY_IDS_H

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/item_blocks.h"
#include "contacts/number_keys.h"
#include "contacts/place_table.h"

namespace quor {

// Stores each contact's entry ID once, with the keys that were added for the contact and must be
// removed with it.
//
// The part of an entry ID before its last 48 characters names the folder and is shared by its
// contacts. Exchange's entry IDs have 140 characters, those of a personal store 48.
class CEntryIds {
 public:
  // Owners are numbered from 0 and never removed.
  std::optional<uint32_t> Find(std::string_view entryId) const;
  uint32_t Enter(std::string_view entryId);
  void Read(uint32_t owner, std::string& entryId) const;

  void AppendKeys(uint32_t owner, const CNumberKeys& keys);
  std::vector<CNumberKeys> TakeKeys(uint32_t owner);

  // Whether the contact was deleted since its last key was added.
  bool IsGone(uint32_t owner) const noexcept { return m_owners[owner].isGone; }
  void MarkGone(uint32_t owner) noexcept { m_owners[owner].isGone = true; }

 private:
  static constexpr size_t kOwnPart = 48;
  static constexpr size_t kMaxFolders = 64;  // entry IDs of further folders are stored whole

  struct Owner {
    uint32_t text;  // start of its own part, which ends where the next owner's begins
    uint16_t folder;
    bool isGone;
    uint32_t hash;
    uint32_t keys;
  };
  struct Parts {
    uint16_t folder;
    std::string_view own;
  };

  size_t OwnLength(uint32_t owner) const noexcept;
  Parts Split(std::string_view entryId) const;
  bool IsOwner(uint32_t owner, const Parts& parts) const;

  std::vector<std::string> m_folders{std::string()};
  std::deque<char> m_texts;
  std::deque<Owner> m_owners;
  CPlaceTable m_places;
  CItemBlocks<CNumberKeys> m_keys;
};

}  // namespace quor

#endif
