// The affine warp against the plain restatement: many maps, source and destination regions,
// every filter with and without smooth edges, 8u C1 through ippiWarpAffine_8u_C1R and 8u C4 and
// 16u C4 through the driver inside each tier; nothing written outside the spans and the
// outline; every status in the order of its test; all tiers alike.

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/images.h"
#include "support/tiers.h"
#include "warp/tier_internals.h"
#include "warp/warp_images.h"
#include "warp/warp_reference.h"

namespace {

using warptest::Affine;
using warptest::Image;
using warptest::Kind;

struct WarpCase {
  Kind kind;
  Image src;
  IppiSize srcSize;
  IppiRect srcRoi;
  int dstWidth, dstHeight;
  IppiRect dstRoi;
  Affine coeffs;
  int word;
};

IppStatus callWarp(const WarpCase& c, const uint8_t* src, int srcStep, uint8_t* dst, int dstStep) {
  double coeffs[2][3];
  for (int r = 0; r < 2; ++r)
    for (int k = 0; k < 3; ++k) coeffs[r][k] = c.coeffs[r][k];
  if (c.kind == Kind::u8c1)
    return ippiWarpAffine_8u_C1R(src, c.srcSize, srcStep, c.srcRoi, dst, dstStep, c.dstRoi, coeffs, c.word);
  return warptest::currentInternals().warpAffine(src, c.srcSize, srcStep, c.srcRoi, dst, dstStep, c.dstRoi, coeffs,
                                                 c.word, warptest::typeCodeOf(c.kind));
}

// The destination starts as a pattern; the reference and the primitive each warp into it.
Image startingDestination(Kind kind, int width, int height) { return warptest::randomImage(kind, width, height, 99); }

void expectWarpEqualsReference(const WarpCase& c) {
  Image expected = startingDestination(c.kind, c.dstWidth, c.dstHeight);
  const IppStatus expectedStatus =
      warptest::warpAffine(c.src, c.srcSize, c.srcRoi, expected, c.dstRoi, c.coeffs, c.word);
  qvtest::expectSameOnEveryTier([&] {
    qvtest::TestImage src = warptest::toTestImage(c.src, 12, 3);
    qvtest::TestImage dst = warptest::toTestImage(startingDestination(c.kind, c.dstWidth, c.dstHeight), 20, 5);
    EXPECT_EQ(callWarp(c, src.data(), src.step(), dst.data(), dst.step()), expectedStatus);
    EXPECT_EQ(warptest::fromTestImage(dst, c.kind).bytes, expected.bytes);
    EXPECT_TRUE(dst.surroundingsIntact());
    EXPECT_EQ(warptest::fromTestImage(src, c.kind).bytes, c.src.bytes);
    return dst.pixels();
  });
}

TEST(WarpAffine, ManyMapsRegionsAndFiltersEqualTheReference) {
  const std::vector<std::array<int, 2>> sizes = {{2, 2}, {3, 7}, {4, 4}, {9, 6}, {16, 11}, {23, 17}};
  const std::vector<int> words = warptest::affineWords();
  int variant = 0;
  for (Kind kind : {Kind::u8c1, Kind::u8c4, Kind::u16c4})
    for (const auto& size : sizes) {
      const int w = size[0], h = size[1];
      const Image src = warptest::randomImage(kind, w, h, static_cast<uint32_t>(w * 31 + h));
      const std::vector<IppiRect> srcRois = {{0, 0, w, h}, {1, 0, w - 1, h + 5}, {0, 1, w + 3, h - 1}};
      const std::vector<IppiRect> dstRois = {{0, 0, 30, 26}, {3, 2, 20, 17}, {5, 9, 12, 6}};
      for (const warptest::NamedAffine& matrix : warptest::affineMatrices(w, h))
        for (int word : words) {
          ++variant;
          const WarpCase c{kind,
                           src,
                           {w, h},
                           srcRois[static_cast<size_t>(variant) % srcRois.size()],
                           32,
                           28,
                           dstRois[static_cast<size_t>(variant / 3) % dstRois.size()],
                           matrix.coeffs,
                           word};
          SCOPED_TRACE(testing::Message()
                       << "kind " << static_cast<int>(kind) << ", source " << w << "x" << h << " region "
                       << warptest::describe(c.srcRoi) << ", destination region " << warptest::describe(c.dstRoi)
                       << ", " << matrix.name << ", word 0x" << std::hex << static_cast<unsigned>(word));
          expectWarpEqualsReference(c);
          if (HasFailure()) return;
        }
    }
}

// The identity with linear interpolation gives the source's pixels in the region; the last row
// and column come from the limit rule with a fraction of 1.
TEST(WarpAffine, IdentityWithLinearGivesTheSourcePixels) {
  const Image src = warptest::randomImage(Kind::u8c1, 13, 9, 5);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (int word : {static_cast<int>(IPPI_INTER_LINEAR), IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE}) {
      qvtest::TestImage dst(13, 9, 1, 8, 1);
      dst.fill(0);
      const double identity[2][3] = {{1, 0, 0}, {0, 1, 0}};
      ASSERT_EQ(ippiWarpAffine_8u_C1R(src.bytes.data(), {13, 9}, 13, {0, 0, 13, 9}, dst.data(), dst.step(),
                                      {0, 0, 13, 9}, identity, word),
                ippStsNoErr);
      EXPECT_EQ(dst.pixels(), src.bytes);
      EXPECT_TRUE(dst.surroundingsIntact());
    }
  });
}

