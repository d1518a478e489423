// Visiting orders: the sorted keys about the centre, the loosening with the drawn numbers, the
// angular bins of the inward orders, and the order that repeats value 2.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

#include "qvimage/imageSynth.h"
#include "reference.h"

namespace {

using synthref::Pt;

SArray* arrayOf(const std::vector<Pt>& points) {
  SArray* a = s_array_sized_new(0, 1, sizeof(Point), static_cast<uint32_t>(points.size()));
  for (const Pt& p : points) {
    const Point q{p.x, p.y};
    s_array_append_vals(a, &q, 1);
  }
  return a;
}

std::vector<Pt> listOf(const SArray* a) {
  std::vector<Pt> out;
  const auto* p = reinterpret_cast<const Point*>(a->data);
  for (uint32_t i = 0; i < a->len; ++i) out.push_back({p[i].x, p[i].y});
  return out;
}

// A ragged region of 47 points in row order, away from the origin.
std::vector<Pt> raggedRegion() {
  std::vector<Pt> points;
  for (int y = 3; y < 11; ++y)
    for (int x = 5; x < 14; ++x)
      if ((x * 7 + y * 3) % 5 != 0 && !(y > 8 && x > 10)) points.push_back({x, y});
  return points;
}

std::vector<Pt> runOrder(const std::vector<Pt>& points, uint32_t order, uint32_t seed, int32_t* result = nullptr) {
  SArray* a = arrayOf(points);
  ImageSynthParametersStruct parameters;
  setDefaultParams(&parameters);
  parameters.targetOrder = static_cast<int32_t>(order);
  void* random = s_rand_new_with_seed(seed);
  const int32_t r = orderTargetPoints(&parameters, a, random);
  if (result != nullptr) *result = r;
  std::vector<Pt> out = listOf(a);
  s_array_free(a, 1);
  return out;
}

int64_t keyOf(Pt p, Pt centre, uint32_t order) {
  const int64_t x = p.x - centre.x, y = p.y - centre.y;
  if (order == 3 || order == 6) return x * x;
  return y * y;
}

TEST(SynthOrder, EveryOrderMatchesItsDefinition) {
  const std::vector<Pt> region = raggedRegion();
  ASSERT_GE(region.size(), 40u);
  for (uint32_t order = 0; order <= 8; ++order) {
    for (uint32_t seed : {1u, 1198472u, 424242u}) {
      srand(seed);
      const std::vector<Pt> expected = synthref::orderPoints(region, order);
      const int expectedNext = rand();
      int32_t result = -1;
      const std::vector<Pt> actual = runOrder(region, order, seed, &result);
      EXPECT_EQ(result, 0);
      EXPECT_EQ(actual, expected) << "order " << order << " seed " << seed;
      EXPECT_EQ(rand(), expectedNext) << "draws of order " << order;
    }
  }
}

TEST(SynthOrder, DirectionalSortsAreMonotoneInTheirKeys) {
  const std::vector<Pt> region = raggedRegion();
  // Centre of the box: x 5..13 and y 3..10 give (9, 6).
  const Pt centre{9, 6};
  for (uint32_t order : {3u, 4u, 6u, 7u}) {
    const std::vector<Pt> sorted = synthref::sortedOnly(region, order);
    for (size_t i = 1; i < sorted.size(); ++i) {
      const int64_t before = keyOf(sorted[i - 1], centre, order), after = keyOf(sorted[i], centre, order);
      if (order < 5) {
        EXPECT_GE(before, after) << order << " at " << i;
      } else {
        EXPECT_LE(before, after) << order << " at " << i;
      }
    }
  }
}

TEST(SynthOrder, InwardSortsAreMonotoneInTheirRatios) {
  const std::vector<Pt> region = raggedRegion();
  const Pt centre{9, 6};
  for (uint32_t order : {2u, 5u}) {
    std::vector<Pt> shifted;
    for (const Pt& p : synthref::sortedOnly(region, order)) shifted.push_back({p.x - centre.x, p.y - centre.y});
    // The ratios depend on the set of points only, not on their order.
    const std::vector<synthref::RatioPoint> ratios = synthref::ratiosOf(shifted);
    for (size_t i = 1; i < ratios.size(); ++i) {
      if (order == 2) {
        EXPECT_GE(ratios[i - 1].ratio, ratios[i].ratio) << i;
      } else {
        EXPECT_LE(ratios[i - 1].ratio, ratios[i].ratio) << i;
      }
    }
    EXPECT_EQ(order == 2 ? ratios.front().ratio : ratios.back().ratio, 1.0f);
  }
}

TEST(SynthOrder, FewerThanTenPointsKeepTheSortedOrderAndDrawNothing) {
  const std::vector<Pt> nine = {{0, 0}, {4, 0}, {8, 0}, {1, 3}, {7, 3}, {2, 5}, {6, 5}, {3, 1}, {5, 2}};
  for (uint32_t order = 2; order <= 8; ++order) {
    srand(31);
    const int next = rand();
    const std::vector<Pt> actual = runOrder(nine, order, 31);
    EXPECT_EQ(rand(), next) << order;
    EXPECT_EQ(actual, synthref::sortedOnly(nine, order)) << order;
  }
  // Horizontal keys about the centre x 4: distinct values give one exact order.
  const std::vector<Pt> row = {{0, 0}, {1, 0}, {3, 0}, {4, 0}, {6, 0}, {8, 0}};
  const std::vector<Pt> outward = runOrder(row, 6, 7);  // |x - 4|: 0 1 2 3 4 4
  EXPECT_EQ(outward[0], (Pt{4, 0}));
  EXPECT_EQ(outward[1], (Pt{3, 0}));
  EXPECT_EQ(outward[2], (Pt{6, 0}));
  EXPECT_EQ(outward[3], (Pt{1, 0}));
}

TEST(SynthOrder, TenPointsLoosenWithinTwoCandidates) {
  // Ten points on a row with distinct keys under order 7 (y² ascending about the centre y 0..9 -> 4).
  std::vector<Pt> column;
  for (int y = 0; y < 10; ++y) column.push_back({0, y});
  const std::vector<Pt> sorted = synthref::sortedOnly(column, 7);
  // Expected: w = 1; each i swaps with low + draw, draw in {0, 1}; the last always with n - 2.
  srand(2024);
  std::vector<Pt> expected = sorted;
  for (int i = 0; i < 10; ++i) {
    const int low = i > 0 ? i - 1 : 0, high = i < 9 ? i + 1 : 9;
    const int draw =
        static_cast<int>(static_cast<uint32_t>(rand()) / (0x7fffffffu / static_cast<uint32_t>(high - low) + 1u));
    EXPECT_TRUE(draw == 0 || draw == 1);
    if (i == 9) {
      EXPECT_EQ(draw, 0);
    }
    std::swap(expected[i], expected[low + draw]);
  }
  EXPECT_EQ(runOrder(column, 7, 2024), expected);
}

TEST(SynthOrder, SinglePointStaysUnderEveryOrder) {
  for (uint32_t order = 0; order <= 8; ++order) {
    const std::vector<Pt> out = runOrder({{12, 34}}, order, 5);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_EQ(out[0], (Pt{12, 34})) << order;
  }
  // Shifted to its own centre it sits at the origin, and its ratio is not a number.
  SArray* origin = arrayOf({{0, 0}});
  SArray* sorted = targetPointsToSortArray(origin);
  ASSERT_EQ(sorted->len, 1u);
  EXPECT_TRUE(std::isnan(reinterpret_cast<const SortPoint*>(sorted->data)[0].ratio));
  s_array_free(sorted, 1);
  s_array_free(origin, 1);
}

TEST(SynthOrder, ValueEightRepeatsValueTwo) {
  const std::vector<Pt> region = raggedRegion();
  for (uint32_t seed : {3u, 1198472u}) EXPECT_EQ(runOrder(region, 8, seed), runOrder(region, 2, seed));
}

TEST(SynthOrder, OutOfRangeOrdersAreRefusedUntouched) {
  const std::vector<Pt> region = raggedRegion();
  for (uint32_t order : {9u, 100u, 0xFFFFFFFFu}) {  // 0xFFFFFFFF is the value -1
    int32_t result = 0;
    EXPECT_EQ(runOrder(region, order, 8, &result), region);
    EXPECT_EQ(result, 4);
  }
}

TEST(SynthOrder, RatiosAgainstTheRimOfEachDirection) {
  // One row about its centre: positive x and the origin in bin 200, negative x in bin 400.
  EXPECT_EQ(synthref::angularBin({1, 0}), 200);
  EXPECT_EQ(synthref::angularBin({0, 0}), 200);
  EXPECT_EQ(synthref::angularBin({-1, 0}), 400);
  SArray* row = arrayOf({{-3, 0}, {-1, 0}, {0, 0}, {1, 0}, {2, 0}});
  SArray* sorted = targetPointsToSortArray(row);
  const auto* s = reinterpret_cast<const SortPoint*>(sorted->data);
  const float expected[5] = {1.0f, 1.0f / 9.0f, 0.0f, 0.25f, 1.0f};
  ASSERT_EQ(sorted->len, 5u);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(s[i].x, reinterpret_cast<const Point*>(row->data)[i].x);
    EXPECT_EQ(s[i].y, 0);
    EXPECT_FLOAT_EQ(s[i].ratio, expected[i]) << i;
  }
  s_array_free(sorted, 1);
  s_array_free(row, 1);
  // A ragged region: every ratio is the squared radius over the greatest of its bin.
  std::vector<Pt> shifted;
  for (const Pt& p : raggedRegion()) shifted.push_back({p.x - 9, p.y - 6});
  SArray* ragged = arrayOf(shifted);
  SArray* ratios = targetPointsToSortArray(ragged);
  const std::vector<synthref::RatioPoint> want = synthref::ratiosOf(shifted);
  const auto* got = reinterpret_cast<const SortPoint*>(ratios->data);
  for (size_t i = 0; i < want.size(); ++i) {
    EXPECT_EQ(got[i].x, want[i].x);
    EXPECT_EQ(got[i].y, want[i].y);
    if (std::isnan(want[i].ratio)) {
      EXPECT_TRUE(std::isnan(got[i].ratio));
    } else {
      EXPECT_EQ(got[i].ratio, want[i].ratio) << i;
    }
  }
  s_array_free(ratios, 1);
  s_array_free(ragged, 1);
}

TEST(SynthOrder, InwardOrdersRunRimFirstOrCentreFirst) {
  std::vector<Pt> square;
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 3; ++x) square.push_back({x, y});
  // Nine points: no loosening. The eight rim points have ratio 1, each alone in its bin but for
  // (1, 0), which shares bin 200 with the centre; the centre's ratio is 0. Value 2 ends with the
  // centre, value 5 starts with it.
  const std::vector<Pt> rimFirst = runOrder(square, 2, 1);
  EXPECT_EQ(rimFirst.back(), (Pt{1, 1}));
  const std::vector<Pt> centreFirst = runOrder(square, 5, 1);
  EXPECT_EQ(centreFirst.front(), (Pt{1, 1}));
}

}  // namespace
