// The library's own scaler and drawing qualities, which stand in for the platform's: constant
// images stay constant, edges extend, the two Lanczos qualities differ, the kernels that stretch
// on reduction do not alias a pattern of one-pixel stripes while nearest and plain linear do,
// and 16-bit samples work alike.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "platform/scaler.h"
#include "scale/scale_support.h"

namespace {

using scaletest::Image;
namespace platform = qv::platform;

constexpr uint32_t kLanczos3 = platform::kScaleEdgeExtend;
constexpr uint32_t kLanczos5 = platform::kScaleEdgeExtend | platform::kScaleHighQuality;

// Scales with one of the six roads: the two scaler qualities (as flags) and the four drawing
// qualities.
enum class Road { Lanczos5, Lanczos3, None, Low, Medium, High };
const Road kRoads[] = {Road::Lanczos5, Road::Lanczos3, Road::None, Road::Low, Road::Medium, Road::High};

void scale(Road road, Image& src, Image& dst, int bits) {
  switch (road) {
    case Road::Lanczos5:
    case Road::Lanczos3: {
      const uint32_t flags = road == Road::Lanczos5 ? kLanczos5 : kLanczos3;
      if (bits == 16)
        platform::scaleARGB16U(src.buffer(), dst.buffer(), nullptr, flags);
      else
        platform::scaleARGB8888(src.buffer(), dst.buffer(), nullptr, flags);
      return;
    }
    default: {
      const int quality = road == Road::None ? 1 : road == Road::Low ? 2 : road == Road::Medium ? 4 : 3;
      EXPECT_TRUE(platform::drawScaledImage(src.buffer(), dst.buffer(), bits, quality));
    }
  }
}

TEST(LibraryScaler, ConstantImagesStayConstant) {
  for (int bits : {8, 16})
    for (Road road : kRoads)
      for (auto [w, h] : {std::pair{7, 5}, std::pair{40, 31}, std::pair{113, 77}, std::pair{1, 1}}) {
        const int value = bits == 8 ? 201 : 51234;
        Image src(40, 31, 4, bits);
        src.fill(value);
        Image dst(w, h, 4, bits);
        scale(road, src, dst, bits);
        SCOPED_TRACE(testing::Message() << bits << " bits, road " << int(road) << " to " << w << "x" << h);
        EXPECT_EQ(dst.samples(), std::vector<int>(static_cast<size_t>(w) * h * 4, value));
        EXPECT_EQ(dst.padding(), std::vector<uint8_t>(dst.padding().size(), 0xA5));
      }
}

// Ramps across with every row alike, and down with every column alike: taps past the image
// repeat its edge, so the first and last rows (columns) of the result equal the inner ones, with
// no dark rim.
TEST(LibraryScaler, EdgesExtend) {
  for (int bits : {8, 16})
    for (Road road : kRoads)
      for (auto [w, h] : {std::pair{13, 9}, std::pair{90, 70}}) {
        const int top = bits == 8 ? 255 : 65535;
        Image across(30, 24, 4, bits), down(30, 24, 4, bits);
        for (int y = 0; y < 24; ++y)
          for (int x = 0; x < 30; ++x)
            for (int c = 0; c < 4; ++c) {
              across.set(x, y, c, top - x * (top / 40));
              down.set(x, y, c, top - y * (top / 40));
            }
        Image a(w, h, 4, bits), d(w, h, 4, bits);
        scale(road, across, a, bits);
        scale(road, down, d, bits);
        SCOPED_TRACE(testing::Message() << bits << " bits, road " << int(road) << " to " << w << "x" << h);
        for (int x = 0; x < w; ++x)
          for (int c = 0; c < 4; ++c) {
            EXPECT_EQ(a.at(x, 0, c), a.at(x, h / 2, c));
            EXPECT_EQ(a.at(x, h - 1, c), a.at(x, h / 2, c));
          }
        for (int y = 0; y < h; ++y)
          for (int c = 0; c < 4; ++c) {
            EXPECT_EQ(d.at(0, y, c), d.at(w / 2, y, c));
            EXPECT_EQ(d.at(w - 1, y, c), d.at(w / 2, y, c));
          }
        EXPECT_GE(a.at(0, 0), a.at(1, 0));  // the brightest column stays at the left edge
      }
}

TEST(LibraryScaler, TheTwoLanczosQualitiesDiffer) {
  Image src(64, 48, 4, 8);
  src.fillRandom(11);
  Image five(29, 21, 4, 8), three(29, 21, 4, 8);
  scale(Road::Lanczos5, src, five, 8);
  scale(Road::Lanczos3, src, three, 8);
  const std::vector<int> a = five.samples(), b = three.samples();
  size_t differing = 0;
  for (size_t i = 0; i < a.size(); ++i) differing += a[i] != b[i];
  EXPECT_GT(differing, a.size() / 2);
}

// Linear kernels never leave the range of their taps; Lanczos rings, within its lobes.
TEST(LibraryScaler, RingingStaysWithinTheKernel) {
  Image step(16, 4, 4, 8);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 16; ++x)
      for (int c = 0; c < 4; ++c) step.set(x, y, c, x < 8 ? 40 : 200);
  for (Road road : kRoads) {
    Image dst(64, 4, 4, 8);
    scale(road, step, dst, 8);
    int low = 255, high = 0;
    for (int x = 0; x < 64; ++x) {
      low = std::min(low, dst.at(x, 1));
      high = std::max(high, dst.at(x, 1));
    }
    if (road == Road::None || road == Road::Low || road == Road::Medium) {
      EXPECT_EQ(low, 40) << int(road);
      EXPECT_EQ(high, 200) << int(road);
    } else {
      EXPECT_LT(low, 40) << int(road);  // the first negative lobe
      EXPECT_GE(low, 40 - 160 * 14 / 100) << int(road);
      EXPECT_LE(high, 200 + 160 * 14 / 100) << int(road);
    }
  }
}

// Columns of black and white, reduced by a third and by 0.3: the measured distance from an even
// grey, away from the edges.
TEST(LibraryScaler, StretchedKernelsDoNotAliasStripes) {
  for (double factor : {1.0 / 3, 0.3}) {
    Image stripes(300, 40, 4, 8);
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 300; ++x)
        for (int c = 0; c < 4; ++c) stripes.set(x, y, c, x % 2 ? 255 : 0);
    const int w = static_cast<int>(300 * factor), h = static_cast<int>(40 * factor);
    for (Road road : kRoads) {
      Image dst(w, h, 4, 8);
      scale(road, stripes, dst, 8);
      const double distance = scaletest::distanceFromGrey(dst, 3);
      SCOPED_TRACE(testing::Message() << "factor " << factor << " road " << int(road) << ": " << distance);
      std::printf("stripes reduced by %.3f, road %d: %.3f from grey\n", factor, int(road), distance);
      if (road == Road::None || road == Road::Low)
        EXPECT_GT(distance, 0.5);
      else
        EXPECT_LT(distance, 0.15);
    }
  }
}

}  // namespace
