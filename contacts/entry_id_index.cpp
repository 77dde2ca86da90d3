#include "contacts/entry_id_index.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "contacts/hex_packing.h"

namespace quor {
namespace {

constexpr size_t kFirstPlaces = 16;
constexpr size_t kWord = sizeof(uint32_t);
constexpr uint32_t kFormBits = 2;
constexpr uint32_t kIdMask = (1U << kEntryIdBits) - 1;

size_t StoredSize(uint32_t lengthAndForm) noexcept {
  const size_t length = lengthAndForm >> kFormBits;
  const bool isHex = (lengthAndForm & ((1U << kFormBits) - 1)) != 0;
  return isHex ? length / 2 : length;
}

uint32_t Tagged(EntryId id, uint32_t hash) noexcept {
  return id | (hash << kEntryIdBits);
}

}  // namespace

EntryId CEntryIdIndex::Enter(std::string_view text) {
  if (m_lastId == kNone || text != m_lastText) {
    m_lastId = kNone;
    m_lastText = text;
    m_lastId = FindOrAdd(text);
  }
  return m_lastId;
}

std::optional<EntryId> CEntryIdIndex::Find(std::string_view text) const {
  if (m_places.empty()) return std::nullopt;
  const Packed packed = Pack(text);
  const uint32_t found = m_places[FindPlace(packed, HashOf(packed))];
  if (found == kNone) return std::nullopt;
  return found & kIdMask;
}

void CEntryIdIndex::Read(EntryId id, std::string& text) const {
  const Packed stored = Stored(id);
  const size_t length = stored.lengthAndForm >> kFormBits;
  if (text.size() != length) text.resize(length);
  switch (static_cast<Form>(stored.lengthAndForm & ((1U << kFormBits) - 1))) {
    case Form::UpperHex:
      UnpackHex(stored.bytes, HexCase::Upper, text);
      break;
    case Form::LowerHex:
      UnpackHex(stored.bytes, HexCase::Lower, text);
      break;
    case Form::Plain:
      std::copy(stored.bytes.begin(), stored.bytes.end(), text.begin());
      break;
  }
}

EntryId CEntryIdIndex::FindOrAdd(std::string_view text) {
  const Packed packed = Pack(text);
  const uint32_t hash = HashOf(packed);
  const size_t place = FindPlace(packed, hash);
  if (place < m_places.size() && m_places[place] != kNone) return m_places[place] & kIdMask;

  if ((m_count + 1) * 4 > m_places.size() * 3) Grow();
  const size_t words = kHeaderWords + (packed.bytes.size() + kWord - 1) / kWord;
  const EntryId id = m_words.Add(words);
  if (id >= kIdMask) throw std::bad_alloc();
  m_words[id] = kNone;
  m_words[id + 1] = packed.lengthAndForm;
  if (!packed.bytes.empty()) {
    std::memcpy(&m_words[id + kHeaderWords], packed.bytes.data(), packed.bytes.size());
  }
  ++m_count;
  Place(id, hash);
  return id;
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

// Equal texts are packed equally: hexadecimal digits without a letter always count as upper case.
CEntryIdIndex::Packed CEntryIdIndex::Pack(std::string_view text) const {
  const auto length = static_cast<uint32_t>(text.size());
  m_packed.resize(text.size() / 2);
  for (const Form form : {Form::UpperHex, Form::LowerHex}) {
    const HexCase hexCase = form == Form::UpperHex ? HexCase::Upper : HexCase::Lower;
    if (!text.empty() && PackHex(text, hexCase, m_packed)) {
      return {length << kFormBits | static_cast<uint32_t>(form), m_packed};
    }
  }
  m_packed.assign(text.begin(), text.end());
  return {length << kFormBits, m_packed};
}

CEntryIdIndex::Packed CEntryIdIndex::Stored(EntryId id) const noexcept {
  const uint32_t lengthAndForm = m_words[id + 1];
  const size_t size = StoredSize(lengthAndForm);
  if (size == 0) return {lengthAndForm, {}};
  return {lengthAndForm, {reinterpret_cast<const uint8_t*>(&m_words[id + kHeaderWords]), size}};
}

uint32_t CEntryIdIndex::HashOf(const Packed& packed) noexcept {
  uint64_t hash = packed.lengthAndForm;
  const auto mix = [&hash](uint64_t block) {
    hash = (hash ^ block) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32;
  };
  const uint8_t* const bytes = packed.bytes.data();
  const size_t size = packed.bytes.size();
  size_t i = 0;
  for (uint64_t block = 0; i + sizeof(block) <= size; i += sizeof(block)) {
    std::memcpy(&block, bytes + i, sizeof(block));
    mix(block);
  }
  for (; i < size; ++i) {
    mix(bytes[i]);
  }
  return static_cast<uint32_t>(hash);
}

// Where the entry ID is, or the vacant place at which the search for it ends.
size_t CEntryIdIndex::FindPlace(const Packed& packed, uint32_t hash) const noexcept {
  if (m_places.empty()) return 0;
  size_t place = Home(hash);
  for (; m_places[place] != kNone; place = place + 1 == m_places.size() ? 0 : place + 1) {
    const EntryId id = m_places[place] & kIdMask;
    if (m_places[place] != Tagged(id, hash)) continue;
    const Packed stored = Stored(id);
    if (stored.lengthAndForm == packed.lengthAndForm &&
        std::equal(packed.bytes.begin(), packed.bytes.end(), stored.bytes.begin())) {
      break;
    }
  }
  return place;
}

size_t CEntryIdIndex::Home(uint32_t hash) const noexcept {
  return static_cast<size_t>((static_cast<uint64_t>(hash) * m_places.size()) >> 32);
}

void CEntryIdIndex::Place(EntryId id, uint32_t hash) noexcept {
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
    if (tagged != kNone) {
      const EntryId id = tagged & kIdMask;
      Place(id, HashOf(Stored(id)));
    }
  }
}

}  // namespace quor