// Rows and columns of the quad's outline that lie along the pixel grid are not smoothed, and
// pixels outside the quad keep what they held.
TEST(WarpAffine, PixelsOutsideTheQuadKeepTheirValues) {
  const Image src = warptest::randomImage(Kind::u8c1, 6, 5, 6);
  qvtest::TestImage dst(20, 20, 1, 4, 2);
  dst.fill(7);
  const double translation[2][3] = {{1, 0, 4}, {0, 1, 3}};
  ASSERT_EQ(ippiWarpAffine_8u_C1R(src.bytes.data(), {6, 5}, 6, {0, 0, 6, 5}, dst.data(), dst.step(), {0, 0, 20, 20},
                                  translation, IPPI_INTER_NN | IPPI_SMOOTH_EDGE),
            ippStsNoErr);
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 20; ++x) {
      const bool inside = x >= 4 && x < 10 && y >= 3 && y < 8;
      EXPECT_EQ(dst.row(y)[x], inside ? src.sample(x - 4, y - 3, 0) : 7) << x << "," << y;
    }
}

// --- statuses --------------------------------------------------------------------------------

struct StatusCase {
  bool nullSource = false, nullDestination = false;
  IppiSize srcSize{8, 8};
  IppiRect srcRoi{0, 0, 8, 8};
  IppiRect dstRoi{0, 0, 8, 8};
  Affine coeffs{{{1, 0, 0}, {0, 1, 0}}};
  int word = IPPI_INTER_LINEAR;
  int srcStep = 8, dstStep = 12;
};

void expectStatus(const StatusCase& c, IppStatus expected) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    qvtest::TestImage src(8, 8, 1, 0, 0), dst(12, 12, 1, 0, 0);
    src.fillRandom(1);
    dst.fillRandom(2);
    const std::vector<uint8_t> srcBefore = src.allBytes(), dstBefore = dst.allBytes();
    double coeffs[2][3];
    for (int r = 0; r < 2; ++r)
      for (int k = 0; k < 3; ++k) coeffs[r][k] = c.coeffs[r][k];
    EXPECT_EQ(ippiWarpAffine_8u_C1R(c.nullSource ? nullptr : src.data(), c.srcSize, c.srcStep, c.srcRoi,
                                    c.nullDestination ? nullptr : dst.data(), c.dstStep, c.dstRoi, coeffs, c.word),
              expected);
    EXPECT_EQ(src.allBytes(), srcBefore);
    if (expected != ippStsNoErr) {
      EXPECT_EQ(dst.allBytes(), dstBefore);
    }
  });
}

