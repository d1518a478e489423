// The perspective primitives: the fit of a region to a quad and back, and the warp of 8-bit
// RGBA against the restatement for many quads, regions and filters with and without smooth
// edges; every status in the order of its test; all tiers alike.

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/images.h"
#include "support/tiers.h"
#include "warp/warp_images.h"
#include "warp/warp_reference.h"

namespace {

using warptest::Image;
using warptest::Kind;
using warptest::Perspective;
using warptest::Quad;

void toArrays(const Quad& quad, double out[4][2]) {
  for (int i = 0; i < 4; ++i) out[i][0] = quad[i][0], out[i][1] = quad[i][1];
}

Perspective fromArrays(const double c[3][3]) {
  Perspective p;
  for (int r = 0; r < 3; ++r)
    for (int k = 0; k < 3; ++k) p[r][k] = c[r][k];
  return p;
}

TEST(Perspective, TransformTakesTheRegionsCornersToTheQuad) {
  const std::vector<Quad> quads = {{{{0, 0}, {9, 0}, {9, 6}, {0, 6}}},
                                   {{{10, 5}, {50, 2}, {47, 33}, {12, 30}}},
                                   {{{-3.5, 2}, {20, -1}, {25, 17.25}, {0.5, 20}}},
                                   {{{5, 5}, {5, 30}, {40, 28}, {38, 7}}}};
  const std::vector<IppiRect> regions = {{0, 0, 10, 7}, {3, 2, 17, 9}, {0, 5, 2, 2}};
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (const Quad& quad : quads)
      for (const IppiRect& roi : regions) {
        double q[4][2], c[3][3], back[4][2];
        toArrays(quad, q);
        ASSERT_EQ(ippiGetPerspectiveTransform(roi, q, c), ippStsNoErr);
        Perspective expected;
        ASSERT_EQ(warptest::perspectiveTransform(roi, quad, expected), ippStsNoErr);
        EXPECT_EQ(fromArrays(c), expected);
        ASSERT_EQ(ippiGetPerspectiveQuad(roi, back, c), ippStsNoErr);
        for (int i = 0; i < 4; ++i)
          for (int k = 0; k < 2; ++k) EXPECT_NEAR(back[i][k], quad[i][k], 1e-9) << "corner " << i;
      }
  });
}

TEST(Perspective, TransformStatusesInTheOrderOfTheirTests) {
  const Quad good{{{0, 0}, {9, 0}, {9, 6}, {0, 6}}};
  const Quad crossed{{{0, 0}, {9, 6}, {9, 0}, {0, 6}}};
  const Quad onALine{{{0, 0}, {4, 0}, {9, 0}, {0, 6}}};
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    double q[4][2], c[3][3];
    auto transform = [&](IppiRect roi, const Quad& quad) {
      toArrays(quad, q);
      for (auto& row : c)
        for (double& v : row) v = 7;
      return ippiGetPerspectiveTransform(roi, q, c);
    };
    EXPECT_EQ(transform({-1, 0, 1, 1}, crossed), ippStsSizeErr);
    EXPECT_EQ(transform({0, -1, 5, 5}, crossed), ippStsSizeErr);
    EXPECT_EQ(transform({0, 0, 0, 5}, crossed), ippStsSizeErr);
    EXPECT_EQ(transform({0, 0, 5, 0}, crossed), ippStsSizeErr);
    EXPECT_EQ(transform({0, 0, 1, 1}, crossed), ippStsQuadErr);
    EXPECT_EQ(transform({0, 0, 1, 1}, onALine), ippStsQuadErr);
    EXPECT_EQ(transform({0, 0, 1, 5}, good), ippStsRectErr);
    EXPECT_EQ(transform({0, 0, 5, 1}, good), ippStsRectErr);
    EXPECT_EQ(c[0][0], 7);  // nothing written on a refusal
    // The quad back: sizes, then the region's extent, then the mapped quad.
    const double identity[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    const double flat[3][3] = {{1, 0, 0}, {0, 0, 0}, {0, 0, 1}};
    EXPECT_EQ(ippiGetPerspectiveQuad({0, 0, 0, 3}, q, flat), ippStsSizeErr);
    EXPECT_EQ(ippiGetPerspectiveQuad({0, 0, 1, 3}, q, flat), ippStsRectErr);
    EXPECT_EQ(ippiGetPerspectiveQuad({0, 0, 4, 3}, q, flat), ippStsCoeffErr);
    EXPECT_EQ(ippiGetPerspectiveQuad({1, 2, 4, 3}, q, identity), ippStsNoErr);
    EXPECT_EQ(q[2][0], 4);
    EXPECT_EQ(q[2][1], 4);
  });
}

