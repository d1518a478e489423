// The long fills and moves: the exported ippsSet_32s and ippsMove_8u through their stubs on every
// tier, and the tiers' internal long forms called directly.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "copy/copy_support.h"
#include "support/tiers.h"

namespace qvtest {
namespace {

constexpr size_t kGuard = 64;

// A byte block with canaries around the part under test.
struct GuardedBytes {
  explicit GuardedBytes(size_t bytes) : storage(bytes + 2 * kGuard + 16, kCanary) {}
  // The byte offset bytes past a 16-byte boundary inside the block.
  uint8_t* at(size_t offset) {
    const uintptr_t base = reinterpret_cast<uintptr_t>(storage.data()) + kGuard;
    return reinterpret_cast<uint8_t*>((base + 15) & ~static_cast<uintptr_t>(15)) + offset;
  }
  std::vector<uint8_t> storage;
};

// Whether every byte outside [first, first + bytes) is still the canary.
bool onlyRangeWritten(const GuardedBytes& block, const uint8_t* first, size_t bytes) {
  for (size_t i = 0; i < block.storage.size(); ++i) {
    const uint8_t* p = block.storage.data() + i;
    if ((p < first || p >= first + bytes) && *p != kCanary) return false;
  }
  return true;
}

TEST(LongFill, Set32sStatusesInOrderWriteNothing) {
  onEveryTier([&](const Tier&) {
    std::vector<Ipp32s> block(8, 0x5A5A5A5A);
    EXPECT_EQ(ippsSet_32s(1, nullptr, 0), ippStsNullPtrErr);
    EXPECT_EQ(ippsSet_32s(1, nullptr, 8), ippStsNullPtrErr);
    EXPECT_EQ(ippsSet_32s(1, block.data(), 0), ippStsSizeErr);
    EXPECT_EQ(ippsSet_32s(1, block.data(), -5), ippStsSizeErr);
    EXPECT_EQ(block, std::vector<Ipp32s>(8, 0x5A5A5A5A));
  });
}

// Fills len elements at the byte offset and checks every element and the canaries.
std::vector<uint8_t> set32sAndCheck(int len, size_t offset, Ipp32s value) {
  GuardedBytes block(4 * static_cast<size_t>(len) + 16);
  uint8_t* first = block.at(offset);
  EXPECT_EQ(ippsSet_32s(value, reinterpret_cast<Ipp32s*>(first), len), ippStsNoErr);
  for (int i = 0; i < len; ++i) {
    Ipp32s element;
    std::memcpy(&element, first + 4 * static_cast<size_t>(i), 4);
    if (element != value) {
      ADD_FAILURE() << "element " << i << " of " << len;
      break;
    }
  }
  EXPECT_TRUE(onlyRangeWritten(block, first, 4 * static_cast<size_t>(len)));
  return std::vector<uint8_t>(first, first + 4 * static_cast<size_t>(len));
}

TEST(LongFill, Set32sFillsEveryLengthAndAlignmentOnEveryTier) {
  for (int len = 1; len <= 70; ++len)
    for (size_t offset : {0, 1, 2, 3, 4, 8, 12, 13}) {
      SCOPED_TRACE(::testing::Message() << "length " << len << " offset " << offset);
      expectSameOnEveryTier([&] { return set32sAndCheck(len, offset, static_cast<Ipp32s>(0x80FF0102 + len)); });
    }
}

TEST(LongFill, Set32sStreamsAboveTheLongLengthInTheLowerTiers) {
  alignas(16) Ipp32s element[4];
  const char* aligned = reinterpret_cast<const char*>(element);
  for (const char* tier : {"m7", "u8", "y8"}) {
    SCOPED_TRACE(tier);
    EXPECT_FALSE(internalsOf(tier).set32sStreams(aligned, 0x40000));
    EXPECT_TRUE(internalsOf(tier).set32sStreams(aligned, 0x40001));
    EXPECT_FALSE(internalsOf(tier).set32sStreams(aligned + 2, 0x40001));  // the unaligned path
  }
}

TEST(LongFill, E9StreamsOnlyForLongAlignedFillsAboveAKnownCache) {
  alignas(16) Ipp32s element[4];
  const char* aligned = reinterpret_cast<const char*>(element);
  const TierInternals& e9 = internalsOf("e9");
  {
    PlaybackProcessor cpu("GenuineIntel", 2);
    answerLeaf2(cpu, 0x45);                           // 2 MiB
    EXPECT_FALSE(e9.set32sStreams(aligned, 524288));  // 2097152 bytes: below 2097153
    EXPECT_TRUE(e9.set32sStreams(aligned, 524289));
    EXPECT_FALSE(e9.set32sStreams(aligned + 1, 524289));
  }
  {
    PlaybackProcessor cpu("GenuineIntel", 2);
    answerLeaf2(cpu, 0x29);  // 4 MiB
    EXPECT_FALSE(e9.set32sStreams(aligned, 1048576));
    EXPECT_TRUE(e9.set32sStreams(aligned, 1048577));
  }
  {
    PlaybackProcessor cpu("AuthenticAMD", 2);
    EXPECT_FALSE(e9.set32sStreams(aligned, 0x1000000));
  }
}

TEST(LongFill, LongFillsWriteTheSameBytesOnEveryRoad) {
  PlaybackProcessor cpu("GenuineIntel", 2);
  answerLeaf2(cpu, 0x43);  // 512 KiB: e9 streams too
  for (int len : {0x40001, 600003})
    for (size_t offset : {0, 4, 2}) {
      SCOPED_TRACE(::testing::Message() << "length " << len << " offset " << offset);
      expectSameOnEveryTier([&] { return set32sAndCheck(len, offset, -123456789); });
    }
}

TEST(LongMove, StatusesInOrderWriteNothing) {
  onEveryTier([&](const Tier&) {
    std::vector<Ipp8u> src(8, 1), dst(8, 2);
    EXPECT_EQ(ippsMove_8u(nullptr, dst.data(), 0), ippStsNullPtrErr);
    EXPECT_EQ(ippsMove_8u(src.data(), nullptr, 8), ippStsNullPtrErr);
    EXPECT_EQ(ippsMove_8u(src.data(), dst.data(), 0), ippStsSizeErr);
    EXPECT_EQ(ippsMove_8u(src.data(), dst.data(), -1), ippStsSizeErr);
    EXPECT_EQ(dst, std::vector<Ipp8u>(8, 2));
  });
}

TEST(LongMove, OverlappingMovesInBothDirectionsKeepTheSourceBytes) {
  const std::vector<uint8_t> pattern = randomBytes(1200, 4);
  for (int len : {1, 2, 15, 16, 17, 63, 64, 65, 130, 700})
    for (int shift : {-70, -64, -17, -16, -1, 0, 1, 3, 16, 33, 64, 100}) {
      SCOPED_TRACE(::testing::Message() << "length " << len << " shift " << shift);
      expectSameOnEveryTier([&] {
        std::vector<uint8_t> block(pattern);
        const size_t from = 200;
        const size_t to = static_cast<size_t>(200 + shift);
        EXPECT_EQ(ippsMove_8u(block.data() + from, block.data() + to, len), ippStsNoErr);
        std::vector<uint8_t> expected(pattern);
        for (int i = 0; i < len; ++i) expected[to + i] = pattern[from + i];
        EXPECT_EQ(block, expected);
        return block;
      });
    }
}

TEST(LongForms, NullPointersThenLengthsAreRefusedWithNothingWritten) {
  for (const TierInternals& tier : tierInternals()) {
    SCOPED_TRACE(tier.name);
    std::vector<Ipp8u> bytes(16, 9), bytesCopy(16, 8);
    std::vector<Ipp16s> shorts(8, 7);
    std::vector<Ipp32f> floats(4, 1.0f), floatsCopy(4, 2.0f);
    std::vector<Ipp64f> doubles(2, 3.0);
    EXPECT_EQ(tier.copy8u(nullptr, bytes.data(), 0), ippStsNullPtrErr);
    EXPECT_EQ(tier.copy8u(bytesCopy.data(), nullptr, 4), ippStsNullPtrErr);
    EXPECT_EQ(tier.copy8u(bytesCopy.data(), bytes.data(), 0), ippStsSizeErr);
    EXPECT_EQ(tier.copy32f(nullptr, floats.data(), -1), ippStsNullPtrErr);
    EXPECT_EQ(tier.copy32f(floatsCopy.data(), floats.data(), -1), ippStsSizeErr);
    EXPECT_EQ(tier.move16s(shorts.data(), nullptr, 0), ippStsNullPtrErr);
    EXPECT_EQ(tier.move16s(shorts.data(), shorts.data() + 1, 0), ippStsSizeErr);
    EXPECT_EQ(tier.move32f(nullptr, nullptr, 1), ippStsNullPtrErr);
    EXPECT_EQ(tier.move32f(floatsCopy.data(), floats.data(), 0), ippStsSizeErr);
    EXPECT_EQ(tier.set32f(5.0f, nullptr, 0), ippStsNullPtrErr);
    EXPECT_EQ(tier.set32f(5.0f, floats.data(), 0), ippStsSizeErr);
    EXPECT_EQ(tier.set64f(5.0, nullptr, 2), ippStsNullPtrErr);
    EXPECT_EQ(tier.set64f(5.0, doubles.data(), -2), ippStsSizeErr);
    EXPECT_EQ(bytes, std::vector<Ipp8u>(16, 9));
    EXPECT_EQ(shorts, std::vector<Ipp16s>(8, 7));
    EXPECT_EQ(floats, std::vector<Ipp32f>(4, 1.0f));
    EXPECT_EQ(doubles, std::vector<Ipp64f>(2, 3.0));
  }
}

TEST(LongForms, CopiesAndMovesCountElementsAndTiersAgree) {
  const std::vector<uint8_t> pattern = randomBytes(4096, 8);
  for (int len : {1, 3, 16, 37, 200}) {
    SCOPED_TRACE(::testing::Message() << "length " << len);
    std::vector<std::vector<uint8_t>> results;
    for (const TierInternals& tier : tierInternals()) {
      SCOPED_TRACE(tier.name);
      std::vector<uint8_t> block(pattern);
      std::vector<uint8_t> expected(pattern);
      // Bytes to a disjoint place; 32-bit elements likewise; 16-bit and 32-bit moves overlapping.
      EXPECT_EQ(tier.copy8u(block.data() + 1, block.data() + 2001, len), ippStsNoErr);
      for (int i = 0; i < len; ++i) expected[2001 + i] = pattern[1 + i];
      std::vector<Ipp32f> floats(2 * len), floatsCopy(len);
      std::memcpy(floats.data(), pattern.data(), 4 * floats.size());
      EXPECT_EQ(tier.copy32f(floats.data(), floatsCopy.data(), len), ippStsNoErr);
      EXPECT_EQ(0, std::memcmp(floatsCopy.data(), floats.data(), 4 * static_cast<size_t>(len)));
      EXPECT_EQ(tier.move16s(reinterpret_cast<Ipp16s*>(block.data() + 1000),
                             reinterpret_cast<Ipp16s*>(block.data() + 1006), len),
                ippStsNoErr);
      std::vector<uint8_t> moved(expected.begin() + 1000, expected.begin() + 1000 + 2 * len);
      std::copy(moved.begin(), moved.end(), expected.begin() + 1006);
      EXPECT_EQ(tier.move32f(reinterpret_cast<Ipp32f*>(block.data() + 3000),
                             reinterpret_cast<Ipp32f*>(block.data() + 2996), len),
                ippStsNoErr);
      moved.assign(expected.begin() + 3000, expected.begin() + 3000 + 4 * len);
      std::copy(moved.begin(), moved.end(), expected.begin() + 2996);
      EXPECT_EQ(block, expected);
      results.push_back(block);
    }
    for (const auto& result : results) EXPECT_EQ(result, results.front());
  }
}

TEST(LongForms, FloatFillsKeepTheBitsOfTheValue) {
  for (const TierInternals& tier : tierInternals()) {
    SCOPED_TRACE(tier.name);
    for (int len : {1, 2, 5, 33})
      for (size_t offset : {0, 4, 1}) {
        GuardedBytes block(8 * static_cast<size_t>(len) + 16);
        uint8_t* first = block.at(offset);
        EXPECT_EQ(tier.set32f(-0.0f, reinterpret_cast<Ipp32f*>(first), len), ippStsNoErr);
        for (int i = 0; i < len; ++i) EXPECT_EQ(0, std::memcmp(first + 4 * i, "\x00\x00\x00\x80", 4));
        EXPECT_TRUE(onlyRangeWritten(block, first, 4 * static_cast<size_t>(len)));
        std::fill(block.storage.begin(), block.storage.end(), kCanary);
        EXPECT_EQ(tier.set64f(1.5, reinterpret_cast<Ipp64f*>(first), len), ippStsNoErr);
        for (int i = 0; i < len; ++i) EXPECT_EQ(0, std::memcmp(first + 8 * i, "\x00\x00\x00\x00\x00\x00\xF8\x3F", 8));
        EXPECT_TRUE(onlyRangeWritten(block, first, 8 * static_cast<size_t>(len)));
      }
  }
}

}  // namespace
}  // namespace qvtest
