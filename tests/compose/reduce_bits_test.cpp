// ippiReduceBits_8u_C4R and imageLibReduceBits:noise:levels:reduceType: against the plain
// reference of every kernel.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "qvimage/QVILConversion.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"
#include "reference.h"
#include "support/images.h"
#include "support/log_capture.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

struct Shape {
  int width, height, padding, offset;
};
const Shape kShapes[] = {{1, 6, 0, 0}, {1, 1, 4, 3}, {7, 5, 12, 1}, {13, 9, 4, 8}, {2, 3, 0, 0}, {33, 4, 28, 2}};

std::vector<uint8_t> reduced(const TestImage& source, int noise, int type, int levels, int padding, int offset) {
  TestImage out(source.width(), source.height(), 4, padding, offset);
  EXPECT_EQ(ippiReduceBits_8u_C4R(source.data(), source.step(), out.data(), out.step(), out.size(), noise,
                                  static_cast<IppiDitherType>(type), levels),
            ippStsNoErr);
  EXPECT_TRUE(out.surroundingsIntact());
  return out.pixels();
}

TEST(ReduceBits, EveryTypeNoiseAndLevelMatchesTheReference) {
  for (int type = 0; type <= 4; ++type) {
    for (int noise : {0, 1, 100}) {
      for (int levels : {2, 3, 16, 256}) {
        for (const Shape& shape : kShapes) {
          SCOPED_TRACE(::testing::Message() << "type " << type << " noise " << noise << " levels " << levels << " "
                                            << shape.width << "x" << shape.height);
          TestImage source(shape.width, shape.height, 4, shape.padding, shape.offset);
          source.fillRandom(static_cast<uint32_t>(type * 1000 + levels + shape.width));
          const std::vector<uint8_t> expected =
              reference::reduceBits(source.pixels(), shape.width, shape.height, noise, type, levels);
          qvtest::expectSameOnEveryTier([&] {
            const std::vector<uint8_t> result = reduced(source, noise, type, levels, shape.padding + 4, shape.offset);
            EXPECT_EQ(result, expected);
            return result;
          });
        }
      }
    }
  }
}

// A larger image, so that the noise tables wrap around and error rows travel far.
TEST(ReduceBits, ALargeImageMatchesTheReferenceOnEveryTier) {
  TestImage source(1100, 6, 4, 8, 4);
  source.fillRandom(2024);
  for (int type = 1; type <= 4; ++type) {
    SCOPED_TRACE(type);
    const std::vector<uint8_t> expected = reference::reduceBits(source.pixels(), 1100, 6, 37, type, 5);
    qvtest::expectSameOnEveryTier([&] {
      const std::vector<uint8_t> result = reduced(source, 37, type, 5, 0, 0);
      EXPECT_EQ(result, expected);
      return result;
    });
  }
}

TEST(ReduceBits, WorksInPlace) {
  TestImage image(9, 7, 4, 4, 0);
  image.fillRandom(5);
  for (int type = 0; type <= 4; ++type) {
    image.fillRandom(5 + static_cast<uint32_t>(type));
    const std::vector<uint8_t> expected = reference::reduceBits(image.pixels(), 9, 7, 20, type, 4);
    ASSERT_EQ(ippiReduceBits_8u_C4R(image.data(), image.step(), image.data(), image.step(), image.size(), 20,
                                    static_cast<IppiDitherType>(type), 4),
              ippStsNoErr);
    EXPECT_EQ(image.pixels(), expected);
  }
}

TEST(ReduceBits, FloydSteinbergAt256LevelsReturnsTheImageUnchanged) {
  TestImage source(17, 11, 4, 4, 1);
  source.fillRandom(77);
  qvtest::onEveryTier([&](const qvtest::Tier&) { EXPECT_EQ(reduced(source, 0, 1, 256, 0, 0), source.pixels()); });
}

TEST(ReduceBits, TwoLevelsGiveOnlyZeroAnd255) {
  TestImage source(15, 9, 4);
  source.fillRandom(78);
  for (int type = 0; type <= 4; ++type) {
    for (int noise : {0, 50}) {
      for (uint8_t value : reduced(source, noise, type, 2, 0, 0)) EXPECT_TRUE(value == 0 || value == 255);
    }
  }
}

// A value of 255 leaves no error, whatever the noise.
TEST(ReduceBits, SaturatedAreasStayAndLeaveNoError) {
  TestImage white(12, 6, 4);
  white.fill(255);
  for (int type = 0; type <= 4; ++type)
    for (int noise : {0, 1, 100}) EXPECT_EQ(reduced(white, noise, type, 3, 0, 0), white.pixels());
}

// Channel 0 of one row at two levels: 100 gives 0 and an error of 100; 255 plus 7/16 of it
// passes 255, is clamped and drops its error, so 120 alone follows and gives 0. Had the error
// of the clamped pixel been kept (298.75 - 255), the third value would be about 139 and give 255.
TEST(ReduceBits, TheClampDropsTheError) {
  TestImage source(3, 1, 4);
  source.fill(0);
  source.row(0)[0] = 100;
  source.row(0)[4] = 255;
  source.row(0)[8] = 120;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    const std::vector<uint8_t> out = reduced(source, 0, 1, 2, 0, 0);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(out[4], 255);
    EXPECT_EQ(out[8], 0);
  });
}