struct PerspectiveCase {
  Image src;
  IppiRect srcRoi;
  int dstWidth, dstHeight;
  IppiRect dstRoi;
  Perspective coeffs;
  int word;
};

void expectWarpEqualsReference(const PerspectiveCase& c) {
  const IppiSize srcSize{c.src.width, c.src.height};
  Image expected = warptest::randomImage(Kind::u8c4, c.dstWidth, c.dstHeight, 97);
  const IppStatus expectedStatus =
      warptest::warpPerspective(c.src, srcSize, c.srcRoi, expected, c.dstRoi, c.coeffs, c.word);
  double coeffs[3][3];
  for (int r = 0; r < 3; ++r)
    for (int k = 0; k < 3; ++k) coeffs[r][k] = c.coeffs[r][k];
  qvtest::expectSameOnEveryTier([&] {
    qvtest::TestImage src = warptest::toTestImage(c.src, 4, 2);
    qvtest::TestImage dst =
        warptest::toTestImage(warptest::randomImage(Kind::u8c4, c.dstWidth, c.dstHeight, 97), 12, 1);
    EXPECT_EQ(ippiWarpPerspective_8u_C4R(src.data(), srcSize, src.step(), c.srcRoi, dst.data(), dst.step(), c.dstRoi,
                                         coeffs, c.word),
              expectedStatus);
    EXPECT_EQ(warptest::fromTestImage(dst, Kind::u8c4).bytes, expected.bytes);
    EXPECT_TRUE(dst.surroundingsIntact());
    return dst.pixels();
  });
}

TEST(Perspective, WarpEqualsTheReference) {
  const std::vector<std::array<int, 2>> sizes = {{2, 2}, {3, 5}, {4, 4}, {11, 8}, {24, 19}};
  int variant = 0;
  for (const auto& size : sizes) {
    const int w = size[0], h = size[1];
    const Image src = warptest::randomImage(Kind::u8c4, w, h, static_cast<uint32_t>(w * h + 1));
    const std::vector<Quad> quads = {
        {{{0, 0}, {w - 1.0, 0}, {w - 1.0, h - 1.0}, {0, h - 1.0}}},                            // the identity
        {{{2.5, 1.25}, {w + 2.5, 1.25}, {w + 2.5, h + 1.25}, {2.5, h + 1.25}}},                // scale and move
        {{{3, 1}, {w + 6.0, 3}, {w + 4.0, h + 8.0}, {1, h + 5.0}}},                            // a moderate tilt
        {{{w * 0.3, 0.5}, {w * 0.9 + 2, 2}, {w * 1.4 + 3, h * 1.2 + 1}, {0.2, h * 0.8 + 4}}},  // a strong tilt
        {{{20, 2}, {30, 12}, {20, 22}, {10, 12}}},                                             // a diamond
        {{{-6, -4}, {w + 10.0, 2}, {w + 3.0, h + 12.0}, {1, h + 2.0}}},                        // beyond the destination
        {{{1, 1}, {1.0, h + 3.0}, {w + 4.0, h + 3.0}, {w + 4.0, 1}}},                          // the other winding
        {{{0, 0}, {25, 0.1}, {25, 0.3}, {0, 0.2}}},                                            // nearly flat
    };
    const std::vector<IppiRect> srcRois = {{0, 0, w, h}, {1, 0, w + 2, h}, {0, 1, w, h - 1}};
    const std::vector<IppiRect> dstRois = {{0, 0, 32, 28}, {4, 3, 18, 15}};
    for (const Quad& quad : quads) {
      Perspective coeffs;
      const IppiRect fitRegion = srcRois[static_cast<size_t>(variant) % srcRois.size()];
      const IppiRect cutFit{fitRegion.x, fitRegion.y, std::min(fitRegion.width, w - fitRegion.x),
                            std::min(fitRegion.height, h - fitRegion.y)};
      if (warptest::perspectiveTransform(cutFit, quad, coeffs) != ippStsNoErr) continue;
      for (int word : {IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC}) {
        for (int smooth : {0, IPPI_SMOOTH_EDGE}) {
          ++variant;
          const PerspectiveCase c{src,    fitRegion,    32, 28, dstRois[static_cast<size_t>(variant) % dstRois.size()],
                                  coeffs, word | smooth};
          SCOPED_TRACE(testing::Message()
                       << w << "x" << h << " region " << warptest::describe(c.srcRoi) << " destination region "
                       << warptest::describe(c.dstRoi) << " quad " << quad[0][0] << "," << quad[0][1] << " .. word 0x"
                       << std::hex << static_cast<unsigned>(c.word));
          expectWarpEqualsReference(c);
          if (HasFailure()) return;
        }
      }
    }
  }
}

