// QVILResize rotation and affine warp: the mode tables, the shifts to the bound, the log line of
// the RGBA rotation, and the silence of the planar operations.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "qvimage/QVILResize.h"
#include "qvimage/qvimage.h"
#include "support/images.h"
#include "support/log_capture.h"
#include "warp/warp_images.h"
#include "warp/warp_reference.h"

namespace {

using qvtest::TestImage;
using warptest::Image;
using warptest::Kind;

const std::string kPrefix = "QVImageLib mirror operation failed with error: ";

QVILResize* resize() { return QVILResize::sharedInstance(); }

// The rotation the public operation makes: the bound's upper left corner moved to (0, 0).
std::vector<uint8_t> rotatedByPrimitive(Kind kind, const Image& src, int dstWidth, int dstHeight, float angle, int word,
                                        uint32_t background = 50) {
  double bound[2][2];
  EXPECT_EQ(ippiGetRotateBound({0, 0, src.width, src.height}, bound, angle, 0, 0), ippStsNoErr);
  Image dst =
      background != 0 ? warptest::randomImage(kind, dstWidth, dstHeight, background) : Image(kind, dstWidth, dstHeight);
  EXPECT_EQ(warptest::rotate(src, {src.width, src.height}, {0, 0, src.width, src.height}, dst,
                             {0, 0, dstWidth, dstHeight}, angle, -bound[0][0], -bound[0][1], word),
            ippStsNoErr);
  return dst.bytes;
}

TEST(RotatePublic, RGBAModeTableAndShifts) {
  const int filters[] = {IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC};
  for (uint64_t bits : {8u, 16u})
    for (int32_t mode : {0, 1, 2, 3, 7, -1, 1000})
      for (float angle : {30.0f, -17.5f, 90.0f, 200.0f}) {
        SCOPED_TRACE(testing::Message() << bits << " bits, mode " << mode << ", angle " << angle);
        const Kind kind = bits == 8 ? Kind::u8c4 : Kind::u16c4;
        const Image src = warptest::randomImage(kind, 13, 9, static_cast<uint32_t>(mode + 10));
        const int word = filters[mode == 0 ? 0 : mode == 1 ? 1 : 2] | IPPI_SMOOTH_EDGE;
        TestImage dst = warptest::toTestImage(warptest::randomImage(kind, 20, 18, 50), 8, 0);
        TestImage from = warptest::toTestImage(src, 4, 0);
        vImage_Buffer source = from.buffer(), destination = dst.buffer();
        qvtest::LogCapture log;
        EXPECT_TRUE(resize()->imageLibRotateRGBA(&source, &destination, mode, angle, bits));
        EXPECT_TRUE(log.lines().empty());
        EXPECT_EQ(warptest::fromTestImage(dst, kind).bytes, rotatedByPrimitive(kind, src, 20, 18, angle, word));
        EXPECT_TRUE(dst.surroundingsIntact());
      }
}

// A 3 x 2 picture turned by 90: the bound's least y is -2, so the shift is 2 and the turn is
// exact; the region of the destination is its own size.
TEST(RotatePublic, QuarterTurnOfAThreeByTwoPicture) {
  const Image src = warptest::randomImage(Kind::u8c4, 3, 2, 4);
  TestImage dst(2, 3, 4);
  dst.fill(0);
  TestImage from = warptest::toTestImage(src, 0, 0);
  vImage_Buffer source = from.buffer(), destination = dst.buffer();
  ASSERT_TRUE(resize()->imageLibRotateRGBA(&source, &destination, 1, 90.0f, 8));
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 2; ++x)
      for (int c = 0; c < 4; ++c) EXPECT_EQ(dst.row(y)[4 * x + c], src.sample(2 - y, x, c)) << x << "," << y;
}