// The alpha channel is quantised like the colours.
TEST(ReduceBits, AlphaIsQuantisedToo) {
  TestImage source(2, 1, 4);
  const uint8_t pixels[8] = {10, 20, 30, 200, 250, 240, 5, 50};
  std::memcpy(source.row(0), pixels, 8);
  const std::vector<uint8_t> out = reduced(source, 0, 0, 2, 0, 0);
  EXPECT_EQ(out, (std::vector<uint8_t>{0, 0, 0, 255, 255, 255, 0, 0}));
}

// The error rows are not cleared between channels: channel 1 of a one-row image sees channel
// 0's last errors in its row above.
TEST(ReduceBits, ErrorRowsCarryFromOneChannelToTheNext) {
  TestImage source(1, 1, 4);
  const uint8_t pixel[4] = {60, 50, 0, 0};
  // Three levels, a step of 127.5. Channel 0: 60 is below half a step (63.75) and gives 0 with an
  // error of 60. Channel 1: 50 + 5/16 * 60 = 68.75 passes half a step and gives 127, where 50
  // alone would give 0.
  std::memcpy(source.row(0), pixel, 4);
  const std::vector<uint8_t> out = reduced(source, 0, 1, 3, 0, 0);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(out[1], 127);
}

TEST(ReduceBits, TwoCallsGiveIdenticalPixels) {
  TestImage source(29, 13, 4, 4, 2);
  source.fillRandom(79);
  for (int type = 0; type <= 4; ++type) {
    for (int noise : {0, 1, 100})
      EXPECT_EQ(reduced(source, noise, type, 7, 0, 0), reduced(source, noise, type, 7, 0, 0));
  }
}

TEST(ReduceBits, NoiseOneSelectsTheNoiseKernels) {
  TestImage source(64, 64, 4);
  for (int y = 0; y < 64; ++y)
    for (int x = 0; x < 256; ++x) source.row(y)[x] = static_cast<uint8_t>(x / 2 + y);
  for (int type = 1; type <= 4; ++type) {
    SCOPED_TRACE(type);
    const std::vector<uint8_t> withNoise = reduced(source, 1, type, 3, 0, 0);
    EXPECT_NE(withNoise, reduced(source, 0, type, 3, 0, 0));
    EXPECT_EQ(withNoise, reference::reduceBits(source.pixels(), 64, 64, 1, type, 3));
  }
  // The type none has no noise form.
  EXPECT_EQ(reduced(source, 1, 0, 3, 0, 0), reduced(source, 0, 0, 3, 0, 0));
}

// Rows 0 and 4 of a flat image share their Bayer entries; only the 2 y term of the noise index
// moves their thresholds apart.
TEST(ReduceBits, RandomThresholdsDifferFromRowToRow) {
  TestImage flat(256, 5, 4);
  flat.fill(100);
  const std::vector<uint8_t> out = reduced(flat, 100, 4, 4, 0, 0);
  EXPECT_NE(std::vector<uint8_t>(out.begin(), out.begin() + 1024), std::vector<uint8_t>(out.begin() + 4096, out.end()));
  EXPECT_EQ(reduced(flat, 0, 4, 4, 0, 0).size(), out.size());
}

struct ReduceStatusCase {
  const char* what;
  bool nullSource, nullDestination;
  IppiSize size;
  int noise, type, levels;
  IppStatus expected;
};

TEST(ReduceBits, StatusesComeInTheOrderOfTheChecksAndNothingIsWritten) {
  const ReduceStatusCase cases[] = {
      {"null source before every other check", true, false, {0, 0}, 500, 9, 1, ippStsNullPtrErr},
      {"null destination", false, true, {0, 0}, 500, 9, 1, ippStsNullPtrErr},
      {"zero width before noise and levels", false, false, {0, 3}, 500, 9, 1, ippStsSizeErr},
      {"negative height", false, false, {3, -1}, 0, 0, 2, ippStsSizeErr},
      {"noise 101 before levels", false, false, {3, 3}, 101, 9, 1, ippStsNoiseValErr},
      {"noise -1, read as unsigned", false, false, {3, 3}, -1, 0, 2, ippStsNoiseValErr},
      {"levels 1 before the type", false, false, {3, 3}, 100, 9, 1, ippStsDitherLevelsErr},
      {"levels 257", false, false, {3, 3}, 0, 1, 257, ippStsDitherLevelsErr},
      {"levels 0", false, false, {3, 3}, 0, 1, 0, ippStsDitherLevelsErr},
      {"type 5 succeeds without writing", false, false, {3, 3}, 0, 5, 2, ippStsNoErr},
      {"type -1 succeeds without writing", false, false, {3, 3}, 100, -1, 256, ippStsNoErr},
  };
  TestImage source(3, 3, 4, 4);
  source.fillRandom(80);
  for (const ReduceStatusCase& c : cases) {
    SCOPED_TRACE(c.what);
    qvtest::onEveryTier([&](const qvtest::Tier&) {
      TestImage out(3, 3, 4, 4, 1);
      out.fill(0x5A);
      const std::vector<uint8_t> before = out.allBytes();
      EXPECT_EQ(ippiReduceBits_8u_C4R(c.nullSource ? nullptr : source.data(), source.step(),
                                      c.nullDestination ? nullptr : out.data(), out.step(), c.size, c.noise,
                                      static_cast<IppiDitherType>(c.type), c.levels),
                c.expected);
      EXPECT_EQ(out.allBytes(), before);
    });
  }
}