TEST(WarpAffine, StatusesInTheOrderOfTheirTests) {
  const Affine singular{{{1, 2, 0}, {2, 4, 0}}};
  // Null pointers first, before every other test.
  StatusCase c;
  c.nullSource = true;
  c.srcSize = {0, 0};
  c.word = 3;
  c.coeffs = singular;
  expectStatus(c, ippStsNullPtrErr);
  c = {};
  c.nullDestination = true;
  c.dstRoi = {-1, 0, 0, 0};
  expectStatus(c, ippStsNullPtrErr);
  // Then sizes, each field, before the word.
  for (int field = 0; field < 10; ++field) {
    c = {};
    c.word = 3;
    c.coeffs = singular;
    if (field == 0) c.srcSize.width = 0;
    if (field == 1) c.srcSize.height = -1;
    if (field == 2) c.srcRoi.x = -1;
    if (field == 3) c.srcRoi.y = -1;
    if (field == 4) c.srcRoi.width = 0;
    if (field == 5) c.srcRoi.height = 0;
    if (field == 6) c.dstRoi.x = -1;
    if (field == 7) c.dstRoi.y = -2;
    if (field == 8) c.dstRoi.width = -3;
    if (field == 9) c.dstRoi.height = 0;
    SCOPED_TRACE(field);
    expectStatus(c, ippStsSizeErr);
  }
  // Then the word without its top bit: 1, 2, 4 or 6, before the map.
  for (int word : {0, 3, 5, 7, 8, 16, IPPI_SMOOTH_EDGE, IPPI_INTER_LINEAR | IPPI_SUBPIXEL_EDGE,
                   IPPI_INTER_NN | IPPI_ANTIALIASING}) {
    c = {};
    c.word = word;
    c.coeffs = singular;
    expectStatus(c, ippStsInterpolationErr);
  }
  // Then the map, before the region's place in the source.
  for (const Affine& map : {singular, Affine{{{0, 0, 1}, {0, 0, 2}}}, Affine{{{1e-201, 1e-11, 0}, {1, 1, 0}}},
                            Affine{{{1, 1, 0}, {1, 1 + 1e-11, 0}}}}) {
    c = {};
    c.coeffs = map;
    c.srcRoi = {9, 0, 4, 4};
    expectStatus(c, ippStsCoeffErr);
  }
  // A region starting at or beyond the source's edge: a warning, before the region's size.
  c = {};
  c.srcRoi = {8, 0, 1, 1};
  expectStatus(c, ippStsWrongIntersectROI);
  c.srcRoi = {0, 8, 4, 4};
  expectStatus(c, ippStsWrongIntersectROI);
  // The region cut to the source, 1 pixel wide or high.
  c = {};
  c.srcRoi = {7, 0, 4, 8};
  c.coeffs = {{{1, 0, 1e300}, {0, 1, NAN}}};
  expectStatus(c, ippStsRectErr);
  c.srcRoi = {0, 2, 8, 1};
  expectStatus(c, ippStsRectErr);
  // A quad that is not a proper quad, before the destination test.
  c = {};
  c.coeffs = {{{1, 0, NAN}, {0, 1, 0}}};
  expectStatus(c, ippStsCoeffErr);
  // A quad wholly outside the destination region: a warning.
  c = {};
  c.coeffs = {{{1, 0, 40}, {0, 1, 0}}};
  expectStatus(c, ippStsWrongIntersectQuad);
  c.coeffs = {{{1, 0, 0}, {0, 1, 0}}};
  c.dstRoi = {10, 10, 2, 2};
  expectStatus(c, ippStsWrongIntersectQuad);
  // Steps are not tested.
  c = {};
  c.srcStep = 0;
  c.dstStep = -12;
  c.dstRoi = {0, 0, 1, 1};
  expectStatus(c, ippStsNoErr);
}

// A source one pixel wide is refused: nearest has been chosen for it, but the region is cut to
// one column.
TEST(WarpAffine, SourceOnePixelWideIsRefused) {
  StatusCase c;
  c.srcSize = {1, 8};
  c.srcRoi = {0, 0, 1, 8};
  expectStatus(c, ippStsRectErr);
  c.srcSize = {8, 1};
  c.srcRoi = {0, 0, 8, 1};
  c.word = IPPI_INTER_CUBIC;
  expectStatus(c, ippStsRectErr);
}

// Small sources lower the filter: width or height 1 takes nearest, below 4 cubic takes linear.
TEST(WarpAffine, SmallSourcesLowerTheFilter) {
  const Image src = warptest::randomImage(Kind::u8c1, 3, 5, 7);
  const Affine map{{{1.3, 0.2, 0.4}, {-0.1, 0.9, 0.7}}};
  Image cubic = startingDestination(Kind::u8c1, 8, 8), linear = cubic;
  ASSERT_EQ(warptest::warpAffine(src, {3, 5}, {0, 0, 3, 5}, cubic, {0, 0, 8, 8}, map, IPPI_INTER_CUBIC), ippStsNoErr);
  ASSERT_EQ(warptest::warpAffine(src, {3, 5}, {0, 0, 3, 5}, linear, {0, 0, 8, 8}, map, IPPI_INTER_LINEAR), ippStsNoErr);
  EXPECT_EQ(cubic.bytes, linear.bytes);
  expectWarpEqualsReference({Kind::u8c1, src, {3, 5}, {0, 0, 3, 5}, 8, 8, {0, 0, 8, 8}, map, IPPI_INTER_CUBIC});
}

}  // namespace
