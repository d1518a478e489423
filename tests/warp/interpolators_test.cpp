// The interpolators inside each tier: the cubic table, the position rules at the source's edge,
// the clipping box, rounding, Catmull-Rom indices, and every vector form against the plain
// rules on random points, all tiers alike.

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "support/tiers.h"
#include "warp/tier_internals.h"
#include "warp/warp_reference.h"

namespace {

using warptest::Image;
using warptest::Kind;

TEST(WarpInterpolators, CubicTableFollowsTheLagrangeRule) {
  qvtest::onEveryTier([](const qvtest::Tier& tier) {
    const Ipp16s(*table)[2] = warptest::internalsOf(tier).cubicWeights;
    for (int t = 0; t <= 1536; ++t) {
      const std::array<int, 4> w = warptest::cubicWeights(t);
      ASSERT_EQ(table[t][0], w[0]) << "t " << t;
      ASSERT_EQ(table[t][1], w[1]) << "t " << t;
      // The far pair is the mirrored entry with its halves swapped.
      ASSERT_EQ(table[1536 - t][1], w[2]) << "t " << t;
      ASSERT_EQ(table[1536 - t][0], w[3]) << "t " << t;
    }
  });
}

// The 16-bit row values of the four-channel cubic rely on these bounds.
TEST(WarpInterpolators, CubicWeightsOfARowStayWithinTheirBounds) {
  for (int t = 0; t <= 1536; ++t) {
    const std::array<int, 4> w = warptest::cubicWeights(t);
    int positive = 0, negative = 0;
    for (int weight : w) (weight > 0 ? positive : negative) += weight;
    EXPECT_LE(positive, 16384 * 132 / 100) << "t " << t;
    EXPECT_GE(negative, -16384 * 32 / 100) << "t " << t;
  }
}

// x exactly at the limit: the pixel before it with a fraction of 1, so the last column counts
// in full; the same for y.
TEST(WarpInterpolators, LinearAtTheLimitTakesTheLastColumnInFull) {
  const Image src = warptest::randomImage(Kind::u8c4, 9, 7, 11);
  qvtest::onEveryTier([&](const qvtest::Tier& tier) {
    const std::vector<float> xs = {8.0f, 8.0f, 3.0f, 8.0f};
    const std::vector<float> ys = {0.0f, 6.0f, 6.0f, 2.0f};
    std::vector<uint8_t> out(16, 0);
    warptest::internalsOf(tier).linearVector(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), 4, 8, 6);
    for (int i = 0; i < 4; ++i)
      for (int c = 0; c < 4; ++c)
        EXPECT_EQ(out[4 * i + c], src.sample(static_cast<int>(xs[i]), static_cast<int>(ys[i]), c)) << i;
  });
}

// t reaches 1536 at x = width - 1: the fourth tap alone, the source's last pixel.
TEST(WarpInterpolators, CubicReachesTheLastPixelAtTheEndOfTheTable) {
  const Image src = warptest::randomImage(Kind::u8c4, 10, 8, 12);
  qvtest::onEveryTier([&](const qvtest::Tier& tier) {
    const std::vector<float> xs = {9.0f, 9.0f, 0.0f, 5.0f};
    const std::vector<float> ys = {7.0f, 3.0f, 7.0f, 0.0f};
    std::vector<uint8_t> out(16, 0);
    warptest::internalsOf(tier).cubicVector8uC4(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), 4, -1,
                                                -1, 10, 8, 9, 7);
    for (int i = 0; i < 4; ++i)
      for (int c = 0; c < 4; ++c)
        EXPECT_EQ(out[4 * i + c], src.sample(static_cast<int>(xs[i]), static_cast<int>(ys[i]), c)) << i;
  });
}

TEST(WarpInterpolators, NearestRoundsHalvesToEven) {
  const Image src = warptest::randomImage(Kind::u8c4, 8, 8, 13);
  qvtest::onEveryTier([&](const qvtest::Tier& tier) {
    const std::vector<float> xs = {2.5f, 3.5f, 0.49f, 6.5f};
    const std::vector<float> ys = {1.5f, 2.5f, 4.5f, 6.51f};
    const int expectedX[4] = {2, 4, 0, 6}, expectedY[4] = {2, 2, 4, 7};
    std::vector<uint8_t> out(16, 0);
    warptest::internalsOf(tier).nearestVector(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), 4, 7, 7);
    for (int i = 0; i < 4; ++i)
      for (int c = 0; c < 4; ++c) EXPECT_EQ(out[4 * i + c], src.sample(expectedX[i], expectedY[i], c)) << i;
  });
}

