// The copy's road decisions on every tier, with processors played back, and the bytes of the
// streaming roads. The size thresholds come from the rules: 64-byte rows, 1 MiB in m7, u8 and y8,
// half the leaf-2 cache in u8 and y8, twice the total against 4 MiB and the known cache in e9.

#include <gtest/gtest.h>

#include "copy/copy_support.h"
#include "core/cpu_state.h"
#include "support/tiers.h"

namespace qvtest {
namespace {

using qv::pixel::CopyRoad;

constexpr size_t kMiB = 1048576;

// The road of a contiguous image of total bytes on a tier.
CopyRoad roadOfContiguous(const char* tier, size_t total) {
  const int step = static_cast<int>(total);
  return internalsOf(tier).planCopy(step, step, total, 1).road;
}

TEST(CopyRoads, M7StreamsAboveOneMebibyteWithoutAskingTheProcessor) {
  PlaybackProcessor cpu("AuthenticAMD", 1);
  EXPECT_EQ(roadOfContiguous("m7", kMiB), CopyRoad::kCached);
  EXPECT_EQ(roadOfContiguous("m7", kMiB + 1), CopyRoad::kStreaming);
  EXPECT_EQ(internalsOf("m7").planCopy(1000, 1000, 64, 20000).road, CopyRoad::kStreaming);
  EXPECT_EQ(internalsOf("m7").planCopy(1000, 1000, 63, 20000).road, CopyRoad::kSmall);
  EXPECT_EQ(cpu.reads(), 0);
}

TEST(CopyRoads, M7FlattensOnlyWhenBothStepsEqualTheRow) {
  const qv::pixel::CopyPlan plan = internalsOf("m7").planCopy(100, 100, 100, 7);
  EXPECT_EQ(plan.rows, 1);
  EXPECT_EQ(plan.rowBytes, 700u);
  EXPECT_EQ(internalsOf("m7").planCopy(100, 104, 100, 7).rows, 7);
}

TEST(CopyRoads, AnotherVendorNeverStreamsInU8AndY8) {
  PlaybackProcessor cpu("AuthenticAMD", 4);
  answerLeaf2(cpu, 0x4D);
  for (const char* tier : {"u8", "y8"}) {
    SCOPED_TRACE(tier);
    EXPECT_EQ(roadOfContiguous(tier, 256 * kMiB), CopyRoad::kCached);
  }
}

TEST(CopyRoads, U8AndY8StreamFromHalfTheCacheOfEveryDescriptorOfTheirTable) {
  // The copy's table holds the rows of 512 KiB and more; a smaller descriptor is not known to it.
  for (const qv::core::CacheDescriptor* row = qv::core::tableCache; row->key != 0; ++row) {
    SCOPED_TRACE(::testing::Message() << "descriptor 0x" << std::hex << row->key);
    PlaybackProcessor cpu("GenuineIntel", 4);
    answerLeaf2(cpu, row->key);
    for (const char* tier : {"u8", "y8"}) {
      SCOPED_TRACE(tier);
      if (row->size < 524288) {
        EXPECT_EQ(roadOfContiguous(tier, 64 * kMiB), CopyRoad::kCached);
        continue;
      }
      const size_t threshold = row->size / 2 > kMiB ? row->size / 2 : kMiB;
      EXPECT_EQ(roadOfContiguous(tier, threshold - 1), CopyRoad::kCached);
      EXPECT_EQ(roadOfContiguous(tier, threshold), CopyRoad::kStreaming);
    }
  }
}

TEST(CopyRoads, U8AndY8NeedLeafTwoToAnswerOne) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  cpu.answer(2, 0, {0x00000002u, 0x43, 0, 0});
  EXPECT_EQ(roadOfContiguous("u8", 64 * kMiB), CopyRoad::kCached);
  // A register with bit 31 set holds no descriptors.
  cpu.answer(2, 0, {0x00000001u, 0x80000043u, 0, 0});
  EXPECT_EQ(roadOfContiguous("y8", 64 * kMiB), CopyRoad::kCached);
  cpu.answer(2, 0, {0x00000001u, 0, 0, 0x43});
  EXPECT_EQ(roadOfContiguous("y8", 64 * kMiB), CopyRoad::kStreaming);
}

TEST(CopyRoads, U8AndY8AskTheTableOnEveryLargeCopy) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  answerLeaf2(cpu, 0x43);
  EXPECT_EQ(roadOfContiguous("u8", 2 * kMiB), CopyRoad::kStreaming);
  const int readsAfterFirst = cpu.reads();
  EXPECT_EQ(roadOfContiguous("u8", 2 * kMiB), CopyRoad::kStreaming);
  EXPECT_GT(cpu.reads(), readsAfterFirst);
  // Below 1 MiB the processor is not asked.
  const int readsBeforeSmall = cpu.reads();
  EXPECT_EQ(roadOfContiguous("u8", kMiB - 1), CopyRoad::kCached);
  EXPECT_EQ(cpu.reads(), readsBeforeSmall);
}

