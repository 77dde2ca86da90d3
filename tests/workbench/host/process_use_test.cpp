#include "workbench/host/process_use.h"

#include <windows.h>

#include <cstring>

#include <gtest/gtest.h>

namespace quor::workbench {
namespace {

TEST(Heaps, ADamagedOneIsFound) {
  EXPECT_TRUE(AreHeapsSound());
  const HANDLE heap = HeapCreate(0, 0, 0);
  constexpr size_t kSize = 40;
  auto* block = static_cast<char*>(HeapAlloc(heap, 0, kSize));
  HeapAlloc(heap, 0, kSize);
  std::memset(block + kSize, 0x5A, kSize);  // up to the next block and over its header
  EXPECT_FALSE(AreHeapsSound());
  HeapDestroy(heap);
  EXPECT_TRUE(AreHeapsSound());
}

}  // namespace
}  // namespace quor::workbench
