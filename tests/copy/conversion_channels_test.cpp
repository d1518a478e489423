// The public copy, fill and channel operations of QVILConversion: their answers and effects on
// every tier, the dropped statuses, and the refused bit depth of the RGBA copy.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "copy/copy_support.h"
#include "qvimage/QVILConversion.h"
#include "support/log_capture.h"
#include "support/tiers.h"

namespace qvtest {
namespace {

class ConversionChannels : public ::testing::Test {
 protected:
  // The shared instance first: its creation selects the tier, which the tests then force.
  void SetUp() override { conversion = QVILConversion::sharedInstance(); }
  QVILConversion* conversion = nullptr;
};

TEST_F(ConversionChannels, CopyPlanar8CopiesTheDestinationsRegion) {
  onEveryTier([&](const Tier&) {
    TestImage src(23, 9, 1, 5, 3);
    TestImage dst(17, 6, 1, 2, 1);
    src.fillRandom(1);
    vImage_Buffer from = src.buffer();
    vImage_Buffer to = dst.buffer();
    EXPECT_TRUE(conversion->imageLibCopyPlanar8(&from, &to));
    for (int y = 0; y < 6; ++y) EXPECT_EQ(0, std::memcmp(dst.row(y), src.row(y), 17));
    EXPECT_TRUE(dst.surroundingsIntact());
  });
}

TEST_F(ConversionChannels, ZeroWidthAnswersYesAndWritesNothing) {
  onEveryTier([&](const Tier&) {
    TestImage src(8, 4, 4);
    TestImage dst(8, 4, 4);
    src.fillRandom(2);
    const auto before = dst.allBytes();
    vImage_Buffer from = src.buffer();
    vImage_Buffer to = dst.buffer();
    to.width = 0;
    from.width = 0;
    EXPECT_TRUE(conversion->imageLibCopyPlanar8(&from, &to));
    EXPECT_TRUE(conversion->imageLibCopyPlanar8ToRGBA8888(&from, &to));
    EXPECT_TRUE(conversion->imageLibCopyRGBA8888SelectedChannel(&from, &to));
    EXPECT_TRUE(conversion->imageLibSetPlanar8(&to, 3));
    const uint8_t value[4] = {1, 2, 3, 4};
    EXPECT_TRUE(conversion->imageLibSetRGBA8888(&to, value));
    EXPECT_TRUE(conversion->imageLibConvertARGBtoBGRA(&to));
    EXPECT_TRUE(conversion->imageLibConvertARGBtoBGRA8888(&to));
    EXPECT_TRUE(conversion->imageLibCopyRGBA(&from, &to, 0, 8));
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST_F(ConversionChannels, ANullDestinationAnswersYesWithNothingDone) {
  TestImage src(8, 4, 4);
  src.fillRandom(3);
  const auto before = src.allBytes();
  vImage_Buffer from = src.buffer();
  vImage_Buffer to{nullptr, 4, 8, 32};
  EXPECT_TRUE(conversion->imageLibCopyRGBA8888(&from, &to));
  EXPECT_TRUE(conversion->imageLibCopyPlanar8(&from, &to));
  EXPECT_TRUE(conversion->imageLibCopyRGBA8888SelectedChannel(&from, &to));
  EXPECT_TRUE(conversion->imageLibSetPlanar8(&to, 1));
  EXPECT_TRUE(conversion->imageLibConvertARGBtoBGRA8888(&to));
  EXPECT_EQ(src.allBytes(), before);
  // A null fill value is refused by the primitive; the answer is YES all the same.
  EXPECT_TRUE(conversion->imageLibSetRGBA8888(&from, nullptr));
  EXPECT_EQ(src.allBytes(), before);
}

TEST_F(ConversionChannels, Planar8ToRGBA8888WritesTheValueToAllFourChannels) {
  onEveryTier([&](const Tier&) {
    TestImage src(19, 7, 1, 3, 1);
    TestImage dst(13, 5, 4, 8, 2);
    src.fillRandom(4);
    vImage_Buffer from = src.buffer();
    vImage_Buffer to = dst.buffer();
    EXPECT_TRUE(conversion->imageLibCopyPlanar8ToRGBA8888(&from, &to));
    for (int y = 0; y < 5; ++y)
      for (int x = 0; x < 13; ++x)
        for (int c = 0; c < 4; ++c) EXPECT_EQ(dst.row(y)[4 * x + c], src.row(y)[x]);
    EXPECT_TRUE(dst.surroundingsIntact());
  });
}

TEST_F(ConversionChannels, SelectedChannelIsTheOneTheDataPointsAtWithTheSourcesRegion) {
  for (int channel = 0; channel < 4; ++channel) {
    SCOPED_TRACE(::testing::Message() << "channel " << channel);
    expectSameOnEveryTier([&] {
      TestImage src(21, 6, 4, 4, 0);
      TestImage dst(21, 6, 1, 3, 1);
      src.fillRandom(5);
      vImage_Buffer from = src.buffer();
      from.data = src.data() + channel;
      vImage_Buffer to = dst.buffer();
      to.width = 1000;  // never read: the region is the source's
      to.height = 1000;
      EXPECT_TRUE(conversion->imageLibCopyRGBA8888SelectedChannel(&from, &to));
      for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 21; ++x) EXPECT_EQ(dst.row(y)[x], src.row(y)[4 * x + channel]);
      EXPECT_TRUE(dst.surroundingsIntact());
      return dst.pixels();
    });
  }
}

TEST_F(ConversionChannels, SetsFillTheBuffer) {
  expectSameOnEveryTier([&] {
    TestImage planar(33, 5, 1, 7, 3);
    TestImage rgba(29, 5, 4, 4, 5);
    vImage_Buffer one = planar.buffer();
    vImage_Buffer four = rgba.buffer();
    const uint8_t value[4] = {0x10, 0x20, 0x30, 0x40};
    EXPECT_TRUE(conversion->imageLibSetPlanar8(&one, 0xC3));
    EXPECT_TRUE(conversion->imageLibSetRGBA8888(&four, value));
    for (uint8_t byte : planar.pixels()) EXPECT_EQ(byte, 0xC3);
    const std::vector<uint8_t> pixels = rgba.pixels();
    for (size_t i = 0; i < pixels.size(); ++i) EXPECT_EQ(pixels[i], value[i % 4]);
    EXPECT_TRUE(planar.surroundingsIntact());
    EXPECT_TRUE(rgba.surroundingsIntact());
    std::vector<uint8_t> bytes = planar.pixels();
    const std::vector<uint8_t> more = rgba.pixels();
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
  });
}

TEST_F(ConversionChannels, ARGBtoBGRAReversesEachPixelAndTwiceRestores) {
  for (bool stackOrder : {false, true}) {
    SCOPED_TRACE(stackOrder ? "imageLibConvertARGBtoBGRA8888:" : "imageLibConvertARGBtoBGRA:");
    auto convert = [&](const vImage_Buffer* buffer) {
      return stackOrder ? conversion->imageLibConvertARGBtoBGRA8888(buffer)
                        : conversion->imageLibConvertARGBtoBGRA(buffer);
    };
    expectSameOnEveryTier([&] {
      TestImage image(27, 6, 4, 8, 4);
      image.fillRandom(6);
      const std::vector<uint8_t> original = image.pixels();
      const vImage_Buffer buffer = image.buffer();
      EXPECT_TRUE(convert(&buffer));
      const std::vector<uint8_t> once = image.pixels();
      for (size_t i = 0; i < once.size(); ++i) EXPECT_EQ(once[i], original[i - i % 4 + 3 - i % 4]);
      EXPECT_TRUE(convert(&buffer));
      EXPECT_EQ(image.pixels(), original);
      EXPECT_TRUE(image.surroundingsIntact());
      return once;
    });
  }
}

TEST_F(ConversionChannels, SwapChannelsIgnoresItsOrderLeavesTheDestinationUntouchedAndAnswersYes) {
  onEveryTier([&](const Tier&) {
    TestImage src(16, 4, 4);
    TestImage dst(16, 4, 4, 4, 1);
    src.fillRandom(7);
    dst.fillRandom(8);
    const auto before = dst.allBytes();
    const auto sourceBefore = src.allBytes();
    vImage_Buffer from = src.buffer();
    vImage_Buffer to = dst.buffer();
    const int32_t identity[4] = {0, 1, 2, 3};
    const int32_t reversed[3] = {2, 1, 0};
    EXPECT_TRUE(conversion->imageLibSwapChannels(&from, &to, identity));
    EXPECT_TRUE(conversion->imageLibSwapChannels(&from, &to, reversed));
    EXPECT_TRUE(conversion->imageLibSwapChannels(&from, &to, nullptr));
    EXPECT_EQ(dst.allBytes(), before);
    EXPECT_EQ(src.allBytes(), sourceBefore);
  });
}

TEST_F(ConversionChannels, SwapChannelsAsksThePrimitiveForAnOrderItRefuses) {
  TestImage src(4, 1, 4);
  TestImage dst(4, 1, 4);
  const int reversed[4] = {3, 2, 1, 0};
  EXPECT_EQ(ippiSwapChannels_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(), src.size(), reversed),
            ippStsChannelOrderErr);
}

TEST_F(ConversionChannels, CopyRGBARefusesTwelveBitsWithItsLogLineAndTouchesNothing) {
  TestImage src(9, 3, 8);
  TestImage dst(9, 3, 8);
  src.fillRandom(9);
  const auto sourceBefore = src.allBytes();
  const auto before = dst.allBytes();
  vImage_Buffer from = src.buffer();
  vImage_Buffer to = dst.buffer();
  LogCapture log;
  EXPECT_FALSE(conversion->imageLibCopyRGBA(&from, &to, 1, 12));
  ASSERT_EQ(log.lines().size(), 1u);
  EXPECT_NE(log.lines()[0].find("Error: -[QVILConversion imageLibCopyRGBA:dest:multithreadOptions:bitsPerChannel:] "
                                "unsupported bits per chanel: 12"),
            std::string::npos)
      << log.lines()[0];
  EXPECT_EQ(dst.allBytes(), before);
  EXPECT_EQ(src.allBytes(), sourceBefore);
}

TEST_F(ConversionChannels, CopyRGBACopiesEightAndSixteenBitImagesOnEveryTier) {
  for (uint64_t bits : {8u, 16u})
    for (uint32_t options : {0u, 1u, 2u, 0x30001u}) {
      SCOPED_TRACE(::testing::Message() << bits << " bits, options " << options);
      expectSameOnEveryTier([&] {
        const int bytesPerPixel = static_cast<int>(bits / 2);
        TestImage src(503, 509, bytesPerPixel, 4, 1);
        TestImage dst(503, 509, bytesPerPixel, 12, 2);
        src.fillRandom(static_cast<uint32_t>(bits + options));
        vImage_Buffer from = src.buffer();
        vImage_Buffer to = dst.buffer();
        LogCapture log;
        EXPECT_TRUE(conversion->imageLibCopyRGBA(&from, &to, options, bits));
        EXPECT_TRUE(log.lines().empty());
        EXPECT_EQ(dst.pixels(), src.pixels());
        EXPECT_TRUE(dst.surroundingsIntact());
        return dst.pixels();
      });
    }
}

}  // namespace
}  // namespace qvtest