void* failingMalloc(size_t) { return nullptr; }

// With the allocator hook failing, every kernel that needs scratch answers ippStsMemAllocErr
// and writes nothing; Bayer without noise and the type none need none.
TEST(ReduceBits, AFailedAllocationAnswersMemAllocErrAndWritesNothing) {
  TestImage source(5, 4, 4);
  source.fillRandom(81);
  struct Case {
    int type, noise;
    IppStatus expected;
  };
  const Case cases[] = {{1, 0, ippStsMemAllocErr}, {1, 5, ippStsMemAllocErr}, {2, 0, ippStsMemAllocErr},
                        {3, 5, ippStsMemAllocErr}, {4, 5, ippStsMemAllocErr}, {4, 0, ippStsNoErr},
                        {0, 5, ippStsNoErr}};
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "type " << c.type << " noise " << c.noise);
    TestImage out(5, 4, 4);
    out.fill(0x5A);
    const std::vector<uint8_t> before = out.allBytes();
    void* (*saved)(size_t) = i_malloc;
    i_malloc = failingMalloc;
    const IppStatus status = ippiReduceBits_8u_C4R(source.data(), source.step(), out.data(), out.step(), out.size(),
                                                   c.noise, static_cast<IppiDitherType>(c.type), 4);
    i_malloc = saved;
    EXPECT_EQ(status, c.expected);
    if (c.expected != ippStsNoErr) {
      EXPECT_EQ(out.allBytes(), before);
    }
  }
}

// --- the public operation ---

std::vector<uint8_t> publicReduce(const TestImage& source, int32_t noise, int32_t levels, int32_t reduceType) {
  TestImage image(source.width(), source.height(), 4, 8, 0);
  for (int y = 0; y < source.height(); ++y) std::memcpy(image.row(y), source.row(y), source.rowBytes());
  vImage_Buffer buffer = image.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibReduceBits(&buffer, noise, levels, reduceType));
  EXPECT_TRUE(image.surroundingsIntact());
  return image.pixels();
}

// reduceType 1 is Stucki and 3 Jarvis-Judice-Ninke, the other way about from the primitive.
TEST(ReduceBitsPublic, ReduceTypesMapToTheirDitherTypes) {
  TestImage source(19, 8, 4);
  source.fillRandom(90);
  const int primitiveTypeOf[5] = {0, 3, 1, 2, 4};
  for (int reduceType = 0; reduceType <= 4; ++reduceType) {
    SCOPED_TRACE(reduceType);
    for (int noise : {0, 30}) {
      EXPECT_EQ(publicReduce(source, noise, 4, reduceType),
                reference::reduceBits(source.pixels(), 19, 8, noise, primitiveTypeOf[reduceType], 4));
    }
  }
  EXPECT_NE(publicReduce(source, 0, 4, 1), publicReduce(source, 0, 4, 3));
}

TEST(ReduceBitsPublic, AReduceTypeAbove4ChangesNothing) {
  TestImage source(6, 5, 4);
  source.fillRandom(91);
  for (int32_t reduceType : {5, 6, 100, -1, INT32_MIN})
    EXPECT_EQ(publicReduce(source, 10, 2, reduceType), source.pixels());
}

TEST(ReduceBitsPublic, RefusalsAnswerTrueWithTheImageUnchangedAndNoLogLine) {
  qvtest::LogCapture log;
  TestImage source(6, 5, 4);
  source.fillRandom(92);
  EXPECT_EQ(publicReduce(source, 101, 4, 2), source.pixels());
  EXPECT_EQ(publicReduce(source, -1, 4, 2), source.pixels());
  EXPECT_EQ(publicReduce(source, 0, 1, 2), source.pixels());
  EXPECT_EQ(publicReduce(source, 0, 257, 2), source.pixels());
  vImage_Buffer nullData{nullptr, 5, 6, 24};
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibReduceBits(&nullData, 0, 4, 2));
  TestImage image(6, 5, 4);
  image.fillRandom(93);
  const std::vector<uint8_t> before = image.allBytes();
  vImage_Buffer empty = image.buffer();
  empty.height = 0;
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibReduceBits(&empty, 0, 4, 2));
  EXPECT_EQ(image.allBytes(), before);
  EXPECT_TRUE(log.lines().empty());
}

}  // namespace