// A destination smaller than the turned picture is filled as far as it reaches, without an error.
TEST(RotatePublic, SmallerDestinationIsFilledAsFarAsItReaches) {
  const Image src = warptest::randomImage(Kind::u8c4, 9, 7, 5);
  // The turned box is 7 x 9 (a quarter), 9 x 7 (a half) and 11 x 10 (33 degrees, whose corners are
  // empty: a destination there must reach into the picture).
  for (const auto& [angle, width, height] :
       std::vector<std::tuple<float, int, int>>{{90.0f, 4, 3}, {180.0f, 4, 3}, {33.0f, 9, 8}}) {
    TestImage dst(width, height, 4, 4, 0);
    dst.fill(0);
    TestImage from = warptest::toTestImage(src, 0, 0);
    vImage_Buffer source = from.buffer(), destination = dst.buffer();
    qvtest::LogCapture log;
    EXPECT_TRUE(resize()->imageLibRotateRGBA(&source, &destination, 1, angle, 8));
    EXPECT_TRUE(log.lines().empty());
    EXPECT_EQ(warptest::fromTestImage(dst, Kind::u8c4).bytes,
              rotatedByPrimitive(Kind::u8c4, src, width, height, angle, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE, 0));
    EXPECT_TRUE(dst.surroundingsIntact());
  }
}

TEST(RotatePublic, OtherDepthsDoNothingAndAnswerTrue) {
  TestImage src(6, 6, 4), dst(6, 6, 4);
  src.fillRandom(1);
  dst.fillRandom(2);
  const std::vector<uint8_t> before = dst.allBytes();
  vImage_Buffer source = src.buffer(), destination = dst.buffer();
  source.data = nullptr;  // not even looked at
  qvtest::LogCapture log;
  for (uint64_t bits : {0u, 12u, 32u}) EXPECT_TRUE(resize()->imageLibRotateRGBA(&source, &destination, 1, 30, bits));
  EXPECT_EQ(dst.allBytes(), before);
  EXPECT_TRUE(log.lines().empty());
}

TEST(RotatePublic, RGBAFailuresAreLoggedWithTheMirrorsMessage) {
  struct Failure {
    vImage_Buffer source, destination;
    float angle;
    IppStatus status;
  };
  TestImage src(6, 5, 8), dst(9, 9, 8), thin(1, 5, 8);
  src.fillRandom(3);
  thin.fillRandom(4);
  dst.fillRandom(5);
  vImage_Buffer noData = src.buffer();
  noData.data = nullptr;
  vImage_Buffer empty = src.buffer();
  empty.height = 0x100000000ull;  // cut to 0
  const std::vector<Failure> failures = {
      {src.buffer(), dst.buffer(), INFINITY, ippStsOutOfRangeErr},
      {noData, dst.buffer(), 30, ippStsNullPtrErr},
      {noData, dst.buffer(), 90, ippStsNullPtrErr},
      {empty, dst.buffer(), 30, ippStsSizeErr},
      {thin.buffer(), dst.buffer(), 30, ippStsRectErr},
  };
  for (uint64_t bits : {8u, 16u})
    for (const Failure& failure : failures) {
      const std::vector<uint8_t> before = dst.allBytes();
      vImage_Buffer source = failure.source, destination = failure.destination;
      qvtest::LogCapture log;
      EXPECT_FALSE(resize()->imageLibRotateRGBA(&source, &destination, 2, failure.angle, bits));
      ASSERT_EQ(log.lines().size(), 1u);
      EXPECT_EQ(log.lines()[0], kPrefix + ippGetStatusString(failure.status));
      EXPECT_EQ(dst.allBytes(), before);
    }
  // A source one pixel wide turned by a quarter is exact, and accepted.
  vImage_Buffer source = thin.buffer(), destination = dst.buffer();
  EXPECT_TRUE(resize()->imageLibRotateRGBA(&source, &destination, 2, 90, 16));
}

