// The channel reorders: both check orders, every order (repeats included) on random images
// against the reference, the roads of each tier, on every tier with the bytes compared.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "copy/copy_support.h"
#include "support/tiers.h"

namespace qvtest {
namespace {

using qv::pixel::SwapRoad;

const int kReverse[3] = {2, 1, 0};
const int kReverseAll[4] = {3, 2, 1, 0};

TEST(SwapThreeChannels, StatusesComeInTheOrderPointersSizeStepOrder) {
  onEveryTier([&](const Tier&) {
    TestImage src(5, 3, 4);
    TestImage dst(5, 3, 4);
    src.fillRandom(1);
    const auto before = dst.allBytes();
    const int bad[3] = {3, 0, 0};
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(nullptr, 0, dst.data(), 0, {0, 0}, bad), ippStsNullPtrErr);
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), 0, nullptr, 0, {0, 0}, bad), ippStsNullPtrErr);
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), 0, dst.data(), 0, {0, 0}, nullptr), ippStsNullPtrErr);
    // Step 0 and a bad size together: the size is tested first here.
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), 0, dst.data(), 0, {0, 3}, bad), ippStsSizeErr);
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(), {5, -2}, bad), ippStsSizeErr);
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), 0, dst.data(), dst.step(), src.size(), bad), ippStsStepErr);
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), src.step(), dst.data(), -dst.step(), src.size(), bad),
              ippStsStepErr);
    EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(), src.size(), bad),
              ippStsChannelOrderErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST(SwapThreeChannels, AnElementOfMinusOneIsReadAsUnsignedAndRefused) {
  onEveryTier([&](const Tier&) {
    TestImage src(5, 3, 4);
    TestImage dst(5, 3, 4);
    const auto before = dst.allBytes();
    for (const auto& order : {std::vector<int>{-1, 1, 0}, std::vector<int>{0, -1, 1}, std::vector<int>{0, 1, -1},
                              std::vector<int>{0, 1, 3}, std::vector<int>{0, 1, 0x7FFFFFFF}})
      EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(), src.size(), order.data()),
                ippStsChannelOrderErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST(SwapFourChannels, StatusesComeInTheOrderPointersStepSizeOrder) {
  onEveryTier([&](const Tier&) {
    TestImage image(5, 3, 4);
    image.fillRandom(2);
    const auto before = image.allBytes();
    const int bad[4] = {4, 0, 0, 0};
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(nullptr, 0, {0, 0}, bad), ippStsNullPtrErr);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), 0, {0, 0}, nullptr), ippStsNullPtrErr);
    // Step 0 and a bad size together: the step is tested first here.
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), 0, {0, 3}, bad), ippStsStepErr);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), -20, image.size(), bad), ippStsStepErr);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), image.step(), {0, 3}, bad), ippStsSizeErr);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), image.step(), {5, 0}, bad), ippStsSizeErr);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), image.step(), image.size(), bad), ippStsChannelOrderErr);
    const int minusOne[4] = {0, 1, 2, -1};
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), image.step(), image.size(), minusOne), ippStsChannelOrderErr);
    EXPECT_EQ(image.allBytes(), before);
  });
}

// Reorders a random image in place and checks it against the reference.
std::vector<uint8_t> swapInPlaceAndCheck(int width, int height, int padding, int offset, const int order[4]) {
  TestImage image(width, height, 4, padding, offset);
  TestImage expected(width, height, 4, padding, offset);
  image.fillRandom(static_cast<uint32_t>(width * 7 + offset));
  expected.fillRandom(static_cast<uint32_t>(width * 7 + offset));
  EXPECT_EQ(ippiSwapChannels_8u_C4IR(image.data(), image.step(), image.size(), order), ippStsNoErr);
  referenceSwap(expected.data(), expected.step(), expected.data(), expected.step(), width, height, order, 4);
  EXPECT_EQ(image.pixels(), expected.pixels());
  EXPECT_TRUE(image.surroundingsIntact());
  return image.pixels();
}

// Reorders three channels of a random image into a random destination, whose fourth channel
// must stay as it was.
std::vector<uint8_t> swapThreeAndCheck(int width, int height, int padding, int srcOffset, int dstOffset,
                                       const int order[3], int extraDstPadding = 4) {
  TestImage src(width, height, 4, padding, srcOffset);
  TestImage dst(width, height, 4, padding + extraDstPadding, dstOffset);
  TestImage expected(width, height, 4, padding + extraDstPadding, dstOffset);
  src.fillRandom(static_cast<uint32_t>(width + 1));
  dst.fillRandom(static_cast<uint32_t>(width + 2));
  expected.fillRandom(static_cast<uint32_t>(width + 2));
  EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(), src.size(), order), ippStsNoErr);
  referenceSwap(src.data(), src.step(), expected.data(), expected.step(), width, height, order, 3);
  EXPECT_EQ(dst.pixels(), expected.pixels());
  EXPECT_TRUE(dst.surroundingsIntact());
  return dst.pixels();
}

TEST(SwapFourChannels, EveryOrderMatchesTheReferenceOnEveryTier) {
  for (int code = 0; code < 256; ++code) {
    const int order[4] = {code & 3, (code >> 2) & 3, (code >> 4) & 3, (code >> 6) & 3};
    SCOPED_TRACE(::testing::Message() << "order " << order[0] << order[1] << order[2] << order[3]);
    expectSameOnEveryTier([&] { return swapInPlaceAndCheck(13, 3, 4, 0, order); });
  }
}

