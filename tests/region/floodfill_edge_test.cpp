// The fill's defined behaviours on small images worked out by hand from its rules: directions
// of the seed, one row, stacks of capacity 0, 1 and 2, the 16-pixel walk whose signed
// comparisons end a span at its start when the range straddles 127 and 128, a new value that the
// range takes again, and deltas of 0.

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <vector>

#include "qvimage/qvimage.h"
#include "region/fill_reference.h"
#include "region/fill_support.h"
#include "support/images.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

struct Expected {
  std::vector<uint8_t> pixels;
  double area;
  IppiRect box;
};

// Fills pixels (packed) on every tier and checks the image, area, value and box.
void expectFill(const std::vector<uint8_t>& pixels, int width, int height, IppiPoint seed, uint8_t newVal,
                uint8_t minDelta, uint8_t maxDelta, const Expected& expected) {
  qvtest::expectSameOnEveryTier([&] {
    TestImage image(width, height, 1, 3, 1);
    qvtest::loadPixels(image, pixels);
    const qvtest::FillRun run = qvtest::runFill(image, seed, newVal, minDelta, maxDelta);
    EXPECT_EQ(run.status, ippStsNoErr);
    EXPECT_EQ(image.pixels(), expected.pixels);
    EXPECT_EQ(run.region.area, expected.area);
    EXPECT_EQ(run.region.value[0], newVal);
    EXPECT_EQ(run.region.rect.x, expected.box.x);
    EXPECT_EQ(run.region.rect.y, expected.box.y);
    EXPECT_EQ(run.region.rect.width, expected.box.width);
    EXPECT_EQ(run.region.rect.height, expected.box.height);
    EXPECT_TRUE(image.surroundingsIntact());
    EXPECT_TRUE(run.scratchCanaryIntact);
    return qvtest::fillBytes(image, run);
  });
}

TEST(FloodFillEdges, OneRowFillsOneSpanWithABoxOneHigh) {
  const std::vector<uint8_t> row{5, 5, 9, 9, 9, 9, 5, 9, 9, 9};
  expectFill(row, 10, 1, {3, 0}, 1, 0, 0, {{5, 5, 1, 1, 1, 1, 5, 9, 9, 9}, 4, {2, 0, 4, 1}});
}

TEST(FloodFillEdges, FourByOneAndOneByOneFillNormally) {
  expectFill({8, 8, 8, 8}, 4, 1, {2, 0}, 0, 0, 0, {{0, 0, 0, 0}, 4, {0, 0, 4, 1}});
  expectFill({8}, 1, 1, {0, 0}, 0, 0, 0, {{0}, 1, {0, 0, 1, 1}});
}

// Capacity 0 (fewer than 4 pixels): the few records fit in the scratch asked for.
TEST(FloodFillEdges, StackOfCapacityZeroFillsNormally) {
  expectFill({8, 8}, 1, 2, {0, 1}, 0, 0, 0, {{0, 0}, 2, {0, 0, 1, 2}});
  expectFill({8, 8, 8}, 1, 3, {0, 1}, 0, 0, 0, {{0, 0, 0}, 3, {0, 0, 1, 3}});
}

// Capacity 1: the seed's row only, though the pixels below pass.
TEST(FloodFillEdges, TwoByTwoFillsOnlyTheSeedRow) {
  expectFill({8, 8, 8, 8}, 2, 2, {1, 0}, 0, 0, 0, {{0, 0, 8, 8}, 2, {0, 0, 2, 1}});
  expectFill({8, 8, 8, 8}, 2, 2, {0, 1}, 0, 0, 0, {{8, 8, 0, 0}, 2, {0, 1, 2, 1}});
  // 2 x 3 and 7 x 1... of 4 to 7 pixels, one row high or not: capacity 1 as well.
  expectFill({8, 8, 8, 8, 8, 8}, 2, 3, {0, 1}, 0, 0, 0, {{8, 8, 0, 0, 8, 8}, 2, {0, 1, 2, 1}});
}

// Capacity 2: the seed record is popped, two spans are pushed, the second push fills the stack
// and its pointer goes back to 0, so the loop ends. Both spans were painted and counted; the box
// never took them in.
TEST(FloodFillEdges, FullStackWrapsAndEndsTheFill) {
  const std::vector<uint8_t> pixels{50, 50, 50, 50,  //
                                    50, 9,  50, 9};
  expectFill(pixels, 4, 2, {0, 0}, 200, 0, 0, {{200, 200, 200, 200, 200, 9, 200, 9}, 6, {0, 0, 4, 1}});
}

// Seed in the last row: direction -1, so the row above is the parent's row and is scanned.
// Seed in row 0: direction +1, no row ahead, and the row below is scanned.
TEST(FloodFillEdges, SeedsInTheLastRowAndRowZeroReachTheWholeRegion) {
  std::vector<uint8_t> pixels(5 * 4, 30);
  pixels[1 * 5 + 2] = 99;  // one obstacle
  std::vector<uint8_t> filled(5 * 4, 0);
  filled[1 * 5 + 2] = 99;
  expectFill(pixels, 5, 4, {4, 3}, 0, 0, 0, {filled, 19, {0, 0, 5, 4}});
  expectFill(pixels, 5, 4, {0, 0}, 0, 0, 0, {filled, 19, {0, 0, 5, 4}});
}

