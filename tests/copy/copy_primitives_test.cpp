// The region copies: statuses in order, random images against the plain reference on every tier,
// the special shapes (flattening, steps followed as given, page-offset backward copies).

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>

#include "copy/copy_support.h"
#include "support/tiers.h"

namespace qvtest {
namespace {

using CopyPrimitive = IppStatus (*)(const Ipp8u*, int, Ipp8u*, int, IppiSize);

IppStatus copy16u(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiSize size) {
  return ippiCopy_16u_C4R(reinterpret_cast<const Ipp16u*>(src), srcStep, reinterpret_cast<Ipp16u*>(dst), dstStep, size);
}

struct CopyCase {
  const char* name;
  CopyPrimitive copy;
  int bytesPerPixel;
};

const CopyCase kCopies[] = {
    {"ippiCopy_8u_C1R", ippiCopy_8u_C1R, 1},
    {"ippiCopy_8u_C4R", ippiCopy_8u_C4R, 4},
    {"ippiCopy_16u_C4R", copy16u, 8},
};

// Copies a random image of the shape with the primitive and checks it against the reference
// and the canaries; answers every byte of the destination's allocation for the tier comparison.
std::vector<uint8_t> copyAndCheck(const CopyCase& copy, int width, int height, int srcPad, int srcOffset, int dstPad,
                                  int dstOffset, uint32_t seed) {
  TestImage src(width, height, copy.bytesPerPixel, srcPad, srcOffset);
  TestImage dst(width, height, copy.bytesPerPixel, dstPad, dstOffset);
  TestImage expected(width, height, copy.bytesPerPixel, dstPad, dstOffset);
  src.fillRandom(seed);
  EXPECT_EQ(copy.copy(src.data(), src.step(), dst.data(), dst.step(), src.size()), ippStsNoErr);
  referenceCopy(src.data(), src.step(), expected.data(), expected.step(), static_cast<size_t>(src.rowBytes()), height);
  EXPECT_EQ(dst.pixels(), expected.pixels()) << copy.name << " " << width << "x" << height;
  EXPECT_TRUE(dst.surroundingsIntact());
  return dst.pixels();
}

TEST(CopyPrimitives, NullPointerComesBeforeSize) {
  for (const CopyCase& copy : kCopies) {
    SCOPED_TRACE(copy.name);
    onEveryTier([&](const Tier&) {
      TestImage src(4, 4, copy.bytesPerPixel);
      TestImage dst(4, 4, copy.bytesPerPixel);
      src.fillRandom(1);
      const auto before = dst.allBytes();
      EXPECT_EQ(copy.copy(nullptr, src.step(), dst.data(), dst.step(), {0, 0}), ippStsNullPtrErr);
      EXPECT_EQ(copy.copy(src.data(), src.step(), nullptr, dst.step(), {-1, 4}), ippStsNullPtrErr);
      EXPECT_EQ(copy.copy(nullptr, 0, nullptr, 0, {4, 4}), ippStsNullPtrErr);
      EXPECT_EQ(dst.allBytes(), before);
    });
  }
}

TEST(CopyPrimitives, WidthOrHeightBelowOneIsASizeErrorAndWritesNothing) {
  for (const CopyCase& copy : kCopies) {
    SCOPED_TRACE(copy.name);
    onEveryTier([&](const Tier&) {
      TestImage src(4, 4, copy.bytesPerPixel);
      TestImage dst(4, 4, copy.bytesPerPixel);
      src.fillRandom(2);
      const auto before = dst.allBytes();
      for (IppiSize size : {IppiSize{0, 4}, IppiSize{4, 0}, IppiSize{-3, 4}, IppiSize{4, -1}, IppiSize{0, 0}})
        EXPECT_EQ(copy.copy(src.data(), src.step(), dst.data(), dst.step(), size), ippStsSizeErr);
      EXPECT_EQ(dst.allBytes(), before);
    });
  }
}

TEST(CopyPrimitives, RandomImagesMatchTheReferenceOnEveryTierAndTiersAgree) {
  const int widths[] = {1, 3, 7, 15, 16, 17, 31, 63, 65, 129, 257, 1023};
  const int offsets[][2] = {{0, 0}, {1, 0}, {0, 1}, {3, 13}, {16, 5}, {7, 7}};
  const int paddings[][2] = {{0, 0}, {0, 3}, {5, 0}, {64, 1}};
  for (const CopyCase& copy : kCopies)
    for (int width : widths)
      for (const auto& offset : offsets)
        for (const auto& padding : paddings) {
          SCOPED_TRACE(::testing::Message() << copy.name << " width " << width << " offsets " << offset[0] << ","
                                            << offset[1] << " paddings " << padding[0] << "," << padding[1]);
          expectSameOnEveryTier([&] {
            return copyAndCheck(copy, width, 5, padding[0], offset[0], padding[1], offset[1], width * 31u + 7);
          });
        }
}

TEST(CopyPrimitives, SixteenPixelRowIsTheAlignedPathAndFifteenTheSmallPath) {
  for (const TierInternals& tier : tierInternals()) {
    SCOPED_TRACE(tier.name);
    EXPECT_EQ(tier.planCopy(64, 64, 64, 1).road, qv::pixel::CopyRoad::kCached);
    EXPECT_EQ(tier.planCopy(60, 60, 60, 1).road, qv::pixel::CopyRoad::kSmall);
  }
  for (int width : {15, 16}) {
    SCOPED_TRACE(width);
    expectSameOnEveryTier([&] { return copyAndCheck(kCopies[1], width, 1, 0, 0, 0, 0, 99); });
    expectSameOnEveryTier([&] { return copyAndCheck(kCopies[1], width, 1, 0, 3, 0, 9, 98); });
  }
}

TEST(CopyPrimitives, DestinationOneBytePastASixteenByteBoundaryStillCopiesIdenticalRows) {
  for (int width : {16, 40, 300})
    for (int sourceOffset : {0, 1, 16, 33}) {
      SCOPED_TRACE(::testing::Message() << "width " << width << " source offset " << sourceOffset);
      expectSameOnEveryTier([&] { return copyAndCheck(kCopies[1], width, 7, 12, sourceOffset, 4, 17, 5); });
      expectSameOnEveryTier([&] { return copyAndCheck(kCopies[0], width, 7, 3, sourceOffset, 0, 1, 6); });
    }
}

TEST(CopyPrimitives, ContiguousImagesAreFlattenedToOneRow) {
  for (const TierInternals& tier : tierInternals()) {
    SCOPED_TRACE(tier.name);
    const qv::pixel::CopyPlan flat = tier.planCopy(40, 40, 40, 3);
    EXPECT_EQ(flat.rowBytes, 120u);
    EXPECT_EQ(flat.rows, 1);
    const qv::pixel::CopyPlan padded = tier.planCopy(40, 44, 40, 3);
    EXPECT_EQ(padded.rowBytes, 40u);
    EXPECT_EQ(padded.rows, 3);
  }
  // Three rows of 20 bytes make 60 contiguous bytes: still short; four make 80, no longer.
  EXPECT_EQ(internalsOf("u8").planCopy(20, 20, 20, 3).road, qv::pixel::CopyRoad::kSmall);
  EXPECT_EQ(internalsOf("u8").planCopy(20, 20, 20, 4).road, qv::pixel::CopyRoad::kCached);
}

TEST(CopyPrimitives, TheStepsAreFollowedAsGiven) {
  const int width = 37, height = 6;
  onEveryTier([&](const Tier&) {
    // A negative source step walks upward from the last row: the copy is upside down.
    TestImage src(width, height, 4, 8, 3);
    src.fillRandom(17);
    TestImage flipped(width, height, 4, 0, 1);
    ASSERT_EQ(ippiCopy_8u_C4R(src.row(height - 1), -src.step(), flipped.data(), flipped.step(), src.size()),
              ippStsNoErr);
    for (int y = 0; y < height; ++y)
      EXPECT_EQ(0, std::memcmp(flipped.row(y), src.row(height - 1 - y), src.rowBytes())) << "row " << y;
    EXPECT_TRUE(flipped.surroundingsIntact());

    // A zero source step repeats the first row.
    TestImage repeated(width, height, 4, 4, 0);
    ASSERT_EQ(ippiCopy_8u_C4R(src.data(), 0, repeated.data(), repeated.step(), src.size()), ippStsNoErr);
    for (int y = 0; y < height; ++y) EXPECT_EQ(0, std::memcmp(repeated.row(y), src.row(0), src.rowBytes()));

    // A zero destination step writes every row over the first: the last one stays.
    TestImage single(width, 1, 4, 0, 2);
    ASSERT_EQ(ippiCopy_8u_C4R(src.data(), src.step(), single.data(), 0, src.size()), ippStsNoErr);
    EXPECT_EQ(0, std::memcmp(single.data(), src.row(height - 1), src.rowBytes()));
    EXPECT_TRUE(single.surroundingsIntact());
  });
}

// A 4096-aligned block so that the page offsets of source and destination can be chosen.
struct PageBlock {
  explicit PageBlock(size_t bytes) : data(static_cast<uint8_t*>(std::aligned_alloc(4096, bytes))) {}
  ~PageBlock() { std::free(data); }
  uint8_t* data;
};

TEST(CopyPrimitives, SourceJustBelowTheDestinationWithinAPageCopiesBackwardWithTheSameBytes) {
  // Page offsets: source minus destination of -0x10, -0xA0 and 0xF80 take the backward order;
  // -0xB0 and 0x40 the forward one. Lengths leave every odd tail.
  const int offsets[][2] = {{0x000, 0x010}, {0x000, 0x0A0}, {0xF80, 0x000}, {0x000, 0x0B0}, {0x040, 0x000}};
  const size_t lengths[] = {64, 65, 127, 191, 1000, 4093, 70000};
  PageBlock src(1 << 18), dst(1 << 18);
  const std::vector<uint8_t> pattern = randomBytes(1 << 17, 11);
  for (const auto& offset : offsets)
    for (size_t length : lengths) {
      SCOPED_TRACE(::testing::Message() << "offsets " << offset[0] << "," << offset[1] << " length " << length);
      expectSameOnEveryTier([&] {
        std::memcpy(src.data + offset[0], pattern.data(), length);
        std::memset(dst.data, kCanary, 1 << 18);
        const int step = static_cast<int>(length);
        EXPECT_EQ(ippiCopy_8u_C1R(src.data + offset[0], step, dst.data + offset[1], step, {step, 1}), ippStsNoErr);
        EXPECT_EQ(0, std::memcmp(dst.data + offset[1], pattern.data(), length));
        for (int i = 0; i < offset[1]; ++i) EXPECT_EQ(dst.data[i], kCanary);
        EXPECT_EQ(dst.data[offset[1] + length], kCanary);
        return std::vector<uint8_t>(dst.data, dst.data + offset[1] + length + 64);
      });
    }
}

TEST(CopyPrimitives, ImagesAroundOneMebibyteCopyExactly) {
  // 512 x 512 RGBA is exactly 1 MiB; one more row crosses it. Padded and unpadded.
  for (int height : {511, 512, 513})
    for (int padding : {0, 12}) {
      SCOPED_TRACE(::testing::Message() << "height " << height << " padding " << padding);
      expectSameOnEveryTier([&] { return copyAndCheck(kCopies[1], 512, height, padding, 0, padding, 1, 3); });
    }
}

TEST(CopyChannel, StatusesInOrderWriteNothing) {
  onEveryTier([&](const Tier&) {
    TestImage src(5, 3, 4);
    TestImage dst(5, 3, 1);
    src.fillRandom(3);
    const auto before = dst.allBytes();
    EXPECT_EQ(ippiCopy_8u_C4C1R(nullptr, src.step(), dst.data(), dst.step(), {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiCopy_8u_C4C1R(src.data(), src.step(), nullptr, dst.step(), {-1, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiCopy_8u_C4C1R(src.data(), src.step(), dst.data(), dst.step(), {0, 3}), ippStsSizeErr);
    EXPECT_EQ(ippiCopy_8u_C4C1R(src.data(), src.step(), dst.data(), dst.step(), {5, 0}), ippStsSizeErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST(CopyChannel, EachChannelOfRandomImagesMatchesTheReference) {
  const int widths[] = {1, 2, 3, 7, 8, 9, 15, 16, 17, 33, 100};
  for (int width : widths)
    for (int channel = 0; channel < 4; ++channel)
      for (int padding : {0, 5})
        for (int dstOffset : {0, 1, 2, 3}) {
          SCOPED_TRACE(::testing::Message() << "width " << width << " channel " << channel << " padding " << padding
                                            << " offset " << dstOffset);
          expectSameOnEveryTier([&] {
            TestImage src(width, 6, 4, padding * 4, 2);
            TestImage dst(width, 6, 1, padding, dstOffset);
            TestImage expected(width, 6, 1, padding, dstOffset);
            src.fillRandom(width + channel);
            const uint8_t* from = src.data() + channel;
            EXPECT_EQ(ippiCopy_8u_C4C1R(from, src.step(), dst.data(), dst.step(), dst.size()), ippStsNoErr);
            referenceCopyChannel(from, src.step(), expected.data(), expected.step(), width, 6);
            EXPECT_EQ(dst.pixels(), expected.pixels());
            EXPECT_TRUE(dst.surroundingsIntact());
            return dst.pixels();
          });
        }
}

}  // namespace
}  // namespace qvtest
