#include "contacts/entry_id_index.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "contacts/hex_packing.h"

namespace quor {
namespace {

constexpr size_t kFirstPlaces = 16;
constexpr size_t kWord = sizeof(uint32_t);
constexpr uint32_t kIdMask = (1U << kEntryIdBits) - 1;

// A beginning is worth its place from so many characters on, and there are at most so many.
constexpr size_t kShortestBeginning = 16;
constexpr uint32_t kMostBeginnings = 32;
constexpr uint32_t kLongestEnding = (1U << 25) - 1;
constexpr uint32_t kForms = 3;

uint32_t Tagged(EntryId id, uint32_t hash) noexcept {
  return id | (hash << kEntryIdBits);
}

// An even number of characters: half a byte is no good beginning.
std::string_view SharedBeginning(std::string_view left, std::string_view right) {
  const size_t length = std::min(left.size(), right.size());
  const auto parted =
      std::mismatch(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(length), right.begin())
          .first;
  return left.substr(0, static_cast<size_t>(parted - left.begin()) & ~size_t{1});
}

}  // namespace

EntryId CEntryIdIndex::Enter(std::string_view text) {
  if (m_lastId == kNone || text != m_lastText) {
    const EntryId id = FindOrAdd(text);
    m_lastText = text;
    m_lastId = id;
  }
  return m_lastId;
}

std::optional<EntryId> CEntryIdIndex::Find(std::string_view text) const {
  if (m_places.empty()) return std::nullopt;
  const uint32_t found = m_places[FindPlace(text, HashOf(text))];
  if (found == kNone) return std::nullopt;
  return found & kIdMask;
}

void CEntryIdIndex::Read(EntryId id, std::string& text) const {
  const Shape shape = ShapeOf(id);
  const std::string& beginning = m_beginnings[shape.beginning];
  const size_t length = beginning.size() + shape.length;
  if (text.size() != length) text.resize(length);
  std::memcpy(text.data(), beginning.data(), beginning.size());
  const std::span<const uint8_t> stored = StoredEnding(id);
  const std::span<char> ending(text.data() + beginning.size(), shape.length);
  switch (static_cast<Form>(shape.form)) {
    case Form::UpperHex:
      UnpackHex(stored, HexCase::Upper, ending);
      break;
    case Form::LowerHex:
      UnpackHex(stored, HexCase::Lower, ending);
      break;
    case Form::Plain:
      if (!stored.empty()) std::memcpy(ending.data(), stored.data(), stored.size());
      break;
  }
}

EntryId CEntryIdIndex::FindOrAdd(std::string_view text) {
  const uint32_t hash = HashOf(text);
  if (!m_places.empty()) {
    const uint32_t found = m_places[FindPlace(text, hash)];
    if (found != kNone) return found & kIdMask;
  }
  if ((m_count + 1) * 4 > m_places.size() * 3) Grow();
  const EntryId id = Add(text, hash);
  ++m_count;
  Place(id);
  return id;
}

EntryId CEntryIdIndex::Add(std::string_view text, uint32_t hash) {
  const uint32_t beginning = BeginningOf(text);
  const std::string_view ending = text.substr(m_beginnings[beginning].size());
  if (ending.size() > kLongestEnding) throw std::bad_alloc();
  const auto length = static_cast<uint32_t>(ending.size());
  const Shape shape{static_cast<uint32_t>(Pack(ending)) & kForms, beginning & (kMostBeginnings - 1),
                    length & kLongestEnding};
  const EntryId id = m_words.Add(kHeaderWords + (m_packed.size() + kWord - 1) / kWord);
  if (id >= kIdMask) throw std::bad_alloc();
  m_words[id] = kNone;
  m_words[id + 1] = hash;
  m_words[id + 2] = std::bit_cast<uint32_t>(shape);
  if (!m_packed.empty()) {
    std::memcpy(&m_words[id + kHeaderWords], m_packed.data(), m_packed.size());
  }
  return id;
}

// The usual one; a shorter one if the text shares but a part of that; otherwise another one that is
// known, or what the text has in common with the one entered before it.
uint32_t CEntryIdIndex::BeginningOf(std::string_view text) {
  const std::string_view usual = m_beginnings[m_usualBeginning];
  std::string_view shared = SharedBeginning(text, usual);
  if (m_usualBeginning != 0 && shared.size() == usual.size()) return m_usualBeginning;
  if (shared.size() < kShortestBeginning) {
    const auto known = std::find_if(m_beginnings.begin() + 1, m_beginnings.end(),
                                    [&](const auto& each) { return text.starts_with(each); });
    if (known != m_beginnings.end()) {
      return m_usualBeginning = static_cast<uint32_t>(known - m_beginnings.begin());
    }
    shared = SharedBeginning(text, m_lastText);
  }
  if (shared.size() < kShortestBeginning || m_beginnings.size() == kMostBeginnings) return 0;
  m_beginnings.emplace_back(shared);
  return m_usualBeginning = static_cast<uint32_t>(m_beginnings.size() - 1);
}

void CEntryIdIndex::AddKeys(EntryId id, const KeyRun& keys) {
  const uint64_t symbols = keys.otherKey ? *keys.otherKey : keys.tail.symbols;
  const uint32_t length = keys.otherKey ? kOtherKeyLength : keys.tail.length;
  const StoredKeys stored{static_cast<uint32_t>(symbols),
                          static_cast<uint32_t>(symbols >> 32) | length << 16 |
                              static_cast<uint32_t>(keys.lowDigit) << 20,
                          kNone};
  uint32_t place = m_freeKeys;
  if (place == kNone) {
    place = m_keys.Add(1);
  } else {
    m_freeKeys = m_keys[place].next;
  }
  m_keys[place] = stored;
  uint32_t& last = m_words[id];
  if (last == kNone) {
    m_keys[place].next = place;
  } else {
    m_keys[place].next = m_keys[last].next;
    m_keys[last].next = place;
  }
  last = place;
}

std::optional<KeyRun> CEntryIdIndex::TakeFirstKeys(EntryId id) noexcept {
  uint32_t& last = m_words[id];
  if (last == kNone) return std::nullopt;
  const uint32_t place = m_keys[last].next;
  const StoredKeys stored = m_keys[place];
  if (place == last) {
    last = kNone;
  } else {
    m_keys[last].next = stored.next;
  }
  m_keys[place].next = m_freeKeys;
  m_freeKeys = place;

  KeyRun keys;
  const unsigned length = stored.high >> 16 & 0xF;
  keys.lowDigit = static_cast<int>(stored.high >> 20);
  if (length == kOtherKeyLength) {
    keys.otherKey = stored.low;
  } else {
    keys.tail = {stored.low | static_cast<uint64_t>(stored.high & 0xFFFF) << 32, length};
  }
  return keys;
}

// Into m_packed.
CEntryIdIndex::Form CEntryIdIndex::Pack(std::string_view ending) {
  m_packed.resize(ending.size() / 2);
  if (PackHex(ending, HexCase::Upper, m_packed)) return Form::UpperHex;
  if (PackHex(ending, HexCase::Lower, m_packed)) return Form::LowerHex;
  m_packed.assign(ending.begin(), ending.end());
  return Form::Plain;
}

bool CEntryIdIndex::Holds(EntryId id, std::string_view text) const {
  const Shape shape = ShapeOf(id);
  const std::string& beginning = m_beginnings[shape.beginning];
  if (text.size() != beginning.size() + shape.length || !text.starts_with(beginning)) return false;
  const std::string_view ending = text.substr(beginning.size());
  const std::span<const uint8_t> stored = StoredEnding(id);
  if (static_cast<Form>(shape.form) == Form::Plain) {
    return std::equal(stored.begin(), stored.end(), ending.begin(),
                      [](uint8_t byte, char each) { return byte == static_cast<uint8_t>(each); });
  }
  const bool isUpper = static_cast<Form>(shape.form) == Form::UpperHex;
  m_packed.resize(stored.size());
  return PackHex(ending, isUpper ? HexCase::Upper : HexCase::Lower, m_packed) &&
         std::equal(stored.begin(), stored.end(), m_packed.begin());
}

uint32_t CEntryIdIndex::HashOf(std::string_view text) noexcept {
  uint64_t hash = text.size();
  const auto mix = [&hash](uint64_t block) {
    hash = (hash ^ block) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32;
  };
  const char* const bytes = text.data();
  const size_t size = text.size();
  size_t i = 0;
  for (uint64_t block = 0; i + sizeof(block) <= size; i += sizeof(block)) {
    std::memcpy(&block, bytes + i, sizeof(block));
    mix(block);
  }
  for (; i < size; ++i) {
    mix(static_cast<uint8_t>(bytes[i]));
  }
  return static_cast<uint32_t>(hash);
}

// Where the entry ID is, or the vacant place at which the search for it ends.
size_t CEntryIdIndex::FindPlace(std::string_view text, uint32_t hash) const {
  size_t place = Home(hash);
  for (; m_places[place] != kNone; place = place + 1 == m_places.size() ? 0 : place + 1) {
    const EntryId id = m_places[place] & kIdMask;
    if (m_places[place] == Tagged(id, hash) && Holds(id, text)) break;
  }
  return place;
}

size_t CEntryIdIndex::Home(uint32_t hash) const noexcept {
  return static_cast<size_t>((static_cast<uint64_t>(hash) * m_places.size()) >> 32);
}

void CEntryIdIndex::Place(EntryId id) noexcept {
  const uint32_t hash = m_words[id + 1];
  size_t place = Home(hash);
  while (m_places[place] != kNone) {
    place = place + 1 == m_places.size() ? 0 : place + 1;
  }
  m_places[place] = Tagged(id, hash);
}

void CEntryIdIndex::Grow() {
  std::vector<uint32_t> larger(std::max(kFirstPlaces, m_places.size() + m_places.size() / 2),
                               kNone);
  m_places.swap(larger);
  for (const uint32_t tagged : larger) {
    if (tagged != kNone) Place(tagged & kIdMask);
  }
}

}  // namespace quor
