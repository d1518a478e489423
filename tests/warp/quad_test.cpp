// The quad geometry inside each tier: the convexity test, the affine quad, and the spans of a
// clipped quad, against the plain restatement and against an inside test of their own.

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "support/tiers.h"
#include "warp/tier_internals.h"
#include "warp/warp_reference.h"

namespace {

using warptest::Quad;

int checkOnTier(const qvtest::Tier& tier, const Quad& quad) {
  double q[4][2];
  for (int i = 0; i < 4; ++i) q[i][0] = quad[i][0], q[i][1] = quad[i][1];
  return warptest::internalsOf(tier).checkQuad(q);
}

TEST(WarpQuad, CheckTellsWindingDegeneracyAndConvexity) {
  qvtest::onEveryTier([](const qvtest::Tier& tier) {
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {4, 0}, {4, 3}, {0, 3}}}), 1);     // clockwise on the screen
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {0, 3}, {4, 3}, {4, 0}}}), 0);     // the other way
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {2, 0}, {4, 0}, {0, 3}}}), -5);    // three points on a line
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {4, 0}, {4, 0}, {0, 3}}}), -5);    // a point twice
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {4, 3}, {4, 0}, {0, 3}}}), -4);    // crossed
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {4, 0}, {1, 1}, {0, 4}}}), -4);    // a dart
    EXPECT_EQ(checkOnTier(tier, {{{0, 0}, {4, 0}, {NAN, 3}, {0, 3}}}), -4);  // not a number
  });
}

TEST(WarpQuad, AffineQuadMapsTheRegionsCornerPixels) {
  qvtest::onEveryTier([](const qvtest::Tier& tier) {
    const double coeffs[2][3] = {{2, 0.5, 3}, {-1, 1, 7}};
    double quad[4][2];
    ASSERT_EQ(warptest::internalsOf(tier).getAffineQuad({1, 2, 4, 3}, quad, coeffs), ippStsNoErr);
    const double corners[4][2] = {{1, 2}, {4, 2}, {4, 4}, {1, 4}};
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(quad[i][0], 2 * corners[i][0] + 0.5 * corners[i][1] + 3);
      EXPECT_EQ(quad[i][1], -1 * corners[i][0] + corners[i][1] + 7);
    }
    EXPECT_EQ(warptest::internalsOf(tier).getAffineQuad({-1, 0, 4, 3}, quad, coeffs), ippStsSizeErr);
    EXPECT_EQ(warptest::internalsOf(tier).getAffineQuad({0, 0, 0, 3}, quad, coeffs), ippStsSizeErr);
    const double singular[2][3] = {{1, 2, 0}, {2, 4, 0}};
    EXPECT_EQ(warptest::internalsOf(tier).getAffineQuad({0, 0, 4, 3}, quad, singular), ippStsCoeffErr);
  });
}

struct TierSpans {
  bool found = false;
  int firstRow = 0, lastRow = 0;
  std::vector<int> columns;
};

TierSpans spansOnTier(const warptest::WarpInternals& k, const Quad& quad, IppiPoint first, IppiPoint last,
                      bool winding) {
  double q[4][2];
  for (int i = 0; i < 4; ++i) q[i][0] = quad[i][0], q[i][1] = quad[i][1];
  TierSpans out;
  int* spans = k.clipQuad(q, first, last, winding, &out.firstRow, &out.lastRow);
  if (spans == nullptr) return out;
  out.found = true;
  out.columns.assign(spans, spans + 2 * (out.lastRow - out.firstRow + 1));
  ippsFree(spans);
  return out;
}

// A convex quad, possibly reaching out of the rectangle, in either winding.
Quad randomQuad(std::mt19937& generator) {
  std::uniform_real_distribution<double> centre(-5.0, 35.0), radius(0.5, 25.0), turn(0.0, 6.283185307179586);
  const double cx = centre(generator), cy = centre(generator), r = radius(generator), start = turn(generator);
  const double squash = std::uniform_real_distribution<double>(0.2, 1.0)(generator);
  Quad quad;
  for (int i = 0; i < 4; ++i) {
    const double angle = start + i * 1.5707963267948966 + std::uniform_real_distribution<double>(-0.5, 0.5)(generator);
    quad[i] = {cx + r * std::cos(angle), cy + squash * r * std::sin(angle)};
  }
  if (generator() % 2) std::swap(quad[1], quad[3]);
  return quad;
}

