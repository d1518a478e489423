// Rotation: quarter turns as pure copies equal to index arithmetic, the half turn equal to the
// mirror over both axes, every other angle through the affine warp against the restatement,
// the rotated bound, and every status in the order of its test; all tiers alike.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "support/images.h"
#include "support/tiers.h"
#include "warp/tier_internals.h"
#include "warp/warp_images.h"
#include "warp/warp_reference.h"

namespace {

using warptest::Image;
using warptest::Kind;

struct RotateCase {
  Kind kind;
  Image src;
  IppiRect srcRoi;
  int dstWidth, dstHeight;
  IppiRect dstRoi;
  double angle, xShift, yShift;
  int word;
};

IppStatus callRotate(Kind kind, const uint8_t* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, uint8_t* dst,
                     int dstStep, IppiRect dstRoi, double angle, double xShift, double yShift, int word) {
  if (kind == Kind::u8c1)
    return ippiRotate_8u_C1R(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, angle, xShift, yShift, word);
  if (kind == Kind::u8c4)
    return ippiRotate_8u_C4R(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, angle, xShift, yShift, word);
  return ippiRotate_16u_C4R(reinterpret_cast<const Ipp16u*>(src), srcSize, srcStep, srcRoi,
                            reinterpret_cast<Ipp16u*>(dst), dstStep, dstRoi, angle, xShift, yShift, word);
}

void expectRotationEqualsReference(const RotateCase& c) {
  Image expected = warptest::randomImage(c.kind, c.dstWidth, c.dstHeight, 98);
  const IppiSize srcSize{c.src.width, c.src.height};
  const IppStatus expectedStatus =
      warptest::rotate(c.src, srcSize, c.srcRoi, expected, c.dstRoi, c.angle, c.xShift, c.yShift, c.word);
  qvtest::expectSameOnEveryTier([&] {
    qvtest::TestImage src = warptest::toTestImage(c.src, 8, 1);
    qvtest::TestImage dst = warptest::toTestImage(warptest::randomImage(c.kind, c.dstWidth, c.dstHeight, 98), 16, 2);
    EXPECT_EQ(callRotate(c.kind, src.data(), srcSize, src.step(), c.srcRoi, dst.data(), dst.step(), c.dstRoi, c.angle,
                         c.xShift, c.yShift, c.word),
              expectedStatus);
    EXPECT_EQ(warptest::fromTestImage(dst, c.kind).bytes, expected.bytes);
    EXPECT_TRUE(dst.surroundingsIntact());
    return dst.pixels();
  });
}

// Angles that reduce to 90, 180 and 270, whole shifts, regions and destinations of many sizes
// (a destination smaller than the turned box is filled as far as it reaches, without an error).
TEST(Rotate, QuarterTurnsEqualIndexArithmetic) {
  const std::vector<double> angles = {90, 180, 270, -90, -180, -270, 450, 630, 810, -630, 360000090, -360001170};
  const std::vector<std::array<int, 2>> sizes = {{1, 1}, {3, 2}, {5, 7}, {16, 3}, {17, 19}, {33, 40}};
  int variant = 0;
  for (Kind kind : {Kind::u8c1, Kind::u8c4, Kind::u16c4})
    for (const auto& size : sizes)
      for (double angle : angles) {
        ++variant;
        const int w = size[0], h = size[1];
        const double a = warptest::normalisedAngle(angle);
        // Shifts that bring the turned picture to the destination's origin, or part of it.
        const double xShift = a == 90 ? 0 : w - 1 - (variant % 3);
        const double yShift = a == 270 ? (variant % 2) : (a == 90 ? w - 1 : h - 1) + (variant % 4);
        const std::vector<IppiRect> srcRois = {{0, 0, w, h}, {0, 0, w + 4, h + 9}, {w / 2, h / 3, w, h}};
        const std::vector<std::array<int, 4>> dsts = {{45, 45, 0, 0}, {6, 5, 0, 0}, {45, 45, 3, 2}};
        const auto& d = dsts[static_cast<size_t>(variant) % dsts.size()];
        const RotateCase c{kind,
                           warptest::randomImage(kind, w, h, static_cast<uint32_t>(variant)),
                           srcRois[static_cast<size_t>(variant / 3) % srcRois.size()],
                           d[0],
                           d[1],
                           {d[2], d[3], d[0] - d[2], d[1] - d[3]},
                           angle,
                           xShift,
                           yShift,
                           variant % 2 ? IPPI_INTER_CUBIC : 12345};
        SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(kind) << " " << w << "x" << h << " angle "
                                        << angle << " shifts " << xShift << "," << yShift << " source region "
                                        << warptest::describe(c.srcRoi) << " destination region "
                                        << warptest::describe(c.dstRoi));
        expectRotationEqualsReference(c);
        if (HasFailure()) return;
      }
}