TEST(CopyRoads, E9StreamsWhenTwiceTheTotalExceedsFourMebibytesAndTheKnownCache) {
  {
    PlaybackProcessor cpu("GenuineIntel", 2);
    answerLeaf2(cpu, 0x29);  // 4 MiB, known through ippGetMaxCacheSizeB
    EXPECT_EQ(roadOfContiguous("e9", 2 * kMiB), CopyRoad::kCached);
    EXPECT_EQ(roadOfContiguous("e9", 2 * kMiB + 1), CopyRoad::kStreaming);
    EXPECT_EQ(internalsOf("e9").planCopy(2048, 2048, 1024, 4096).road, CopyRoad::kStreaming);
    EXPECT_EQ(internalsOf("e9").planCopy(2048, 2048, 1023, 4096).road, CopyRoad::kCached);
  }
  {
    PlaybackProcessor cpu("GenuineIntel", 2);
    answerLeaf2(cpu, 0x4D);  // 16 MiB
    EXPECT_EQ(roadOfContiguous("e9", 8 * kMiB), CopyRoad::kCached);
    EXPECT_EQ(roadOfContiguous("e9", 8 * kMiB + 1), CopyRoad::kStreaming);
  }
  {
    PlaybackProcessor cpu("AuthenticAMD", 2);
    answerLeaf2(cpu, 0x43);  // no cache size for another vendor
    EXPECT_EQ(roadOfContiguous("e9", 256 * kMiB), CopyRoad::kCached);
  }
}

// A contiguous or padded copy of rows x rowBytes bytes, with chosen misalignments, against the
// reference; answers the destination for the tier comparison.
std::vector<uint8_t> copyLarge(int width, int height, int padding, int srcOffset, int dstOffset) {
  TestImage src(width, height, 1, padding, srcOffset);
  TestImage dst(width, height, 1, padding, dstOffset);
  src.fillRandom(static_cast<uint32_t>(width + height));
  EXPECT_EQ(ippiCopy_8u_C1R(src.data(), src.step(), dst.data(), dst.step(), src.size()), ippStsNoErr);
  EXPECT_EQ(dst.pixels(), src.pixels());
  EXPECT_TRUE(dst.surroundingsIntact());
  return dst.pixels();
}

TEST(CopyRoads, StreamingRoadsWriteTheSameBytesAsTheCachedOnes) {
  // A 512 KiB cache makes u8 and y8 stream from 1 MiB and e9 from 2 MiB; m7 streams above 1 MiB.
  PlaybackProcessor cpu("GenuineIntel", 2);
  answerLeaf2(cpu, 0x43);
  const int shapes[][5] = {
      // width, height, padding, source offset, destination offset
      {3 * 1048576 + 37, 1, 0, 0, 0},  // one row with whole 256 KiB blocks and a tail
      {3 * 1048576 + 37, 1, 0, 5, 9},  // destination brought to 16 bytes by single bytes
      {300001, 8, 3, 1, 2},            // padded rows above 256 KiB each
      {4099, 700, 0, 0, 3},            // contiguous, flattened
      {1500, 1500, 21, 7, 0},          // padded rows of 1500 bytes
  };
  for (const auto& shape : shapes) {
    SCOPED_TRACE(::testing::Message() << shape[0] << "x" << shape[1] << " padding " << shape[2]);
    onEveryTier([&](const Tier& tier) {
      const int step = shape[0] + shape[2];
      EXPECT_EQ(internalsOf(tier.name).planCopy(step, step, static_cast<size_t>(shape[0]), shape[1]).road,
                CopyRoad::kStreaming);
    });
    expectSameOnEveryTier([&] { return copyLarge(shape[0], shape[1], shape[2], shape[3], shape[4]); });
  }
}

}  // namespace
}  // namespace qvtest
