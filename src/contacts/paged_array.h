#ifndef QUOR_CONTACTS_PAGED_ARRAY_H
#define QUOR_CONTACTS_PAGED_ARRAY_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace quor {

// Grows by a page at a time: nothing is copied, and next to nothing lies unused, where a vector
// would leave up to a half. The index lives in Outlook's process for as long as Outlook runs.
template <class T>
class CPagedArray {
 public:
  // The index of the first of `count` new elements, value-initialised, which lie one behind the
  // other. Elements in between may be left out for that.
  uint32_t Add(size_t count) {
    if (m_size % kPageSize == 0 || m_size % kPageSize + count > kPageSize) AddPages(count);
    const auto first = static_cast<uint32_t>(m_size);
    m_size += count;
    return first;
  }

  size_t Size() const noexcept { return m_size; }
  T& operator[](size_t index) noexcept { return m_pages[index / kPageSize][index % kPageSize]; }
  const T& operator[](size_t index) const noexcept {
    return m_pages[index / kPageSize][index % kPageSize];
  }

 private:
  static constexpr size_t kPageSize = std::bit_floor(4096 / sizeof(T));

  // More than one only for what is larger than a page.
  void AddPages(size_t count) {
    const size_t pages = (count + kPageSize - 1) / kPageSize;
    m_blocks.push_back(std::make_unique<T[]>(pages * kPageSize));
    m_size = m_pages.size() * kPageSize;
    for (size_t page = 0; page < pages; ++page) {
      m_pages.push_back(m_blocks.back().get() + page * kPageSize);
    }
  }

  std::vector<std::unique_ptr<T[]>> m_blocks;
  std::vector<T*> m_pages;
  size_t m_size = 0;
};

}  // namespace quor

#endif
