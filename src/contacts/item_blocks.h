#ifndef QUOR_CONTACTS_ITEM_BLOCKS_H
#define QUOR_CONTACTS_ITEM_BLOCKS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quor {

// Many short sequences in one pool. Each is a block of 2^n items; the unused ones, which are
// IsEmpty(), come last. The block's handle changes when it grows.
template <class Item>
class CItemBlocks {
 public:
  uint32_t NewBlock() { return Allocate(0); }
  size_t Size() const noexcept { return m_items.size(); }

  // The used items; valid until the next insertion.
  std::span<Item> Items(uint32_t block) noexcept { return {All(block).data(), Used(block)}; }
  std::span<const Item> Items(uint32_t block) const noexcept {
    return {&m_items[block >> kOrderBits], Used(block)};
  }
  // The first item, even if it is empty.
  const Item& Front(uint32_t block) const noexcept { return m_items[block >> kOrderBits]; }

  void Insert(uint32_t& block, size_t index, const Item& item) {
    const size_t used = Used(block);
    if (used == All(block).size()) Grow(block);
    const std::span<Item> items = All(block);
    items[used] = item;
    std::rotate(items.begin() + Offset(index), items.begin() + Offset(used),
                items.begin() + Offset(used + 1));
  }
  // Moves an item that has become empty behind the block's `used` items, itself included.
  void Release(uint32_t block, size_t index, size_t used) noexcept {
    const std::span<Item> items = All(block);
    std::rotate(items.begin() + Offset(index), items.begin() + Offset(index + 1),
                items.begin() + Offset(used));
  }

 private:
  static constexpr unsigned kOrderBits = 5;  // a handle holds the block's place and order

  static std::ptrdiff_t Offset(size_t index) noexcept { return static_cast<std::ptrdiff_t>(index); }

  std::span<Item> All(uint32_t block) noexcept {
    return {&m_items[block >> kOrderBits], size_t{1} << Order(block)};
  }
  static unsigned Order(uint32_t block) noexcept { return block & ((1U << kOrderBits) - 1); }

  size_t Used(uint32_t block) const noexcept {
    const Item* const first = &m_items[block >> kOrderBits];
    const Item* const end = first + (size_t{1} << Order(block));
    const auto isUsed = [](const Item& item) { return !item.IsEmpty(); };
    return static_cast<size_t>(std::partition_point(first, end, isUsed) - first);
  }

  uint32_t Allocate(unsigned order) {
    std::vector<uint32_t>& free = m_free[order];
    if (!free.empty()) {
      const uint32_t block = free.back();
      free.pop_back();
      return block;
    }
    const size_t place = m_items.size();
    const size_t size = place + (size_t{1} << order);
    if (size > m_items.capacity()) m_items.reserve(size + size / 8);  // do not double
    m_items.resize(size);
    return static_cast<uint32_t>(place) << kOrderBits | order;
  }

  void Grow(uint32_t& block) {
    const uint32_t larger = Allocate(Order(block) + 1);
    const std::span<Item> items = All(block);
    std::copy(items.begin(), items.end(), All(larger).begin());
    std::fill(items.begin(), items.end(), Item());
    m_free[Order(block)].push_back(block);
    block = larger;
  }

  std::vector<Item> m_items;
  std::array<std::vector<uint32_t>, 1U << kOrderBits> m_free;
};

}  // namespace quor

#endif
