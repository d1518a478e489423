// The fill against the plain model of its rules, on random images whose values lie below 128,
// above 127 and across both, on mazes and plateaus, with seeds in the first and last rows, and on
// small images whose stack wraps. Tiers must agree byte for byte.

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "qvimage/qvimage.h"
#include "region/fill_reference.h"
#include "region/fill_support.h"
#include "support/images.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

// Values drawn from [low, high], with a share of obstacle pixels of one of the given values.
std::vector<uint8_t> speckledImage(int width, int height, int low, int high, double obstacleShare,
                                   std::vector<uint8_t> obstacles, uint32_t seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> value(low, high);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  std::vector<uint8_t> pixels(static_cast<size_t>(width) * height);
  for (uint8_t& pixel : pixels)
    pixel =
        share(random) < obstacleShare ? obstacles[random() % obstacles.size()] : static_cast<uint8_t>(value(random));
  return pixels;
}

// Corridors between walls of value 5 every 6 columns and rows, with doors.
std::vector<uint8_t> mazeImage(int width, int height, uint32_t seed) {
  std::mt19937 random(seed);
  std::vector<uint8_t> pixels(static_cast<size_t>(width) * height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const bool wall = (x % 6 == 5 && y % 9 != 4) || (y % 6 == 5 && x % 11 != 3);
      pixels[static_cast<size_t>(y) * width + x] = wall ? 5 : static_cast<uint8_t>(140 + random() % 20);
    }
  return pixels;
}

// Rectangles of one value each, laid over one another.
std::vector<uint8_t> plateauImage(int width, int height, uint32_t seed) {
  std::mt19937 random(seed);
  std::vector<uint8_t> pixels(static_cast<size_t>(width) * height, 120);
  for (int n = 0; n < 12; ++n) {
    const int x0 = static_cast<int>(random() % width), y0 = static_cast<int>(random() % height);
    const int w = 1 + static_cast<int>(random() % width), h = 1 + static_cast<int>(random() % height);
    const uint8_t value = static_cast<uint8_t>(random() % 3 == 0 ? 20 : 100 + random() % 60);
    for (int y = y0; y < height && y < y0 + h; ++y)
      for (int x = x0; x < width && x < x0 + w; ++x) pixels[static_cast<size_t>(y) * width + x] = value;
  }
  return pixels;
}

struct Case {
  const char* name;
  std::vector<uint8_t> pixels;
  int width, height;
  uint8_t newVal, minDelta, maxDelta;
};

// Runs one case from several seeds, the first and last rows included, against the model.
void expectFillMatchesModel(const Case& c, uint32_t seedOfSeeds, long long* wideWalks) {
  std::mt19937 random(seedOfSeeds);
  std::vector<IppiPoint> seeds{{0, 0}, {c.width - 1, c.height - 1}, {c.width / 2, 0}, {c.width / 3, c.height - 1}};
  for (int n = 0; n < 4; ++n)
    seeds.push_back({static_cast<int>(random() % c.width), static_cast<int>(random() % c.height)});
  for (const IppiPoint seed : seeds) {
    SCOPED_TRACE(testing::Message() << c.name << " " << c.width << "x" << c.height << " seed " << seed.x << ","
                                    << seed.y);
    const qvtest::ReferenceFill expected =
        qvtest::referenceFill(c.pixels, c.width, c.height, seed.x, seed.y, c.newVal, c.minDelta, c.maxDelta);
    ASSERT_TRUE(expected.finished);
    *wideWalks += expected.wideWalks;
    qvtest::expectSameOnEveryTier([&] {
      TestImage image(c.width, c.height, 1, 5, 3);
      qvtest::loadPixels(image, c.pixels);
      const qvtest::FillRun run = qvtest::runFill(image, seed, c.newVal, c.minDelta, c.maxDelta, 3);
      EXPECT_EQ(run.status, ippStsNoErr);
      EXPECT_EQ(image.pixels(), expected.image);
      EXPECT_TRUE(image.surroundingsIntact());
      EXPECT_TRUE(run.scratchCanaryIntact);
      if (expected.image != c.pixels) {  // a seed already holding newVal leaves the record alone
        EXPECT_EQ(run.region.area, expected.area);
        EXPECT_EQ(run.region.value[0], c.newVal);
        EXPECT_EQ(run.region.value[1], 0.0);
        EXPECT_EQ(run.region.value[2], 0.0);
        EXPECT_EQ(run.region.rect.x, expected.box.x);
        EXPECT_EQ(run.region.rect.y, expected.box.y);
        EXPECT_EQ(run.region.rect.width, expected.box.width);
        EXPECT_EQ(run.region.rect.height, expected.box.height);
      }
      return qvtest::fillBytes(image, run);
    });
  }
}