// The box test comes first and is strict: a point on a side is taken, a point beyond it leaves
// the destination pixel alone. The source is a window inside a larger picture, so that taps
// beyond the window's first column stay in memory.
TEST(WarpInterpolators, CubicClippingBoxIsStrict) {
  const Image big = warptest::randomImage(Kind::u8c4, 20, 20, 14);
  const uint8_t* window = big.pixel(4, 4);
  const int width = 10, height = 9;
  qvtest::onEveryTier([&](const qvtest::Tier& tier) {
    const std::vector<float> xs = {-1.0f, -1.001f, 10.0f, 10.01f, 3.0f, 3.0f, 5.0f};
    const std::vector<float> ys = {2.0f, 2.0f, 4.0f, 4.0f, -1.0f, 9.001f, -1.5f};
    const bool taken[7] = {true, false, true, false, true, false, false};
    std::vector<uint8_t> out(4 * xs.size(), 0x5A);
    warptest::internalsOf(tier).cubicVector8uC4(window, big.step(), out.data(), xs.data(), ys.data(),
                                                static_cast<int>(xs.size()), -1, -1, width, height, width - 1,
                                                height - 1);
    for (size_t i = 0; i < xs.size(); ++i) {
      const bool untouched =
          out[4 * i] == 0x5A && out[4 * i + 1] == 0x5A && out[4 * i + 2] == 0x5A && out[4 * i + 3] == 0x5A;
      EXPECT_EQ(untouched, !taken[i]) << "point " << i;
    }
    // On the low side the first tap is the column before the window; beyond the last pixel the
    // weights are held at the table's end, the last pixel.
    for (int c = 0; c < 4; ++c) {
      EXPECT_EQ(out[c], big.sample(3, 6, c));
      EXPECT_EQ(out[8 + c], big.sample(4 + 9, 4 + 4, c));
      EXPECT_EQ(out[16 + c], big.sample(4 + 3, 3, c));
    }
  });
}

TEST(WarpInterpolators, CatmullRomIndicesStayInsideTheSource) {
  qvtest::onEveryTier([](const qvtest::Tier& tier) {
    const auto setIndex = warptest::internalsOf(tier).setIndexCR;
    int index[4];
    EXPECT_EQ(setIndex(10, 0.0, index), 0);
    EXPECT_EQ(std::vector<int>(index, index + 4), (std::vector<int>{0, 0, 1, 2}));
    EXPECT_EQ(setIndex(10, 9.0, index), 9);
    EXPECT_EQ(std::vector<int>(index, index + 4), (std::vector<int>{8, 9, 9, 9}));
    EXPECT_EQ(setIndex(10, 4.5, index), 4);
    EXPECT_EQ(std::vector<int>(index, index + 4), (std::vector<int>{3, 4, 5, 6}));
    // Within 1e-7 below a whole number, the number is taken.
    EXPECT_EQ(setIndex(10, 2.99999995, index), 3);
    EXPECT_EQ(setIndex(10, 2.9999995, index), 2);
    EXPECT_EQ(setIndex(1, 0.3, index), 0);
    EXPECT_EQ(std::vector<int>(index, index + 4), (std::vector<int>{0, 0, 0, 0}));
  });
}

// Random points inside the source (and the first and last columns and rows): every vector form
// against the plain rules, every tier the same.
TEST(WarpInterpolators, VectorFormsEqualThePlainRules) {
  for (const auto& size : std::vector<std::array<int, 2>>{{4, 4}, {5, 9}, {17, 6}, {33, 21}}) {
    const int width = size[0], height = size[1];
    SCOPED_TRACE(testing::Message() << width << "x" << height);
    std::mt19937 generator(static_cast<uint32_t>(width * 100 + height));
    std::uniform_real_distribution<float> alongX(0.0f, static_cast<float>(width - 1));
    std::uniform_real_distribution<float> alongY(0.0f, static_cast<float>(height - 1));
    std::vector<float> xs, ys;
    for (int i = 0; i < 300; ++i) {
      xs.push_back(i % 7 == 0 ? std::round(alongX(generator)) : alongX(generator));
      ys.push_back(i % 5 == 0 ? static_cast<float>(height - 1) : alongY(generator));
    }
    const int count = static_cast<int>(xs.size());
    for (Kind kind : {Kind::u8c1, Kind::u8c4, Kind::u16c4}) {
      const Image src = warptest::randomImage(kind, width, height, static_cast<uint32_t>(width * height));
      const int pixelBytes = warptest::pixelBytesOf(kind);
      for (int form = 0; form < 3; ++form) {
        if (kind != Kind::u8c4 && form != 2) continue;  // nearest and linear vectors exist for 8u C4
        std::vector<uint8_t> expected(static_cast<size_t>(count * pixelBytes));
        for (int i = 0; i < count; ++i) {
          uint8_t* out = expected.data() + i * pixelBytes;
          if (form == 0) warptest::nearestVectorAt(src, xs[i], ys[i], out);
          if (form == 1) warptest::linearFixedAt(src, xs[i], ys[i], 33, out);
          if (form == 2) warptest::cubicAt(src, xs[i], ys[i], out);
        }
        qvtest::expectSameOnEveryTier([&] {
          const warptest::WarpInternals& k = warptest::currentInternals();
          std::vector<uint8_t> out(expected.size(), 0);
          const int lx = width - 1, ly = height - 1;
          if (form == 0) k.nearestVector(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), count, lx, ly);
          if (form == 1) k.linearVector(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), count, lx, ly);
          if (form == 2 && kind == Kind::u8c1)
            k.cubicVector8uC1(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), count, -1, -1, width,
                              height, lx, ly);
          if (form == 2 && kind == Kind::u8c4)
            k.cubicVector8uC4(src.bytes.data(), src.step(), out.data(), xs.data(), ys.data(), count, -1, -1, width,
                              height, lx, ly);
          if (form == 2 && kind == Kind::u16c4)
            k.cubicVector16uC4(reinterpret_cast<const Ipp16u*>(src.bytes.data()), src.step(),
                               reinterpret_cast<Ipp16u*>(out.data()), xs.data(), ys.data(), count, -1, -1, width,
                               height, lx, ly);
          EXPECT_EQ(out, expected) << "form " << form << " kind " << static_cast<int>(kind);
          return out;
        });
      }
    }
  }
}

}  // namespace