// Angles -90, 270 and 630 all reduce to 270 and give the same pixels.
TEST(Rotate, AnglesOfTheSameTurnGiveTheSamePixels) {
  const Image src = warptest::randomImage(Kind::u8c4, 7, 5, 3);
  std::vector<std::vector<uint8_t>> results;
  for (double angle : {-90.0, 270.0, 630.0}) {
    qvtest::TestImage dst(5, 7, 4);
    dst.fill(0);
    ASSERT_EQ(ippiRotate_8u_C4R(src.bytes.data(), {7, 5}, 28, {0, 0, 7, 5}, dst.data(), dst.step(), {0, 0, 5, 7}, angle,
                                4, 0, IPPI_INTER_LINEAR),
              ippStsNoErr);
    results.push_back(dst.pixels());
  }
  EXPECT_EQ(results[0], results[1]);
  EXPECT_EQ(results[0], results[2]);
}

// The interleaved members the exported rotations don't use (three channels, alpha left alone,
// other depths) through the driver inside each tier, against index arithmetic.
TEST(Rotate, QuarterTurnKernelsOfEveryInterleavedLayout) {
  struct Layout {
    int type, sampleBytes, channels, copied;
  };
  const Layout layouts[] = {{1, 1, 3, 3},  {2, 1, 4, 3},  {16, 2, 1, 1}, {17, 2, 3, 3}, {18, 2, 4, 3}, {8, 4, 1, 1},
                            {12, 4, 4, 4}, {10, 4, 4, 3}, {24, 8, 1, 1}, {25, 8, 3, 3}, {28, 8, 4, 4}, {26, 8, 4, 3}};
  const int w = 19, h = 6;
  for (const Layout& layout : layouts)
    for (double angle : {90.0, 180.0, 270.0}) {
      SCOPED_TRACE(testing::Message() << "type " << layout.type << " angle " << angle);
      const int pixelBytes = layout.sampleBytes * layout.channels;
      const std::vector<uint8_t> src = qvtest::randomBytes(static_cast<size_t>(w * h * pixelBytes), 5);
      const int side = 24;
      qvtest::expectSameOnEveryTier([&] {
        std::vector<uint8_t> dst = qvtest::randomBytes(static_cast<size_t>(side * side * pixelBytes), 6);
        const std::vector<uint8_t> before = dst;
        const double xs = angle == 90 ? 1 : w, ys = angle == 270 ? 2 : (angle == 90 ? w : h);
        EXPECT_EQ(
            warptest::currentInternals().rotate(src.data(), {w, h}, w * pixelBytes, {0, 0, w, h}, dst.data(),
                                                side * pixelBytes, {0, 0, side, side}, angle, xs, ys, 0, layout.type),
            ippStsNoErr);
        for (int y = 0; y < side; ++y)
          for (int x = 0; x < side; ++x) {
            int sx, sy;
            if (angle == 90)
              sx = static_cast<int>(ys) - y, sy = x - static_cast<int>(xs);
            else if (angle == 180)
              sx = static_cast<int>(xs) - x, sy = static_cast<int>(ys) - y;
            else
              sx = y - static_cast<int>(ys), sy = static_cast<int>(xs) - x;
            const bool inside = sx >= 0 && sx < w && sy >= 0 && sy < h;
            for (int b = 0; b < pixelBytes; ++b) {
              const size_t at = static_cast<size_t>((y * side + x) * pixelBytes + b);
              const bool copied = inside && b < layout.copied * layout.sampleBytes;
              EXPECT_EQ(dst[at], copied ? src[static_cast<size_t>((sy * w + sx) * pixelBytes + b)] : before[at])
                  << x << "," << y << " byte " << b;
            }
          }
        return dst;
      });
    }
}