TEST(RotatePublic, PlanarModeTableAndSilence) {
  const int words[] = {IPPI_INTER_NN | IPPI_SMOOTH_EDGE, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE,
                       IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE};
  const Image src = warptest::randomImage(Kind::u8c1, 12, 7, 6);
  for (int32_t mode : {0, 1, 2})
    for (float angle : {0.0f, 33.0f, 180.0f, 271.0f}) {
      TestImage dst = warptest::toTestImage(warptest::randomImage(Kind::u8c1, 16, 16, 50), 5, 3);
      TestImage from = warptest::toTestImage(src, 3, 0);
      vImage_Buffer source = from.buffer(), destination = dst.buffer();
      qvtest::LogCapture log;
      EXPECT_TRUE(resize()->imageLibRotateIntelPlanar8(&source, &destination, mode, angle));
      EXPECT_EQ(warptest::fromTestImage(dst, Kind::u8c1).bytes,
                rotatedByPrimitive(Kind::u8c1, src, 16, 16, angle, words[mode]));
      EXPECT_TRUE(log.lines().empty());
    }
  // Any other mode gives the smooth-edge flag alone: nothing is written, true, no log. Failures
  // are silent too.
  for (int32_t mode : {3, -1, 99}) {
    TestImage dst(16, 16, 1), from = warptest::toTestImage(src, 0, 0);
    dst.fillRandom(7);
    const std::vector<uint8_t> before = dst.allBytes();
    vImage_Buffer source = from.buffer(), destination = dst.buffer();
    qvtest::LogCapture log;
    EXPECT_TRUE(resize()->imageLibRotateIntelPlanar8(&source, &destination, mode, 30));
    source.data = nullptr;
    EXPECT_TRUE(resize()->imageLibRotateIntelPlanar8(&source, &destination, 1, 30));
    EXPECT_TRUE(resize()->imageLibRotateIntelPlanar8(&source, &destination, 1, NAN));
    EXPECT_EQ(dst.allBytes(), before);
    EXPECT_TRUE(log.lines().empty());
  }
}

TEST(AffineWarpPublic, TransformModeTableAndSilence) {
  const int words[] = {IPPI_INTER_NN | IPPI_SMOOTH_EDGE, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE,
                       IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE};
  const Image src = warptest::randomImage(Kind::u8c1, 14, 10, 8);
  const vImage_AffineTransform transform{0.9f, 0.3f, -0.25f, 1.1f, 2.5f, -1.0f};
  // x' = a x + c y + tx, y' = b x + d y + ty.
  const warptest::Affine coeffs{{{transform.a, transform.c, transform.tx}, {transform.b, transform.d, transform.ty}}};
  for (int32_t mode : {0, 1, 2}) {
    Image expected = warptest::randomImage(Kind::u8c1, 18, 15, 51);
    ASSERT_EQ(warptest::warpAffine(src, {14, 10}, {0, 0, 14, 10}, expected, {0, 0, 18, 15}, coeffs, words[mode]),
              ippStsNoErr);
    TestImage dst = warptest::toTestImage(warptest::randomImage(Kind::u8c1, 18, 15, 51), 6, 2);
    TestImage from = warptest::toTestImage(src, 2, 1);
    vImage_Buffer source = from.buffer(), destination = dst.buffer();
    qvtest::LogCapture log;
    EXPECT_TRUE(resize()->imageLibAffineWarpIntelPlanar8(&source, &destination, mode, transform));
    EXPECT_EQ(warptest::fromTestImage(dst, Kind::u8c1).bytes, expected.bytes);
    EXPECT_TRUE(dst.surroundingsIntact());
    EXPECT_TRUE(log.lines().empty());
  }
}

// Mode 5, a map with a zero determinant, a quad outside: true, nothing written, nothing logged.
TEST(AffineWarpPublic, RefusedWarpsStillAnswerTrue) {
  TestImage src(8, 8, 1), dst(8, 8, 1);
  src.fillRandom(9);
  dst.fillRandom(10);
  const std::vector<uint8_t> before = dst.allBytes();
  vImage_Buffer source = src.buffer(), destination = dst.buffer();
  qvtest::LogCapture log;
  EXPECT_TRUE(resize()->imageLibAffineWarpIntelPlanar8(&source, &destination, 5, {1, 0, 0, 1, 0, 0}));
  EXPECT_TRUE(resize()->imageLibAffineWarpIntelPlanar8(&source, &destination, -1, {1, 0, 0, 1, 0, 0}));
  EXPECT_TRUE(resize()->imageLibAffineWarpIntelPlanar8(&source, &destination, 1, {1, 2, 2, 4, 0, 0}));
  EXPECT_TRUE(resize()->imageLibAffineWarpIntelPlanar8(&source, &destination, 1, {1, 0, 0, 1, 100, 0}));
  source.data = nullptr;
  EXPECT_TRUE(resize()->imageLibAffineWarpIntelPlanar8(&source, &destination, 1, {1, 0, 0, 1, 0, 0}));
  EXPECT_EQ(dst.allBytes(), before);
  EXPECT_TRUE(log.lines().empty());
}

}  // namespace
