#ifndef QUOR_CONTACTS_PLACE_TABLE_H
#define QUOR_CONTACTS_PLACE_TABLE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quor {

constexpr uint32_t kNoPlace = 0xFFFFFFFF;

// A hash table with linear probing. Its values are places in the caller's pool. Nothing is ever
// removed.
class CPlaceTable {
 public:
  // The place that `isWanted(place)` accepts, or kNoPlace.
  template <class IsWanted>
  uint32_t Find(uint32_t hash, IsWanted isWanted) const {
    return m_slots.empty() ? kNoPlace : m_slots[Probe(hash, isWanted)];
  }
  // The slot of the wanted place, which the caller may replace by another of the same hash. Without
  // one, a new slot with kNoPlace, which the caller must fill before the next call. `hashOf(place)`
  // gives the hash of any place.
  template <class IsWanted, class HashOf>
  uint32_t& Slot(uint32_t hash, IsWanted isWanted, HashOf hashOf) {
    if (m_used * 4 >= m_slots.size() * 3) Grow(hashOf);
    uint32_t& slot = m_slots[Probe(hash, isWanted)];
    if (slot == kNoPlace) ++m_used;
    return slot;
  }

 private:
  template <class IsWanted>
  size_t Probe(uint32_t hash, IsWanted isWanted) const {
    size_t slot = hash & (m_slots.size() - 1);
    while (m_slots[slot] != kNoPlace && !isWanted(m_slots[slot])) {
      slot = (slot + 1) & (m_slots.size() - 1);
    }
    return slot;
  }
  template <class HashOf>
  void Grow(HashOf hashOf) {
    std::vector<uint32_t> places(m_slots.empty() ? 64 : 2 * m_slots.size(), kNoPlace);
    places.swap(m_slots);
    for (const uint32_t place : places) {
      if (place != kNoPlace) m_slots[Probe(hashOf(place), [](uint32_t) { return false; })] = place;
    }
  }

  std::vector<uint32_t> m_slots;  // size is a power of two
  size_t m_used = 0;
};

}  // namespace quor

#endif
