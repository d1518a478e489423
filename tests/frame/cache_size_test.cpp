// The largest data cache: leaf 4, leaf 2 descriptors, failures, and the once-only measurement.

#include <gtest/gtest.h>

#include "core/cpu_state.h"
#include "qvimage/ippcore.h"
#include "support/playback_cpu.h"

namespace {

using qvtest::CpuidAnswer;
using qvtest::PlaybackProcessor;

// A leaf-4 record of a data (1), instruction (2) or unified (3) cache.
CpuidAnswer cacheLeaf(uint32_t type, uint32_t lineSize, uint32_t partitions, uint32_t ways, uint32_t sets) {
  return {type, (lineSize - 1) | ((partitions - 1) << 12) | ((ways - 1) << 22), sets - 1, 0};
}

TEST(CacheSize, NullPointer) { EXPECT_EQ(ippGetMaxCacheSizeB(nullptr), ippStsNullPtrErr); }

TEST(CacheSize, Leaf4KeepsTheLargestDataOrUnifiedCache) {
  PlaybackProcessor cpu("GenuineIntel", 11);
  cpu.answer(4, 0, cacheLeaf(1, 64, 1, 8, 64))        // 32 KiB data
      .answer(4, 1, cacheLeaf(2, 64, 1, 64, 1024))    // 4 MiB instruction: skipped
      .answer(4, 2, cacheLeaf(3, 64, 1, 16, 1024))    // 1 MiB unified
      .answer(4, 3, cacheLeaf(3, 64, 2, 12, 8192))    // 12 MiB unified
      .answer(4, 5, cacheLeaf(3, 64, 1, 64, 65536));  // after the type-0 end: never read
  int size = 0;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsNoErr);
  EXPECT_EQ(size, 64 * 2 * 12 * 8192);
}

TEST(CacheSize, Leaf4WithNothingGivesStatus37) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  int size = 5;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsUnknownCacheSize);
  EXPECT_EQ(size, 0);
}

TEST(CacheSize, AFailureIsRememberedWithoutASecondMeasurement) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  int size = 5;
  ASSERT_EQ(ippGetMaxCacheSizeB(&size), ippStsUnknownCacheSize);
  const int reads = cpu.reads();
  cpu.answer(4, 0, cacheLeaf(1, 64, 1, 8, 64));
  size = 5;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsUnknownCacheSize);
  EXPECT_EQ(size, 0);
  EXPECT_EQ(cpu.reads(), reads);
}

TEST(CacheSize, BelowLeaf2IsNotSupported) {
  PlaybackProcessor cpu("GenuineIntel", 1);
  int size = 5;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsNotSupportedCpu);
  EXPECT_EQ(size, 0);
}

TEST(CacheSize, AnotherVendorIsNotSupported) {
  PlaybackProcessor cpu("AuthenticAMD", 16);
  cpu.answer(4, 0, cacheLeaf(1, 64, 1, 8, 64));
  int size = 5;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsNotSupportedCpu);
  EXPECT_EQ(size, 0);
}

TEST(CacheSize, Leaf2DescriptorsBelowLeaf4) {
  PlaybackProcessor cpu("GenuineIntel", 3);
  // AL = 1; descriptors 0x2C (not in the table), 0x43 (512 KiB) in EAX, 0x49 (4 MiB) in EDX.
  cpu.answer(2, 0, {0x00432C01, 0, 0, 0x00000049});
  int size = 0;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsNoErr);
  EXPECT_EQ(size, 4194304);  // the table's order decides: the larger row comes first
}

TEST(CacheSize, Leaf2RegisterWithBit31IsEmpty) {
  PlaybackProcessor cpu("GenuineIntel", 3);
  cpu.answer(2, 0, {0x00000001, 0x80000049, 0, 0x00000022});
  int size = 0;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsNoErr);
  EXPECT_EQ(size, 524288);
}

TEST(CacheSize, Leaf2WithoutAKnownDescriptorGivesStatus37) {
  PlaybackProcessor cpu("GenuineIntel", 3);
  cpu.answer(2, 0, {0x00000001, 0, 0, 0x000000FF});
  int size = 5;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsUnknownCacheSize);
  EXPECT_EQ(size, 0);
}

TEST(CacheSize, Leaf2AlOtherThanOneGivesStatus37) {
  PlaybackProcessor cpu("GenuineIntel", 3);
  cpu.answer(2, 0, {0x00004902, 0, 0, 0});
  int size = 5;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsUnknownCacheSize);
  EXPECT_EQ(ownGetCacheSize(), -1);
}

TEST(CacheSize, AlIsNeverComparedAsADescriptor) {
  PlaybackProcessor cpu("GenuineIntel", 3);
  // 0x01 in AL; nothing else. Row keys are never 1, but AL must not be searched anyway: put a
  // key into the byte that AL would be if the search started at index 0.
  cpu.answer(2, 0, {0x00000001, 0, 0, 0});
  EXPECT_EQ(ownGetCacheSize(), -1);
}

TEST(CacheSize, TableHas55RowsLargestFirstAndEndsInZero) {
  EXPECT_EQ(qv::core::tableCache[qv::core::kTableCacheRows].key, 0u);
  int groups = 1;
  for (int row = 0; row < qv::core::kTableCacheRows; ++row) {
    EXPECT_NE(qv::core::tableCache[row].key, 0u);
    if (row > 0) {
      EXPECT_LE(qv::core::tableCache[row].size, qv::core::tableCache[row - 1].size);
      if (qv::core::tableCache[row].size != qv::core::tableCache[row - 1].size) ++groups;
    }
  }
  EXPECT_EQ(groups, 15);
  EXPECT_EQ(qv::core::tableCache[0].key, 0xECu);
  EXPECT_EQ(qv::core::tableCache[0].size, 25165824u);
  EXPECT_EQ(qv::core::tableCache[54].key, 0x41u);
  EXPECT_EQ(qv::core::tableCache[54].size, 131072u);
}

TEST(CacheSize, EveryDescriptorOfTheTableIsFound) {
  for (int row = 0; row < qv::core::kTableCacheRows; ++row) {
    PlaybackProcessor cpu("GenuineIntel", 3);
    cpu.answer(2, 0, {0x00000001u, qv::core::tableCache[row].key << 8, 0, 0});
    EXPECT_EQ(ownGetCacheSize(), static_cast<int>(qv::core::tableCache[row].size)) << "row " << row;
  }
}

}  // namespace