struct WarpStatus {
  bool nullSource = false, nullDestination = false;
  IppiSize srcSize{8, 8};
  IppiRect srcRoi{0, 0, 8, 8};
  IppiRect dstRoi{0, 0, 10, 10};
  int srcStep = 32, dstStep = 40;
  Perspective coeffs{{{1, 0, 1}, {0, 1, 1}, {0, 0, 1}}};
  int word = IPPI_INTER_LINEAR;
};

void expectWarpStatus(const WarpStatus& c, IppStatus expected) {
  double coeffs[3][3];
  for (int r = 0; r < 3; ++r)
    for (int k = 0; k < 3; ++k) coeffs[r][k] = c.coeffs[r][k];
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    qvtest::TestImage src(8, 8, 4), dst(10, 10, 4);
    src.fillRandom(8);
    dst.fillRandom(9);
    const std::vector<uint8_t> before = dst.allBytes();
    EXPECT_EQ(ippiWarpPerspective_8u_C4R(c.nullSource ? nullptr : src.data(), c.srcSize, c.srcStep, c.srcRoi,
                                         c.nullDestination ? nullptr : dst.data(), c.dstStep, c.dstRoi, coeffs, c.word),
              expected);
    if (expected != ippStsNoErr) {
      EXPECT_EQ(dst.allBytes(), before);
    }
  });
}

TEST(Perspective, WarpStatusesInTheOrderOfTheirTests) {
  const Perspective singular{{{1, 1, 0}, {1, 1, 0}, {0, 0, 1}}};
  WarpStatus c;
  c.nullSource = true;
  c.srcSize = {0, 0};
  c.srcStep = 0;
  expectWarpStatus(c, ippStsNullPtrErr);
  c = {};
  c.nullDestination = true;
  c.word = 6;
  expectWarpStatus(c, ippStsNullPtrErr);
  for (int field = 0; field < 10; ++field) {
    c = {};
    c.srcStep = 0;
    if (field == 0) c.srcSize.width = 0;
    if (field == 1) c.srcSize.height = 0;
    if (field == 2) c.srcRoi.x = -1;
    if (field == 3) c.srcRoi.y = -1;
    if (field == 4) c.srcRoi.width = 0;
    if (field == 5) c.srcRoi.height = 0;
    if (field == 6) c.dstRoi.x = -1;
    if (field == 7) c.dstRoi.y = -1;
    if (field == 8) c.dstRoi.width = 0;
    if (field == 9) c.dstRoi.height = -5;
    SCOPED_TRACE(field);
    expectWarpStatus(c, ippStsSizeErr);
  }
  // Steps, before the word.
  for (const auto& steps : std::vector<std::array<int, 2>>{{0, 40}, {-32, 40}, {32, 0}, {32, -40}}) {
    c = {};
    c.srcStep = steps[0];
    c.dstStep = steps[1];
    c.word = 6;
    expectWarpStatus(c, ippStsStepErr);
  }
  // The word: nearest, linear or cubic only (no Catmull-Rom here), before the map.
  for (int word : {0, 3, 6, IPPI_SMOOTH_EDGE, IPPI_INTER_CUBIC | IPPI_ANTIALIASING}) {
    c = {};
    c.word = word;
    c.coeffs = singular;
    expectWarpStatus(c, ippStsInterpolationErr);
  }
  // The map, and the denominator's constant, before the region.
  for (const Perspective& map : {singular, Perspective{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1e-201}}}}) {
    c = {};
    c.coeffs = map;
    c.srcRoi = {8, 0, 2, 2};
    expectWarpStatus(c, ippStsCoeffErr);
  }
  c = {};
  c.srcRoi = {0, 8, 2, 2};
  expectWarpStatus(c, ippStsWrongIntersectROI);
  c = {};
  c.srcRoi = {7, 0, 2, 2};
  c.coeffs = {{{1, 0, 0}, {0, 1, 0}, {1, 0, 1}}};  // would fold the quad, but the region comes first
  expectWarpStatus(c, ippStsRectErr);
  // A quad that folds (the denominator changes sign inside the region).
  c = {};
  c.coeffs = {{{1, 0, 0}, {0, 1, 0}, {-0.5, 0, 2}}};
  expectWarpStatus(c, ippStsCoeffErr);
  c = {};
  c.coeffs = {{{1, 0, 50}, {0, 1, 0}, {0, 0, 1}}};
  expectWarpStatus(c, ippStsWrongIntersectQuad);
  // A source one pixel wide: nearest is chosen, but the region is refused.
  c = {};
  c.srcSize = {1, 8};
  c.srcRoi = {0, 0, 1, 8};
  expectWarpStatus(c, ippStsRectErr);
}

}  // namespace