// 40 x 2, range 100..200 straddling 127/128, obstacles (10) at columns 6 and 13 of row 1. Row 0
// is the seed row, walked exactly. Row 1 is scanned from column 0 up to 39 with the seed span's
// end 39: a span found at x with 39 - x >= 16 and x <= 23 walks right by blocks and ends at x; the
// scan goes on at x + 2, whose span walks left over x + 1. Spans: [0,0] [1,2] [3,4], column 5
// skipped and 6 an obstacle, [7,7] [8,9] [10,11], 12 skipped and 13 an obstacle, [14,14] [15,16]
// [17,18] [19,20] [21,22], then at 24 the exact walk: [23,39]. Columns 5 and 12 stay unfilled.
TEST(FloodFillEdges, StraddlingRangeLeavesColumnsBeforeObstaclesUnfilled) {
  std::vector<uint8_t> pixels(80, 150);
  pixels[40 + 6] = 10;
  pixels[40 + 13] = 10;
  std::vector<uint8_t> filled(80, 0);
  filled[40 + 5] = 150;
  filled[40 + 6] = 10;
  filled[40 + 12] = 150;
  filled[40 + 13] = 10;
  expectFill(pixels, 40, 2, {0, 0}, 0, 50, 50, {filled, 40 + 36, {0, 0, 40, 2}});
}

// The same image with a range wholly at or above 128: the blocks give the exact spans [0,5],
// [7,12] and [14,39], and every pixel but the obstacles is filled.
TEST(FloodFillEdges, RangeAbove127FillsAroundTheSameObstacles) {
  std::vector<uint8_t> pixels(80, 200);
  pixels[40 + 6] = 10;
  pixels[40 + 13] = 10;
  std::vector<uint8_t> filled(80, 0);
  filled[40 + 6] = 10;
  filled[40 + 13] = 10;
  expectFill(pixels, 40, 2, {0, 0}, 0, 50, 55, {filled, 40 + 38, {0, 0, 40, 2}});
}

// Without obstacles the later spans' left walks reach back over every skipped column, so a plain
// region is filled whole even with the straddling range.
TEST(FloodFillEdges, StraddlingRangeOnAPlainRegion) {
  expectFill(std::vector<uint8_t>(40 * 2, 150), 40, 2, {0, 0}, 0, 50, 50,
             {std::vector<uint8_t>(80, 0), 80, {0, 0, 40, 2}});
}

TEST(FloodFillEdges, WideRegionOf200To255FillsCompletely) {
  constexpr int kWidth = 301, kHeight = 37;
  std::vector<uint8_t> pixels = qvtest::randomBytes(kWidth * kHeight, 31);
  for (uint8_t& pixel : pixels) pixel = static_cast<uint8_t>(200 + pixel % 56);
  pixels[5 * kWidth + 150] = 227;
  expectFill(pixels, kWidth, kHeight, {150, 5}, 0, 27, 28,
             {std::vector<uint8_t>(pixels.size(), 0), kWidth * kHeight, {0, 0, kWidth, kHeight}});
}

// Deltas of 0 take the pixels equal to the seed's value: with no wrap and a range on one side of
// 128, the fill paints exactly the four-connected component of the seed, found here by a
// breadth-first search.
TEST(FloodFillEdges, DeltasOfZeroTakeOnlyTheSeedValue) {
  constexpr int kWidth = 70, kHeight = 30;
  std::vector<uint8_t> pixels = qvtest::randomBytes(kWidth * kHeight, 41);
  for (uint8_t& pixel : pixels) pixel = pixel % 10 < 7 ? 8 : (pixel % 2 ? 7 : 9);
  pixels[0] = 8;
  std::vector<uint8_t> component = pixels;
  std::deque<std::pair<int, int>> queue{{0, 0}};
  component[0] = 250;
  int count = 1;
  while (!queue.empty()) {
    const auto [x, y] = queue.front();
    queue.pop_front();
    const int dx[] = {1, -1, 0, 0}, dy[] = {0, 0, 1, -1};
    for (int k = 0; k < 4; ++k) {
      const int nx = x + dx[k], ny = y + dy[k];
      if (nx < 0 || ny < 0 || nx >= kWidth || ny >= kHeight) continue;
      uint8_t& pixel = component[static_cast<size_t>(ny) * kWidth + nx];
      if (pixel != 8) continue;
      pixel = 250;
      ++count;
      queue.push_back({nx, ny});
    }
  }
  int minX = kWidth, maxX = 0, minY = kHeight, maxY = 0;
  for (int y = 0; y < kHeight; ++y)
    for (int x = 0; x < kWidth; ++x)
      if (component[static_cast<size_t>(y) * kWidth + x] == 250) {
        minX = std::min(minX, x), maxX = std::max(maxX, x), minY = std::min(minY, y), maxY = std::max(maxY, y);
      }
  ASSERT_EQ(qvtest::referenceFill(pixels, kWidth, kHeight, 0, 0, 250, 0, 0).wraps, 0);
  expectFill(pixels, kWidth, kHeight, {0, 0}, 250, 0, 0,
             {component, static_cast<double>(count), {minX, minY, maxX - minX + 1, maxY - minY + 1}});
}

// A new value inside the range: painted pixels pass the test again, and spans over them are
// found and counted once more, so the area exceeds the pixels painted.
TEST(FloodFillEdges, NewValueInsideTheRangeIsTakenAgain) {
  constexpr int kWidth = 12, kHeight = 6;
  std::vector<uint8_t> pixels(kWidth * kHeight, 100);
  for (int y = 2; y < 4; ++y)
    for (int x = 4; x < 8; ++x) pixels[static_cast<size_t>(y) * kWidth + x] = 0;
  const qvtest::ReferenceFill expected = qvtest::referenceFill(pixels, kWidth, kHeight, 0, 0, 101, 5, 5, 100000);
  ASSERT_TRUE(expected.finished);
  int painted = 0;
  for (uint8_t pixel : expected.image) painted += pixel == 101;
  EXPECT_GT(expected.area, painted);
  expectFill(pixels, kWidth, kHeight, {0, 0}, 101, 5, 5, {expected.image, expected.area, expected.box});
}

}  // namespace