// Turns of pictures larger than the caches store whole rows around the cache (where the rows are
// aligned): the same pixels.
TEST(Rotate, LargeQuarterTurnsEqualIndexArithmetic) {
  for (Kind kind : {Kind::u8c4, Kind::u16c4})
    for (double angle : {90.0, 270.0}) {
      SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(kind) << " angle " << angle);
      // More than 16 MiB read and written.
      const int w = kind == Kind::u8c4 ? 1501 : 1067, h = kind == Kind::u8c4 ? 1419 : 1003;
      const Image src = warptest::randomImage(kind, w, h, 77);
      const int pixelBytes = warptest::pixelBytesOf(kind);
      std::vector<uint8_t> expected(src.bytes.size());
      for (int y = 0; y < w; ++y)
        for (int x = 0; x < h; ++x) {
          const int sx = angle == 90 ? w - 1 - y : y, sy = angle == 90 ? x : h - 1 - x;
          std::memcpy(&expected[static_cast<size_t>(y * h + x) * pixelBytes], src.pixel(sx, sy),
                      static_cast<size_t>(pixelBytes));
        }
      qvtest::onEveryTier([&](const qvtest::Tier&) {
        qvtest::TestImage dst(h, w, pixelBytes, 64 - (h * pixelBytes) % 64, 0);
        EXPECT_EQ(callRotate(kind, src.bytes.data(), {w, h}, src.step(), {0, 0, w, h}, dst.data(), dst.step(),
                             {0, 0, h, w}, angle, angle == 90 ? 0 : h - 1, angle == 90 ? w - 1 : 0, IPPI_INTER_NN),
                  ippStsNoErr);
        EXPECT_TRUE(dst.pixels() == expected);
        EXPECT_TRUE(dst.surroundingsIntact());
      });
    }
}

TEST(Rotate, HalfTurnEqualsTheMirrorOverBothAxes) {
  for (Kind kind : {Kind::u8c4, Kind::u16c4})
    for (const auto& size : std::vector<std::array<int, 2>>{{2, 2}, {5, 3}, {17, 9}, {40, 33}}) {
      const int w = size[0], h = size[1];
      const Image src = warptest::randomImage(kind, w, h, static_cast<uint32_t>(w + h));
      const int pixelBytes = warptest::pixelBytesOf(kind);
      qvtest::TestImage turned(w, h, pixelBytes, 4, 0), mirrored(w, h, pixelBytes, 4, 0);
      ASSERT_EQ(callRotate(kind, src.bytes.data(), {w, h}, src.step(), {0, 0, w, h}, turned.data(), turned.step(),
                           {0, 0, w, h}, 180, w - 1, h - 1, IPPI_INTER_CUBIC),
                ippStsNoErr);
      if (kind == Kind::u8c4)
        ASSERT_EQ(ippiMirror_8u_C4R(src.bytes.data(), src.step(), mirrored.data(), mirrored.step(), {w, h}, ippAxsBoth),
                  ippStsNoErr);
      else
        ASSERT_EQ(ippiMirror_16u_C4R(reinterpret_cast<const Ipp16u*>(src.bytes.data()), src.step(),
                                     reinterpret_cast<Ipp16u*>(mirrored.data()), mirrored.step(), {w, h}, ippAxsBoth),
                  ippStsNoErr);
      EXPECT_EQ(turned.pixels(), mirrored.pixels());
    }
}

// Every other angle, and whole turns with fractional shifts, go through the warp.
TEST(Rotate, OtherAnglesGoThroughTheWarp) {
  const std::vector<double> angles = {0, 360, -360, 1, 30, 45, 90.5, 137.25, 179.9, 200, 269.5, 300, -30, 725};
  int variant = 0;
  for (Kind kind : {Kind::u8c1, Kind::u8c4, Kind::u16c4})
    for (double angle : angles)
      for (int word : warptest::affineWords()) {
        ++variant;
        const int w = 5 + variant % 13, h = 4 + variant % 7;
        double bound[2][2];
        ASSERT_EQ(ippiGetRotateBound({0, 0, w, h}, bound, angle, 0, 0), ippStsNoErr);
        const RotateCase c{kind,
                           warptest::randomImage(kind, w, h, static_cast<uint32_t>(variant)),
                           {0, 0, w, h},
                           26,
                           26,
                           {variant % 3, 0, 26 - variant % 3, 26},
                           angle,
                           -bound[0][0] + (variant % 4) * 0.25,
                           -bound[0][1] + (variant % 5 == 0 ? 0.5 : 0),
                           word};
        SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(kind) << " angle " << angle << " word 0x"
                                        << std::hex << static_cast<unsigned>(word));
        expectRotationEqualsReference(c);
        if (HasFailure()) return;
      }
  // A whole turn with a fractional shift.
  const Image src = warptest::randomImage(Kind::u8c4, 9, 7, 4);
  for (double angle : {90.0, 180.0, 270.0})
    expectRotationEqualsReference(
        {Kind::u8c4, src, {0, 0, 9, 7}, 20, 20, {0, 0, 20, 20}, angle, 9.5, 9, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE});
}