TEST(WarpQuad, SpansEqualThePlainRestatement) {
  std::mt19937 generator(21);
  for (int n = 0; n < 300; ++n) {
    const Quad quad = randomQuad(generator);
    const int check = warptest::checkQuad(quad);
    if (check < 0) continue;
    const IppiPoint first{static_cast<int>(generator() % 6), static_cast<int>(generator() % 6)};
    const IppiPoint last{first.x + static_cast<int>(generator() % 30), first.y + static_cast<int>(generator() % 30)};
    const auto expected = warptest::spansOf(quad, first, last, check == 1);
    qvtest::onEveryTier([&](const qvtest::Tier& tier) {
      const TierSpans got = spansOnTier(warptest::internalsOf(tier), quad, first, last, check == 1);
      ASSERT_EQ(got.found, expected.has_value()) << n;
      if (!got.found) return;
      EXPECT_EQ(got.firstRow, expected->firstRow) << n;
      EXPECT_EQ(got.lastRow, expected->lastRow()) << n;
      std::vector<int> columns;
      for (const auto& pair : expected->columns) columns.insert(columns.end(), pair.begin(), pair.end());
      EXPECT_EQ(got.columns, columns) << n;
    });
  }
}

// How far inside the quad a point lies: the least signed distance to its edges (positive
// inside), for the quad's winding.
double insideBy(const Quad& quad, bool winding, double x, double y) {
  double least = INFINITY;
  for (int i = 0; i < 4; ++i) {
    const auto& a = quad[i];
    const auto& b = quad[(i + 1) % 4];
    const double ex = b[0] - a[0], ey = b[1] - a[1];
    const double cross = ex * (y - a[1]) - ey * (x - a[0]);
    least = std::min(least, (winding ? cross : -cross) / std::hypot(ex, ey));
  }
  return least;
}

// Every pixel of the rectangle clearly inside the quad is in a span, and every pixel clearly
// outside is not.
TEST(WarpQuad, SpansCoverThePixelsInsideAndNoOthers) {
  std::mt19937 generator(22);
  for (int n = 0; n < 200; ++n) {
    const Quad quad = randomQuad(generator);
    const int check = warptest::checkQuad(quad);
    if (check < 0) continue;
    const bool winding = check == 1;
    const IppiPoint first{2, 3}, last{28, 25};
    const TierSpans got = spansOnTier(warptest::currentInternals(), quad, first, last, winding);
    for (int y = first.y; y <= last.y; ++y)
      for (int x = first.x; x <= last.x; ++x) {
        const double inside = insideBy(quad, winding, x, y);
        if (std::fabs(inside) < 1e-9) continue;
        bool inSpan = false;
        if (got.found && y >= got.firstRow && y <= got.lastRow) {
          const int* span = &got.columns[static_cast<size_t>(2 * (y - got.firstRow))];
          inSpan = x >= span[0] && x <= span[1];
        }
        EXPECT_EQ(inSpan, inside > 0) << "quad " << n << " pixel " << x << "," << y;
      }
  }
}

// A left edge within 1e-13 of a whole column keeps that column; farther, it does not.
TEST(WarpQuad, SpansKeepPointsWithinTheToleranceOfTheOutline) {
  for (double nudge : {1e-14, 5e-14, 1e-12, 1e-9}) {
    const Quad quad{{{5 + nudge, 0}, {9, 0}, {9, 6}, {5 + nudge, 6}}};
    const TierSpans got = spansOnTier(warptest::currentInternals(), quad, {0, 0}, {20, 20}, true);
    ASSERT_TRUE(got.found);
    EXPECT_EQ(got.columns[0], nudge < 1e-13 ? 5 : 6) << nudge;
    EXPECT_EQ(got.columns[1], 9);
    const Quad right{{{1, 0}, {7 - nudge, 0}, {7 - nudge, 6}, {1, 6}}};
    const TierSpans gotRight = spansOnTier(warptest::currentInternals(), right, {0, 0}, {20, 20}, true);
    EXPECT_EQ(gotRight.columns[1], nudge < 1e-13 ? 7 : 6) << nudge;
  }
}

TEST(WarpQuad, QuadsThatMissTheRectangleHaveNoSpans) {
  const warptest::WarpInternals& k = warptest::currentInternals();
  EXPECT_FALSE(spansOnTier(k, {{{30, 0}, {40, 0}, {40, 5}, {30, 5}}}, {0, 0}, {20, 20}, true).found);
  // Between two rows, and between two columns.
  EXPECT_FALSE(spansOnTier(k, {{{0, 2.2}, {9, 2.2}, {9, 2.8}, {0, 2.8}}}, {0, 0}, {20, 20}, true).found);
  EXPECT_FALSE(spansOnTier(k, {{{3.1, 0}, {3.9, 0}, {3.9, 9}, {3.1, 9}}}, {0, 0}, {20, 20}, true).found);
  // A quad touching the rectangle's corner pixel from outside.
  const TierSpans corner = spansOnTier(k, {{{20, 20}, {30, 20}, {30, 30}, {20, 30}}}, {0, 0}, {20, 20}, true);
  ASSERT_TRUE(corner.found);
  EXPECT_EQ(corner.firstRow, 20);
  EXPECT_EQ(corner.columns, (std::vector<int>{20, 20}));
}

}  // namespace
