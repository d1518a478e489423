// The constant fills: statuses in order, random shapes against the reference on every tier, the
// streaming decision at 524288 bytes and the channels of four-channel fills at every offset.

#include <gtest/gtest.h>

#include <cstring>

#include "copy/copy_support.h"
#include "support/tiers.h"

namespace qvtest {
namespace {

const uint8_t kPixel[4] = {0x11, 0x22, 0x33, 0x44};

std::vector<uint8_t> fillAndCheck(int channels, int width, int height, int padding, int offset, uint8_t seed) {
  const uint8_t value[4] = {seed, static_cast<uint8_t>(seed + 1), static_cast<uint8_t>(seed ^ 0x5A), 0xFE};
  TestImage dst(width, height, channels, padding, offset);
  TestImage expected(width, height, channels, padding, offset);
  dst.fillRandom(seed);
  const IppStatus status = channels == 1 ? ippiSet_8u_C1R(value[0], dst.data(), dst.step(), dst.size())
                                         : ippiSet_8u_C4R(value, dst.data(), dst.step(), dst.size());
  EXPECT_EQ(status, ippStsNoErr);
  referenceFill(value, channels, expected.data(), expected.step(), width, height);
  EXPECT_EQ(dst.pixels(), expected.pixels()) << channels << " channels, " << width << "x" << height;
  EXPECT_TRUE(dst.surroundingsIntact());
  return dst.pixels();
}

TEST(SetPrimitives, OneChannelNullPointerComesBeforeSize) {
  onEveryTier([&](const Tier&) {
    TestImage dst(6, 3, 1);
    const auto before = dst.allBytes();
    EXPECT_EQ(ippiSet_8u_C1R(7, nullptr, dst.step(), {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiSet_8u_C1R(7, nullptr, dst.step(), {6, 3}), ippStsNullPtrErr);
    EXPECT_EQ(ippiSet_8u_C1R(7, dst.data(), dst.step(), {0, 3}), ippStsSizeErr);
    EXPECT_EQ(ippiSet_8u_C1R(7, dst.data(), dst.step(), {6, 0}), ippStsSizeErr);
    EXPECT_EQ(ippiSet_8u_C1R(7, dst.data(), dst.step(), {-6, -3}), ippStsSizeErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST(SetPrimitives, FourChannelsTestDestinationAndValueBeforeSize) {
  onEveryTier([&](const Tier&) {
    TestImage dst(6, 3, 4);
    const auto before = dst.allBytes();
    EXPECT_EQ(ippiSet_8u_C4R(kPixel, nullptr, dst.step(), {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiSet_8u_C4R(nullptr, dst.data(), dst.step(), {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiSet_8u_C4R(nullptr, dst.data(), dst.step(), {6, 3}), ippStsNullPtrErr);
    EXPECT_EQ(ippiSet_8u_C4R(kPixel, dst.data(), dst.step(), {0, 3}), ippStsSizeErr);
    EXPECT_EQ(ippiSet_8u_C4R(kPixel, dst.data(), dst.step(), {6, -1}), ippStsSizeErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST(SetPrimitives, RandomShapesMatchTheReferenceOnEveryTierAndTiersAgree) {
  const int widths[] = {1, 2, 3, 5, 13, 15, 16, 17, 31, 47, 63, 64, 65, 100, 257};
  for (int channels : {1, 4})
    for (int width : widths)
      for (int padding : {0, 1, 4, 20})
        for (int offset : {0, 1, 4, 7, 12, 15}) {
          SCOPED_TRACE(::testing::Message()
                       << channels << " channels, width " << width << " padding " << padding << " offset " << offset);
          expectSameOnEveryTier(
              [&] { return fillAndCheck(channels, width, 5, padding, offset, static_cast<uint8_t>(width)); });
        }
}

TEST(SetPrimitives, ChannelsStayInPlaceWithADestinationFourBytesPastASixteenByteBoundary) {
  for (int offset = 0; offset < 16; ++offset) {
    SCOPED_TRACE(::testing::Message() << "offset " << offset);
    expectSameOnEveryTier([&] {
      TestImage dst(40, 3, 4, 8, offset == 0 ? 4 : offset);
      EXPECT_EQ(ippiSet_8u_C4R(kPixel, dst.data(), dst.step(), dst.size()), ippStsNoErr);
      for (int y = 0; y < 3; ++y)
        for (int i = 0; i < dst.rowBytes(); ++i)
          EXPECT_EQ(dst.row(y)[i], kPixel[i % 4]) << "row " << y << " byte " << i;
      EXPECT_TRUE(dst.surroundingsIntact());
      return dst.pixels();
    });
  }
}

TEST(SetPrimitives, TheStepIsFollowedAsGiven) {
  onEveryTier([&](const Tier&) {
    // A zero step fills the first row again and again; nothing below it changes.
    TestImage dst(9, 4, 4, 0, 1);
    dst.fill(0);
    ASSERT_EQ(ippiSet_8u_C4R(kPixel, dst.data(), 0, dst.size()), ippStsNoErr);
    for (int i = 0; i < dst.rowBytes(); ++i) EXPECT_EQ(dst.row(0)[i], kPixel[i % 4]);
    for (int y = 1; y < 4; ++y)
      for (int i = 0; i < dst.rowBytes(); ++i) EXPECT_EQ(dst.row(y)[i], 0);
    // A negative step fills upward from the given row.
    TestImage up(21, 5, 1, 3, 2);
    ASSERT_EQ(ippiSet_8u_C1R(0x7E, up.row(4), -up.step(), up.size()), ippStsNoErr);
    for (int y = 0; y < 5; ++y)
      for (int i = 0; i < up.rowBytes(); ++i) EXPECT_EQ(up.row(y)[i], 0x7E);
    EXPECT_TRUE(up.surroundingsIntact());
  });
}

TEST(SetStreaming, AFillOf524288BytesNeverStreams) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  answerLeaf4(cpu, 4096);
  for (const TierInternals& tier : tierInternals()) {
    SCOPED_TRACE(tier.name);
    EXPECT_FALSE(tier.setStreams(524288));
    EXPECT_FALSE(tier.setStreams(4096));
    EXPECT_TRUE(tier.setStreams(524289));
  }
}

TEST(SetStreaming, OneOf524289StreamsOnlyWhenTheCacheIsKnownAndNoLarger) {
  {
    PlaybackProcessor cpu("GenuineIntel", 4);
    answerLeaf4(cpu, 524289);
    for (const TierInternals& tier : tierInternals()) EXPECT_TRUE(tier.setStreams(524289)) << tier.name;
  }
  {
    PlaybackProcessor cpu("GenuineIntel", 4);
    answerLeaf4(cpu, 524290);
    for (const TierInternals& tier : tierInternals()) {
      EXPECT_FALSE(tier.setStreams(524289)) << tier.name;
      EXPECT_TRUE(tier.setStreams(524290)) << tier.name;
    }
  }
  {
    PlaybackProcessor cpu("AuthenticAMD", 4);
    answerLeaf4(cpu, 4096);
    for (const TierInternals& tier : tierInternals()) EXPECT_FALSE(tier.setStreams(0x7FFFFFFF)) << tier.name;
  }
}

TEST(SetStreaming, TheTotalIsComparedAsASignedThirtyTwoBitNumber) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  answerLeaf4(cpu, 1048576);
  for (const TierInternals& tier : tierInternals()) {
    EXPECT_FALSE(tier.setStreams(-1)) << tier.name;
    EXPECT_TRUE(tier.setStreams(0x7FFFFFFF)) << tier.name;
  }
}

TEST(SetStreaming, StreamingFillsWriteTheSameBytes) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  answerLeaf4(cpu, 524289);
  // Contiguous (one row of the whole total) and padded rows; every misalignment of the start.
  for (int channels : {1, 4})
    for (int padding : {0, 12})
      for (int offset : {0, 3, 4, 9}) {
        SCOPED_TRACE(::testing::Message() << channels << " channels, padding " << padding << " offset " << offset);
        expectSameOnEveryTier([&] { return fillAndCheck(channels, 1031, 513 / channels + 1, padding, offset, 0x3C); });
      }
}

}  // namespace
}  // namespace qvtest