// Angle 360 reduces to 0 and is interpolated: with cubic at whole coordinates the result equals
// the source, and the outline lies along the grid, so nothing is smoothed.
TEST(Rotate, FullTurnIsInterpolatedAndEqualsTheSource) {
  const Image src = warptest::randomImage(Kind::u8c4, 11, 8, 8);
  qvtest::TestImage dst(11, 8, 4);
  dst.fill(0);
  ASSERT_EQ(ippiRotate_8u_C4R(src.bytes.data(), {11, 8}, 44, {0, 0, 11, 8}, dst.data(), dst.step(), {0, 0, 11, 8}, 360,
                              0, 0, IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE),
            ippStsNoErr);
  EXPECT_EQ(dst.pixels(), src.bytes);
  // The word is read: a word the warp refuses is refused at 360 but not at 90.
  EXPECT_EQ(ippiRotate_8u_C4R(src.bytes.data(), {11, 8}, 44, {0, 0, 11, 8}, dst.data(), dst.step(), {0, 0, 11, 8}, 360,
                              0, 0, 3),
            ippStsInterpolationErr);
  EXPECT_EQ(ippiRotate_8u_C4R(src.bytes.data(), {11, 8}, 44, {0, 0, 8, 8}, dst.data(), dst.step(), {0, 0, 11, 8}, 90, 0,
                              7, 3),
            ippStsNoErr);
}

TEST(Rotate, BoundIsTheTurnedRegionsBox) {
  qvtest::onEveryTier([](const qvtest::Tier& tier) {
    for (double angle : {0.0, 30.0, 90.0, 135.0, 180.0, 270.0, -45.0, 1000.0}) {
      const IppiRect roi{2, 1, 7, 4};
      const warptest::Affine c = warptest::rotationCoefficients(angle, 1.5, -2);
      double least[2] = {INFINITY, INFINITY}, greatest[2] = {-INFINITY, -INFINITY};
      const double corners[4][2] = {{2, 1}, {8, 1}, {8, 4}, {2, 4}};
      double quad[4][2];
      ASSERT_EQ(warptest::internalsOf(tier).getRotateQuad(roi, quad, angle, 1.5, -2), ippStsNoErr);
      for (int i = 0; i < 4; ++i)
        for (int k = 0; k < 2; ++k) {
          const double v = c[k][0] * corners[i][0] + c[k][1] * corners[i][1] + c[k][2];
          EXPECT_EQ(quad[i][k], v) << angle;
          least[k] = std::min(least[k], v);
          greatest[k] = std::max(greatest[k], v);
        }
      double bound[2][2];
      ASSERT_EQ(ippiGetRotateBound(roi, bound, angle, 1.5, -2), ippStsNoErr);
      EXPECT_EQ(bound[0][0], least[0]);
      EXPECT_EQ(bound[0][1], least[1]);
      EXPECT_EQ(bound[1][0], greatest[0]);
      EXPECT_EQ(bound[1][1], greatest[1]);
    }
    // Quarter turns are exact: a 3 x 2 picture turned by 90 has its least y at -2.
    double bound[2][2];
    ASSERT_EQ(ippiGetRotateBound({0, 0, 3, 2}, bound, 90, 0, 0), ippStsNoErr);
    EXPECT_EQ(bound[0][0], 0);
    EXPECT_EQ(bound[0][1], -2);
    EXPECT_EQ(bound[1][0], 1);
    EXPECT_EQ(bound[1][1], 0);
    // A refused region leaves the bound unwritten.
    for (const IppiRect& bad :
         {IppiRect{-1, 0, 3, 3}, IppiRect{0, -1, 3, 3}, IppiRect{0, 0, 0, 3}, IppiRect{0, 0, 3, 0}}) {
      double untouched[2][2] = {{7, 7}, {7, 7}};
      EXPECT_EQ(ippiGetRotateBound(bad, untouched, 30, 0, 0), ippStsSizeErr);
      EXPECT_EQ(untouched[0][0], 7);
      EXPECT_EQ(untouched[1][1], 7);
    }
  });
}

