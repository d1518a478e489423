// The neighbour offsets: every offset once, nearest first, and the engine's disc-by-disc table
// equal at every stage to the head of the list sorted with lessCartesian by qsort.

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "imagesynth/offsetTable.h"
#include "qvimage/imageSynth.h"
#include "reference.h"

namespace {

std::vector<synthref::Pt> sortedWithQsort(int w, int h) {
  std::vector<synthref::Pt> all;
  for (int y = 1 - h; y < h; ++y)
    for (int x = 1 - w; x < w; ++x) all.push_back({x, y});
  qsort(all.data(), all.size(), sizeof(synthref::Pt), synthref::cmpLessCartesian);
  return all;
}

TEST(SynthOffsets, EveryOffsetOnceNearestFirst) {
  Map target, corpus;
  new_bytemap(&target, 6, 9);
  new_bytemap(&corpus, 8, 4);  // the lesser width and height: 6 x 4
  SArray* offsets = nullptr;
  prepareSortedOffsets(&target, &corpus, &offsets);
  ASSERT_EQ(offsets->len, 11u * 7u);
  ASSERT_EQ(offsets->capacity, 11u * 7u);
  const auto* p = reinterpret_cast<const Point*>(offsets->data);
  EXPECT_EQ(p[0].x, 0);
  EXPECT_EQ(p[0].y, 0);
  std::vector<int> seen(11 * 7, 0);
  for (uint32_t i = 0; i < offsets->len; ++i) {
    ASSERT_LE(std::abs(p[i].x), 5);
    ASSERT_LE(std::abs(p[i].y), 3);
    seen[(p[i].y + 3) * 11 + p[i].x + 5] += 1;
    if (i > 0) {
      EXPECT_LE(p[i - 1].x * p[i - 1].x + p[i - 1].y * p[i - 1].y, p[i].x * p[i].x + p[i].y * p[i].y) << i;
    }
  }
  for (int count : seen) EXPECT_EQ(count, 1);
  const std::vector<synthref::Pt> expected = sortedWithQsort(6, 4);
  for (uint32_t i = 0; i < offsets->len; ++i) EXPECT_EQ((synthref::Pt{p[i].x, p[i].y}), expected[i]) << i;
  s_array_free(offsets, 1);
  free_map(&target);
  free_map(&corpus);
}

TEST(SynthOffsets, TableGrowsAsTheHeadOfTheSortedList) {
  const int sizes[][2] = {{1, 1}, {2, 3}, {5, 4}, {17, 17}, {40, 23}, {90, 70}, {3, 120}};
  for (const auto& size : sizes) {
    const int w = size[0], h = size[1];
    Map map;
    new_bytemap(&map, w, h);
    SArray* sorted = nullptr;
    prepareSortedOffsets(&map, &map, &sorted);
    const auto* full = reinterpret_cast<const Point*>(sorted->data);
    qv::synth::OffsetTable table{};
    qv::synth::prepareOffsetTable(table, &map, &map);
    EXPECT_EQ(table.total, sorted->len);
    int stages = 0;
    do {
      ASSERT_LE(table.count, sorted->len);
      for (uint32_t i = 0; i < table.count; ++i) {
        ASSERT_EQ(table.points[i].x, full[i].x) << w << "x" << h << " at " << i;
        ASSERT_EQ(table.points[i].y, full[i].y) << w << "x" << h << " at " << i;
      }
      ++stages;
    } while (qv::synth::extendOffsetTable(table));
    EXPECT_EQ(table.count, sorted->len) << w << "x" << h;
    if (w * h > 2000) {
      EXPECT_GT(stages, 1);
    }
    qv::synth::freeOffsetTable(table);
    s_array_free(sorted, 1);
    free_map(&map);
  }
}

}  // namespace