TEST(SwapFourChannels, EveryShapeMatchesTheReferenceOnEveryTier) {
  for (int width : {1, 4, 7, 8, 9, 12, 15, 16, 17, 33, 100})
    for (int padding : {0, 2, 4})
      for (int offset : {0, 1, 4, 6}) {
        SCOPED_TRACE(::testing::Message() << "width " << width << " padding " << padding << " offset " << offset);
        expectSameOnEveryTier([&] { return swapInPlaceAndCheck(width, 4, padding, offset, kReverseAll); });
      }
}

TEST(SwapFourChannels, RepeatedElementsSpreadOneChannel) {
  const int zeros[4] = {0, 0, 0, 0};
  onEveryTier([&](const Tier&) {
    TestImage image(11, 2, 4, 0, 0);
    image.fillRandom(5);
    const std::vector<uint8_t> before = image.pixels();
    ASSERT_EQ(ippiSwapChannels_8u_C4IR(image.data(), image.step(), image.size(), zeros), ippStsNoErr);
    const std::vector<uint8_t> after = image.pixels();
    for (size_t i = 0; i < after.size(); ++i) EXPECT_EQ(after[i], before[i - i % 4]);
  });
}

TEST(SwapFourChannels, TheShuffleNeedsAlignedBaseAndStepAndEightPixels) {
  int dummy[4];
  const char* base = reinterpret_cast<const char*>(dummy);
  for (const TierInternals& tier : tierInternals()) {
    SCOPED_TRACE(tier.name);
    const bool shuffles = std::string(tier.name) != "m7";
    const SwapRoad shuffle = shuffles ? SwapRoad::kShuffle : SwapRoad::kPixels;
    EXPECT_EQ(tier.planSwapC4I(base, 32, {8, 2}), shuffle);
    EXPECT_EQ(tier.planSwapC4I(base, 32, {7, 2}), SwapRoad::kPixels);
    EXPECT_EQ(tier.planSwapC4I(base + 2, 32, {8, 2}), SwapRoad::kPixels);
    EXPECT_EQ(tier.planSwapC4I(base, 34, {8, 2}), SwapRoad::kPixels);
  }
}

TEST(SwapThreeChannels, EveryOrderMatchesTheReferenceOnEveryTierAndKeepsTheFourthChannel) {
  for (int code = 0; code < 27; ++code) {
    const int order[3] = {code % 3, (code / 3) % 3, code / 9};
    SCOPED_TRACE(::testing::Message() << "order " << order[0] << order[1] << order[2]);
    expectSameOnEveryTier([&] { return swapThreeAndCheck(9, 3, 0, 0, 0, order); });
    expectSameOnEveryTier([&] { return swapThreeAndCheck(10, 3, 3, 1, 2, order); });
    expectSameOnEveryTier([&] { return swapThreeAndCheck(21, 4, 0, 0, 0, order, 0); });
  }
}

TEST(SwapThreeChannels, EveryShapeMatchesTheReferenceOnEveryTier) {
  for (int width : {1, 3, 4, 5, 8, 16, 17, 63, 200})
    for (int padding : {0, 1, 4})
      for (int offset : {0, 2, 4}) {
        SCOPED_TRACE(::testing::Message() << "width " << width << " padding " << padding << " offset " << offset);
        expectSameOnEveryTier([&] { return swapThreeAndCheck(width, 5, padding, offset, offset, kReverse); });
      }
}

TEST(SwapThreeChannels, M7TakesItsDedicatedKernelForTwoOneZeroOnSmallAlignedImages) {
  int dummy[4];
  const char* base = reinterpret_cast<const char*>(dummy);
  const TierInternals& m7 = internalsOf("m7");
  const int other[3] = {2, 0, 1};
  EXPECT_EQ(m7.planSwapAC4(base, 400, base, 400, {100, 399}, kReverse), SwapRoad::kDedicated210);
  EXPECT_EQ(m7.planSwapAC4(base, 400, base, 400, {100, 400}, kReverse), SwapRoad::kPixels);  // 160000 bytes
  EXPECT_EQ(m7.planSwapAC4(base, 400, base, 400, {100, 399}, other), SwapRoad::kPixels);
  EXPECT_EQ(m7.planSwapAC4(base + 1, 400, base, 400, {100, 399}, kReverse), SwapRoad::kPixels);
  EXPECT_EQ(m7.planSwapAC4(base, 400, base + 2, 400, {100, 399}, kReverse), SwapRoad::kPixels);
  EXPECT_EQ(m7.planSwapAC4(base, 402, base, 400, {100, 399}, kReverse), SwapRoad::kPixels);
  EXPECT_EQ(m7.planSwapAC4(base, 400, base, 401, {100, 399}, kReverse), SwapRoad::kPixels);
  // Around the limit the two m7 kernels and the other tiers give the same bytes.
  for (int height : {399, 400})
    for (int extraDstPadding : {0, 4}) {
      SCOPED_TRACE(::testing::Message() << "height " << height << " extra padding " << extraDstPadding);
      expectSameOnEveryTier([&] { return swapThreeAndCheck(100, height, 0, 0, 0, kReverse, extraDstPadding); });
    }
}

}  // namespace
}  // namespace qvtest
