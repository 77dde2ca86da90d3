#include "contacts/entry_ids.h"

#include <algorithm>
#include <functional>

namespace quor {
namespace {

uint32_t HashOf(std::string_view text) noexcept {
  return static_cast<uint32_t>(std::hash<std::string_view>()(text));
}

}  // namespace

// Folder 0 means no shared prefix: the entry ID is short or its folder is unknown.
CEntryIds::Parts CEntryIds::Split(std::string_view entryId) const {
  if (entryId.size() <= kOwnPart) return {0, entryId};
  const std::string_view prefix = entryId.substr(0, entryId.size() - kOwnPart);
  const auto folder = std::find(m_folders.begin() + 1, m_folders.end(), prefix);
  if (folder == m_folders.end()) return {0, entryId};
  return {static_cast<uint16_t>(folder - m_folders.begin()), entryId.substr(prefix.size())};
}

size_t CEntryIds::OwnLength(uint32_t owner) const noexcept {
  const bool isLast = owner + 1 == m_owners.size();
  return (isLast ? m_texts.size() : m_owners[owner + 1].text) - m_owners[owner].text;
}

bool CEntryIds::IsOwner(uint32_t owner, const Parts& parts) const {
  const Owner& candidate = m_owners[owner];
  return candidate.folder == parts.folder && OwnLength(owner) == parts.own.size() &&
         std::equal(parts.own.begin(), parts.own.end(), m_texts.begin() + candidate.text);
}

std::optional<uint32_t> CEntryIds::Find(std::string_view entryId) const {
  const Parts parts = Split(entryId);
  const uint32_t owner =
      m_places.Find(HashOf(parts.own), [&](uint32_t place) { return IsOwner(place, parts); });
  return owner == kNoPlace ? std::nullopt : std::optional(owner);
}

uint32_t CEntryIds::Enter(std::string_view entryId) {
  Parts parts = Split(entryId);
  if (parts.own.size() > kOwnPart && m_folders.size() < kMaxFolders) {
    m_folders.emplace_back(entryId.substr(0, entryId.size() - kOwnPart));
    parts = Split(entryId);
  }
  const uint32_t hash = HashOf(parts.own);
  uint32_t& owner = m_places.Slot(
      hash, [&](uint32_t place) { return IsOwner(place, parts); },
      [this](uint32_t place) { return m_owners[place].hash; });
  if (owner == kNoPlace) {
    owner = static_cast<uint32_t>(m_owners.size());
    m_owners.push_back(
        {static_cast<uint32_t>(m_texts.size()), parts.folder, false, hash, kNoPlace});
    m_texts.insert(m_texts.end(), parts.own.begin(), parts.own.end());
  }
  return owner;
}

void CEntryIds::Read(uint32_t owner, std::string& entryId) const {
  const Owner& found = m_owners[owner];
  const std::string& folder = m_folders[found.folder];
  const size_t length = OwnLength(owner);
  entryId.resize(folder.size() + length);
  std::copy_n(m_texts.begin() + found.text, length,
              std::copy(folder.begin(), folder.end(), entryId.begin()));
}

void CEntryIds::AppendKeys(uint32_t owner, const CNumberKeys& keys) {
  m_owners[owner].isGone = false;
  uint32_t& block = m_owners[owner].keys;
  if (block == kNoPlace) block = m_keys.NewBlock();
  m_keys.Insert(block, m_keys.Items(block).size(), keys);
}

std::vector<CNumberKeys> CEntryIds::TakeKeys(uint32_t owner) {
  const uint32_t block = m_owners[owner].keys;
  if (block == kNoPlace) return {};
  const std::span<CNumberKeys> keys = m_keys.Items(block);
  std::vector<CNumberKeys> taken(keys.begin(), keys.end());
  std::fill(keys.begin(), keys.end(), CNumberKeys());
  return taken;
}

}  // namespace quor