const int kSizes[][2] = {{67, 23}, {130, 17}, {201, 9}, {33, 40}, {17, 50}, {48, 2}};

TEST(FloodFillModel, ValuesBelow128) {
  long long wideWalks = 0;
  for (const auto& size : kSizes) {
    const Case c{"below 128", speckledImage(size[0], size[1], 40, 90, 0.15, {5, 127}, 1), size[0], size[1], 0, 25, 25};
    expectFillMatchesModel(c, 11, &wideWalks);
  }
  EXPECT_GT(wideWalks, 0);
}

TEST(FloodFillModel, ValuesAbove127) {
  long long wideWalks = 0;
  for (const auto& size : kSizes) {
    const Case c{"above 127", speckledImage(size[0], size[1], 170, 230, 0.15, {128, 100}, 2), size[0], size[1], 3, 30,
                 30};
    expectFillMatchesModel(c, 12, &wideWalks);
  }
  EXPECT_GT(wideWalks, 0);
}

TEST(FloodFillModel, RangeAcross127And128) {
  long long wideWalks = 0;
  for (const auto& size : kSizes) {
    const Case c{"across", speckledImage(size[0], size[1], 90, 210, 0.1, {20, 250}, 3), size[0], size[1], 255, 60, 60};
    expectFillMatchesModel(c, 13, &wideWalks);
    const Case plain{
        "across, plain", speckledImage(size[0], size[1], 110, 190, 0.0, {0}, 4), size[0], size[1], 0, 90, 90};
    expectFillMatchesModel(plain, 14, &wideWalks);
  }
  EXPECT_GT(wideWalks, 0);
}

TEST(FloodFillModel, Mazes) {
  long long wideWalks = 0;
  for (const auto& size : kSizes) {
    const Case c{"maze", mazeImage(size[0], size[1], 5), size[0], size[1], 1, 20, 20};
    expectFillMatchesModel(c, 15, &wideWalks);
  }
}

TEST(FloodFillModel, Plateaus) {
  long long wideWalks = 0;
  for (const auto& size : kSizes) {
    const Case exact{"plateau, deltas 0", plateauImage(size[0], size[1], 6), size[0], size[1], 250, 0, 0};
    expectFillMatchesModel(exact, 16, &wideWalks);
    const Case wide{"plateau, deltas 30", plateauImage(size[0], size[1], 7), size[0], size[1], 250, 30, 30};
    expectFillMatchesModel(wide, 17, &wideWalks);
  }
}

// Every small size, where the stack of width * height / 4 records fills up and wraps, or has a
// capacity of 0 or 1.
TEST(FloodFillModel, SmallImagesWhoseStackWraps) {
  long long wideWalks = 0;
  int wraps = 0;
  std::mt19937 random(21);
  for (int width = 1; width <= 9; ++width)
    for (int height = 1; height <= 9; ++height)
      for (int pattern = 0; pattern < 3; ++pattern) {
        std::vector<uint8_t> pixels(static_cast<size_t>(width) * height);
        for (uint8_t& pixel : pixels) pixel = random() % 4 == 0 ? 9 : 60;
        const int seedX = static_cast<int>(random() % width), seedY = static_cast<int>(random() % height);
        pixels[static_cast<size_t>(seedY) * width + seedX] = 60;
        const qvtest::ReferenceFill expected = qvtest::referenceFill(pixels, width, height, seedX, seedY, 200, 0, 0);
        wraps += expected.wraps;
        const Case c{"small", pixels, width, height, 200, 0, 0};
        expectFillMatchesModel(c, static_cast<uint32_t>(width * 10 + height), &wideWalks);
      }
  EXPECT_GT(wraps, 20);
}

// Combs above and below the seed row: each scan leaves one span per tooth, 40 records for a stack
// of 30, so the pointer wraps in the middle of the second scan.
TEST(FloodFillModel, CombsOverflowALargerStack) {
  constexpr int kWidth = 40, kHeight = 3;
  std::vector<uint8_t> pixels(kWidth * kHeight, 70);
  for (int y : {0, 2})
    for (int x = 1; x < kWidth; x += 2) pixels[static_cast<size_t>(y) * kWidth + x] = 3;
  const qvtest::ReferenceFill expected = qvtest::referenceFill(pixels, kWidth, kHeight, 0, 1, 200, 0, 0);
  EXPECT_GT(expected.wraps, 0);
  long long wideWalks = 0;
  expectFillMatchesModel({"combs", pixels, kWidth, kHeight, 200, 0, 0}, 22, &wideWalks);
}

}  // namespace
