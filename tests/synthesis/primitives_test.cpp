// Arrays, maps, points, comparators and the random layer beneath synthesis.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "imagesynth/engineTypes.h"
#include "qvimage/imageSynth.h"

namespace {

using qv::synth::add_points;
using qv::synth::equal_points;
using qv::synth::get_bounds;
using qv::synth::get_center;
using qv::synth::subtract_points;

TEST(SynthArray, CreatedEmptyAndZeroFilled) {
  SArray* a = s_array_sized_new(0, 1, 12, 5);
  EXPECT_EQ(a->len, 0u);
  EXPECT_EQ(a->capacity, 5u);
  EXPECT_EQ(a->elementSize, 12u);
  for (int i = 0; i < 60; ++i) EXPECT_EQ(a->data[i], 0) << i;
  s_array_free(a, 1);
}

TEST(SynthArray, AppendCopiesOneElementWhateverTheCount) {
  SArray* a = s_array_sized_new(0, 1, sizeof(Point), 4);
  const Point two[2] = {{1, 2}, {3, 4}};
  EXPECT_EQ(s_array_append_vals(a, two, 2), a);
  EXPECT_EQ(a->len, 1u);
  s_array_append_vals(a, &two[1], 1);
  EXPECT_EQ(a->len, 2u);
  const auto* p = reinterpret_cast<const Point*>(a->data);
  EXPECT_EQ(p[0].x, 1);
  EXPECT_EQ(p[0].y, 2);
  EXPECT_EQ(p[1].x, 3);
  EXPECT_EQ(p[1].y, 4);
  // Nothing beyond the two appended elements was written.
  for (size_t i = 2 * sizeof(Point); i < 4 * sizeof(Point); ++i) EXPECT_EQ(a->data[i], 0);
  s_array_free(a, 1);
}

TEST(SynthArray, SortsTheAppendedElementsOnly) {
  SArray* a = s_array_sized_new(0, 1, sizeof(Point), 6);
  const Point points[4] = {{3, 0}, {0, 1}, {-2, 0}, {0, 0}};
  for (const Point& p : points) s_array_append_vals(a, &p, 1);
  s_array_sort(a, lessCartesian);
  const auto* p = reinterpret_cast<const Point*>(a->data);
  const int expectedX[4] = {0, 0, -2, 3};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(p[i].x, expectedX[i]) << i;
  // The reserved but unused tail keeps its zeros: two points at the origin would be there.
  EXPECT_EQ(p[4].x, 0);
  EXPECT_EQ(p[5].y, 0);
  s_array_free(a, 1);
}

TEST(SynthArrayDeathTest, FreeingAnArrayWithoutStorageStops) {
  EXPECT_DEATH(
      {
        SArray* a = s_array_sized_new(0, 1, 4, 1);
        free(a->data);
        a->data = nullptr;
        s_array_free(a, 1);
      },
      "array->data");
}

TEST(SynthMap, ConstructorsSetDepthAndZeroFill) {
  Map byte, ints, coords, pix;
  new_bytemap(&byte, 3, 2);
  new_intmap(&ints, 3, 2);
  new_coordmap(&coords, 3, 2);
  new_pixmap(&pix, 3, 2, 5);
  const Map* maps[4] = {&byte, &ints, &coords, &pix};
  const uint32_t depths[4] = {1, 4, 8, 5};
  for (int m = 0; m < 4; ++m) {
    EXPECT_EQ(maps[m]->width, 3u);
    EXPECT_EQ(maps[m]->height, 2u);
    EXPECT_EQ(maps[m]->depth, depths[m]);
    EXPECT_EQ(maps[m]->data->len, 0u);
    EXPECT_EQ(maps[m]->data->capacity, 6u);
    for (uint32_t i = 0; i < 6 * depths[m]; ++i) EXPECT_EQ(maps[m]->data->data[i], 0);
  }
  free_map(&byte);
  free_map(&ints);
  free_map(&coords);
  free_map(&pix);
  EXPECT_EQ(byte.data, nullptr);
  EXPECT_EQ(pix.data, nullptr);
}

TEST(SynthMap, SetAndInvertBytemap) {
  Map m;
  new_bytemap(&m, 4, 3);
  set_bytemap(&m, 0x5A);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(m.data->data[i], 0x5A);
  for (int i = 0; i < 12; ++i) m.data->data[i] = static_cast<unsigned char>(i * 21);
  invert_bytemap(&m);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(m.data->data[i], static_cast<unsigned char>(~(i * 21))) << i;
  invert_bytemap(&m);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(m.data->data[i], static_cast<unsigned char>(i * 21)) << i;
  free_map(&m);
}

TEST(SynthMap, InterleaveWritesOnlyTheFirstPixelel) {
  Map pix, mask;
  new_pixmap(&pix, 2, 2, 3);
  new_intmap(&mask, 4, 1);  // four elements as well; only their first bytes are read
  for (int i = 0; i < 12; ++i) pix.data->data[i] = 7;
  for (int i = 0; i < 16; ++i) mask.data->data[i] = static_cast<unsigned char>(100 + i);
  interleave_mask(&pix, &mask);
  for (int e = 0; e < 4; ++e) {
    EXPECT_EQ(pix.data->data[e * 3], 100 + e * 4);
    EXPECT_EQ(pix.data->data[e * 3 + 1], 7);
    EXPECT_EQ(pix.data->data[e * 3 + 2], 7);
  }
  free_map(&pix);
  free_map(&mask);
}

void interleaveFourIntoThree() {
  Map pix, mask;
  new_pixmap(&pix, 2, 2, 3);
  new_bytemap(&mask, 3, 1);
  interleave_mask(&pix, &mask);
}

TEST(SynthMapDeathTest, InterleaveOfDifferentCountsStops) {
  EXPECT_DEATH(interleaveFourIntoThree(), "size == mask->height \\* mask->width");
}

TEST(SynthPoints, ArithmeticWrapsIn32Bits) {
  EXPECT_TRUE(equal_points({3, -4}, {3, -4}));
  EXPECT_FALSE(equal_points({3, -4}, {3, 4}));
  EXPECT_FALSE(equal_points({2, 4}, {3, 4}));
  const Point sum = add_points({0x7fffffff, -5}, {1, 7});
  EXPECT_EQ(sum.x, INT32_MIN);
  EXPECT_EQ(sum.y, 2);
  const Point difference = subtract_points({INT32_MIN, 5}, {1, 7});
  EXPECT_EQ(difference.x, 0x7fffffff);
  EXPECT_EQ(difference.y, -2);
}

TEST(SynthPoints, BoundsStartFromTheirFixedValues) {
  const auto empty = get_bounds(nullptr, 0);
  EXPECT_EQ(empty.minX, 0x7fffffff);
  EXPECT_EQ(empty.minY, 0x7fffffff);
  EXPECT_EQ(empty.maxX, 0);
  EXPECT_EQ(empty.maxY, 0);
  const Point negative[2] = {{-3, -9}, {-1, -2}};
  const auto b = get_bounds(negative, 2);
  EXPECT_EQ(b.minX, -3);
  EXPECT_EQ(b.minY, -9);
  EXPECT_EQ(b.maxX, 0);  // the greatest starts from 0
  EXPECT_EQ(b.maxY, 0);
  const Point some[3] = {{4, 1}, {2, 8}, {6, 3}};
  const auto c = get_bounds(some, 2);  // the first two only
  EXPECT_EQ(c.minX, 2);
  EXPECT_EQ(c.minY, 1);
  EXPECT_EQ(c.maxX, 4);
  EXPECT_EQ(c.maxY, 8);
}

TEST(SynthPoints, CentreOfTheBox) {
  const Point one[1] = {{5, 9}};
  EXPECT_TRUE(equal_points(get_center(one, 1), one[0]));
  const Point pair[2] = {{0, 2}, {3, 7}};
  const Point c = get_center(pair, 2);
  EXPECT_EQ(c.x, 1);  // (3 - 0) / 2 + 0, truncated
  EXPECT_EQ(c.y, 4);  // (7 - 2) / 2 + 2
  const Point none = get_center(nullptr, 0);
  EXPECT_EQ(none.x, 0x40000000);
  EXPECT_EQ(none.y, 0x40000000);
}

TEST(SynthPoints, SwapExchangesTwoPoints) {
  SArray* a = s_array_sized_new(0, 1, sizeof(Point), 3);
  const Point points[3] = {{1, 1}, {2, 2}, {3, 3}};
  for (const Point& p : points) s_array_append_vals(a, &p, 1);
  qv::synth::swap_vector_elements(a, 0, 2);
  const auto* p = reinterpret_cast<const Point*>(a->data);
  EXPECT_EQ(p[0].x, 3);
  EXPECT_EQ(p[2].x, 1);
  qv::synth::swap_vector_elements(a, 1, 1);
  EXPECT_EQ(p[1].x, 2);
  s_array_free(a, 1);
}

TEST(SynthPointsDeathTest, SwapChecksBothIndicesAgainstTheLength) {
  auto swapAt = [](uint32_t i, uint32_t j) {
    SArray* a = s_array_sized_new(0, 1, sizeof(Point), 4);
    const Point p{0, 0};
    s_array_append_vals(a, &p, 1);
    s_array_append_vals(a, &p, 1);
    qv::synth::swap_vector_elements(a, i, j);
  };
  EXPECT_DEATH(swapAt(2, 0), "i<size");
  EXPECT_DEATH(swapAt(0, 2), "j<size");
  EXPECT_DEATH(swapAt(3, 3), "i<size");
}

int cmp(int (*c)(const void*, const void*), Point a, Point b) { return c(&a, &b); }
int cmpRatio(int (*c)(const void*, const void*), float a, float b) {
  const SortPoint pa{0, 0, a}, pb{0, 0, b};
  return c(&pa, &pb);
}

TEST(SynthComparators, PointKeysAndTies) {
  // Distinct keys: a "less" comparator puts the smaller first, a "more" one the greater.
  EXPECT_EQ(cmp(lessCartesian, {1, 1}, {2, 0}), -1);
  EXPECT_EQ(cmp(lessCartesian, {2, 0}, {1, 1}), 1);
  EXPECT_EQ(cmp(moreCartesian, {2, 0}, {1, 1}), -1);
  EXPECT_EQ(cmp(moreCartesian, {1, 1}, {2, 0}), 1);
  EXPECT_EQ(cmp(lessHorizontal, {-1, 9}, {2, 0}), -1);
  EXPECT_EQ(cmp(lessHorizontal, {2, 0}, {-1, 9}), 1);
  EXPECT_EQ(cmp(moreHorizontal, {-3, 0}, {2, 9}), -1);
  EXPECT_EQ(cmp(moreHorizontal, {2, 9}, {-3, 0}), 1);
  EXPECT_EQ(cmp(lessVertical, {9, -1}, {0, 2}), -1);
  EXPECT_EQ(cmp(lessVertical, {0, 2}, {9, -1}), 1);
  EXPECT_EQ(cmp(moreVertical, {0, -3}, {9, 2}), -1);
  EXPECT_EQ(cmp(moreVertical, {9, 2}, {0, -3}), 1);
  // Equal keys, in both directions: +1 under less, -1 under more, never 0.
  EXPECT_EQ(cmp(lessCartesian, {3, 4}, {-5, 0}), 1);
  EXPECT_EQ(cmp(lessCartesian, {-5, 0}, {3, 4}), 1);
  EXPECT_EQ(cmp(moreCartesian, {3, 4}, {-5, 0}), -1);
  EXPECT_EQ(cmp(moreCartesian, {-5, 0}, {3, 4}), -1);
  EXPECT_EQ(cmp(lessHorizontal, {2, 1}, {-2, 7}), 1);
  EXPECT_EQ(cmp(moreHorizontal, {2, 1}, {-2, 7}), -1);
  EXPECT_EQ(cmp(lessVertical, {1, 2}, {7, -2}), 1);
  EXPECT_EQ(cmp(moreVertical, {1, 2}, {7, -2}), -1);
}

TEST(SynthComparators, SquaresWrapAndCompareSigned) {
  // 46341² = 2147488281 wraps to -2147479015 in signed 32 bits, below 0² + 0².
  EXPECT_EQ(cmp(lessCartesian, {46341, 0}, {0, 0}), -1);
  EXPECT_EQ(cmp(lessHorizontal, {46341, 0}, {1, 0}), -1);
  EXPECT_EQ(cmp(moreVertical, {0, 46341}, {0, 1}), 1);
  // 40000² + 40000² = 3200000000 wraps to -1094967296.
  EXPECT_EQ(cmp(lessCartesian, {40000, 40000}, {1, 0}), -1);
}

TEST(SynthComparators, InwardRatiosAndNotANumber) {
  const float nan = std::nanf("");
  EXPECT_EQ(cmpRatio(lessInward, 0.25f, 0.5f), -1);
  EXPECT_EQ(cmpRatio(lessInward, 0.5f, 0.25f), 1);
  EXPECT_EQ(cmpRatio(lessInward, 0.5f, 0.5f), 1);
  EXPECT_EQ(cmpRatio(moreInward, 0.5f, 0.25f), -1);
  EXPECT_EQ(cmpRatio(moreInward, 0.25f, 0.5f), 1);
  EXPECT_EQ(cmpRatio(moreInward, 0.5f, 0.5f), -1);
  // A ratio that is not a number counts as a being below b.
  EXPECT_EQ(cmpRatio(lessInward, nan, 0.5f), -1);
  EXPECT_EQ(cmpRatio(lessInward, 0.5f, nan), -1);
  EXPECT_EQ(cmpRatio(lessInward, nan, nan), -1);
  EXPECT_EQ(cmpRatio(moreInward, nan, 0.5f), 1);
  EXPECT_EQ(cmpRatio(moreInward, 0.5f, nan), 1);
  EXPECT_EQ(cmpRatio(moreInward, nan, nan), 1);
}

TEST(SynthRandom, SeedingReturnsANullHandleAndSeedsTheProcess) {
  EXPECT_EQ(s_rand_new_with_seed(77), nullptr);
  const int first = rand();
  srand(77);
  EXPECT_EQ(rand(), first);
}

TEST(SynthRandom, RangeByDivisionOfOneDraw) {
  const uint32_t highs[] = {1, 2, 3, 10, 1000, 0x7fffffff, 0x80000000u, 0xFFFFFFFFu};
  for (uint32_t high : highs) {
    srand(12345);
    std::vector<uint32_t> expected;
    for (int k = 0; k < 20; ++k) {
      const auto r = static_cast<uint32_t>(rand());
      expected.push_back(r / (0x7fffffffu / high + 1u));
    }
    s_rand_new_with_seed(12345);
    for (int k = 0; k < 20; ++k) EXPECT_EQ(s_rand_int_range(nullptr, 0, high), expected[k]) << high;
  }
  // A non-zero low: (r / (0x7fffffff / (high - low) + 1)) + low.
  srand(5);
  const auto r = static_cast<uint32_t>(rand());
  srand(5);
  EXPECT_EQ(s_rand_int_range(nullptr, 10, 14), r / (0x7fffffffu / 4u + 1u) + 10u);
}

TEST(SynthRandom, EmptyRangeDrawsNothing) {
  srand(99);
  const int first = rand();
  srand(99);
  EXPECT_EQ(s_rand_int_range(nullptr, 0, 0), 0u);
  EXPECT_EQ(rand(), first);  // the sequence is where it was
}

TEST(SynthRandom, RangeOfOneDrawsAndGivesZero) {
  srand(99);
  rand();
  const int second = rand();
  srand(99);
  EXPECT_EQ(s_rand_int_range(nullptr, 0, 1), 0u);
  EXPECT_EQ(rand(), second);  // one number was consumed
}

}  // namespace