// --- statuses --------------------------------------------------------------------------------

struct RotateStatus {
  bool nullSource = false, nullDestination = false;
  IppiSize srcSize{6, 6};
  IppiRect srcRoi{0, 0, 6, 6};
  IppiRect dstRoi{0, 0, 8, 8};
  double angle = 90, xShift = 0, yShift = 5;
  int word = IPPI_INTER_LINEAR;
};

void expectRotateStatus(const RotateStatus& c, IppStatus expected) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (Kind kind : {Kind::u8c1, Kind::u8c4, Kind::u16c4}) {
      const int pixelBytes = warptest::pixelBytesOf(kind);
      qvtest::TestImage src(6, 6, pixelBytes), dst(8, 8, pixelBytes);
      src.fillRandom(3);
      dst.fillRandom(4);
      const std::vector<uint8_t> before = dst.allBytes();
      EXPECT_EQ(callRotate(kind, c.nullSource ? nullptr : src.data(), c.srcSize, src.step(), c.srcRoi,
                           c.nullDestination ? nullptr : dst.data(), dst.step(), c.dstRoi, c.angle, c.xShift, c.yShift,
                           c.word),
                expected)
          << "kind " << static_cast<int>(kind);
      EXPECT_EQ(dst.allBytes(), before);
    }
  });
}

TEST(Rotate, StatusesInTheOrderOfTheirTests) {
  RotateStatus c;
  // A non-finite angle before anything else.
  for (double angle : {INFINITY, -INFINITY, NAN}) {
    c = {};
    c.angle = angle;
    c.nullSource = true;
    c.srcSize = {0, 0};
    expectRotateStatus(c, ippStsOutOfRangeErr);
  }
  // The exact path: null pointers, then sizes, then the region's place, then the turned box.
  c = {};
  c.nullDestination = true;
  c.srcSize = {0, 0};
  expectRotateStatus(c, ippStsNullPtrErr);
  for (int field = 0; field < 10; ++field) {
    c = {};
    c.srcRoi = {7, 0, 2, 2};  // would intersect nothing, but sizes come first
    if (field == 0) c.srcSize.width = 0;
    if (field == 1) c.srcSize.height = 0;
    if (field == 2) c.srcRoi.x = -1;
    if (field == 3) c.srcRoi.y = -1;
    if (field == 4) c.srcRoi.width = 0;
    if (field == 5) c.srcRoi.height = -1;
    if (field == 6) c.dstRoi.x = -1;
    if (field == 7) c.dstRoi.y = -1;
    if (field == 8) c.dstRoi.width = 0;
    if (field == 9) c.dstRoi.height = 0;
    SCOPED_TRACE(field);
    expectRotateStatus(c, ippStsSizeErr);
  }
  c = {};
  c.srcRoi = {6, 0, 2, 2};
  expectRotateStatus(c, ippStsWrongIntersectROI);
  c.srcRoi = {0, 6, 2, 2};
  expectRotateStatus(c, ippStsWrongIntersectROI);
  c = {};
  c.xShift = 100;
  expectRotateStatus(c, ippStsWrongIntersectROI);
  c = {};
  c.angle = 180;
  c.xShift = -1;
  expectRotateStatus(c, ippStsWrongIntersectROI);
  // Through the warp: its statuses, in its order.
  c = {};
  c.angle = 30;
  c.nullSource = true;
  c.srcSize = {0, 0};
  expectRotateStatus(c, ippStsNullPtrErr);
  c = {};
  c.angle = 30;
  c.srcRoi = {0, 0, 0, 6};
  c.word = 3;
  expectRotateStatus(c, ippStsSizeErr);
  c = {};
  c.angle = 30;
  c.word = 0;
  expectRotateStatus(c, ippStsInterpolationErr);
  c = {};
  c.angle = 30;
  c.srcRoi = {6, 0, 2, 2};
  expectRotateStatus(c, ippStsWrongIntersectROI);
  c = {};
  c.angle = 30;
  c.srcRoi = {5, 0, 2, 2};
  expectRotateStatus(c, ippStsRectErr);
  c = {};
  c.angle = 30;
  c.xShift = 1e6;
  expectRotateStatus(c, ippStsWrongIntersectQuad);
  c = {};
  c.angle = 30;
  c.xShift = NAN;
  expectRotateStatus(c, ippStsCoeffErr);
}

}  // namespace
