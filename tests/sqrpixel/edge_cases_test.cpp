// The particular behaviours of the square-pixel resize: filters that shorten on small sources,
// the destination outside the mapped rectangle, nearest on a boundary, the linear edge zones,
// cubic weights at whole positions, supersampling cells and rounding, the stretched kernels.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "sqrpixel/sqrpixel_support.h"
#include "support/tiers.h"

namespace m7 {
extern const float tblLanczos3[304];
}
namespace u8 {
extern const float tblLanczos3[304];
}
namespace y8 {
extern const float tblLanczos3[304];
}
namespace e9 {
extern const float tblLanczos3[304];
}

namespace {

using qvtest::TestImage;

// A one-channel 8-bit image given by its samples, row after row.
struct Plane {
  int width, height;
  std::vector<uint8_t> v;
};

struct Resized {
  IppStatus status;
  std::vector<uint8_t> pixels;  // the whole destination
};

// Resizes a plane into a destination of dstW x dstH that starts filled with `fill`.
Resized resize8(const Plane& p, int dstW, int dstH, double xf, double yf, uint32_t interpolation, double xs = 0,
                double ys = 0, uint8_t fill = 0x11) {
  TestImage src(p.width, p.height, 1, 3, 1);
  for (int y = 0; y < p.height; ++y) std::memcpy(src.row(y), &p.v[static_cast<size_t>(y) * p.width], p.width);
  TestImage dst(dstW, dstH, 1, 5, 2);
  dst.fill(fill);
  const IppiRect srcRoi{0, 0, p.width, p.height}, dstRoi{0, 0, dstW, dstH};
  int size = 0;
  ippiResizeGetBufSize(srcRoi, dstRoi, 1, interpolation, &size);
  std::unique_ptr<uint8_t[]> buffer(new uint8_t[size]);
  const IppStatus status = ippiResizeSqrPixel_8u_C1R(src.data(), src.size(), src.step(), srcRoi, dst.data(), dst.step(),
                                                     dstRoi, xf, yf, xs, ys, interpolation, buffer.get());
  EXPECT_TRUE(dst.surroundingsIntact());
  return {status, dst.pixels()};
}

Plane randomPlane(int w, int h, uint32_t seed) {
  Plane p{w, h, qvtest::randomBytes(static_cast<size_t>(w) * h, seed)};
  return p;
}

Plane constantPlane(int w, int h, uint8_t value) {
  return {w, h, std::vector<uint8_t>(static_cast<size_t>(w) * h, value)};
}

TEST(SqrPixelEdgeCases, SmallSourcesShortenTheFilterSilently) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane narrow = randomPlane(5, 100, 1);
    const Resized lanczos = resize8(narrow, 12, 40, 2.4, 0.4, IPPI_INTER_LANCZOS);
    const Resized cubic = resize8(narrow, 12, 40, 2.4, 0.4, IPPI_INTER_CUBIC);
    EXPECT_EQ(lanczos.status, ippStsNoErr);
    EXPECT_EQ(lanczos.pixels, cubic.pixels);
    const Plane thin = randomPlane(3, 100, 2);
    const Resized linear = resize8(thin, 8, 40, 2.5, 0.4, IPPI_INTER_LINEAR);
    for (uint32_t filter : {IPPI_INTER_CUBIC, IPPI_INTER_LANCZOS, IPPI_INTER_BSPLINE}) {
      const Resized r = resize8(thin, 8, 40, 2.5, 0.4, filter);
      EXPECT_EQ(r.status, ippStsNoErr);
      EXPECT_EQ(r.pixels, linear.pixels);
    }
    // At 6 and more the Lanczos kernel is its own.
    const Plane six = randomPlane(6, 100, 3);
    EXPECT_NE(resize8(six, 15, 40, 2.5, 0.4, IPPI_INTER_LANCZOS).pixels,
              resize8(six, 15, 40, 2.5, 0.4, IPPI_INTER_CUBIC).pixels);
  });
}

TEST(SqrPixelEdgeCases, OnlyTheMappedRectangleIsWritten) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(10, 8, 4);
    const Resized r = resize8(p, 30, 30, 1.0, 1.0, IPPI_INTER_CUBIC, 0, 0, 0x11);
    EXPECT_EQ(r.status, ippStsNoErr);
    for (int y = 0; y < 30; ++y)
      for (int x = 0; x < 30; ++x) {
        const uint8_t got = r.pixels[static_cast<size_t>(y) * 30 + x];
        // Factor 1: whole positions copy; outside the mapped rectangle nothing changes.
        const uint8_t expected = x < 10 && y < 8 ? p.v[static_cast<size_t>(y) * 10 + x] : 0x11;
        EXPECT_EQ(got, expected);
      }
  });
}

TEST(SqrPixelEdgeCases, AntialiasingWithNearestResizesWithoutItAndWarns) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(40, 30, 5);
    const Resized with = resize8(p, 20, 20, 0.37, 0.5, IPPI_INTER_NN | IPPI_ANTIALIASING);
    const Resized without = resize8(p, 20, 20, 0.37, 0.5, IPPI_INTER_NN);
    EXPECT_EQ(with.status, ippStsNoAntialiasing);
    EXPECT_EQ(without.status, ippStsNoErr);
    EXPECT_EQ(with.pixels, without.pixels);
    const Resized superWith = resize8(p, 20, 20, 0.37, 0.5, IPPI_INTER_SUPER | IPPI_ANTIALIASING);
    EXPECT_EQ(superWith.status, ippStsNoAntialiasing);
    EXPECT_EQ(superWith.pixels, resize8(p, 20, 20, 0.37, 0.5, IPPI_INTER_SUPER).pixels);
  });
}

TEST(SqrPixelEdgeCases, NearestOnABoundaryTakesThePixelBefore) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p{4, 1, {10, 20, 30, 40}};
    // Factor 0.5: centres fall on 1.0 and 3.0, boundaries between pixels.
    const Resized r = resize8(p, 2, 1, 0.5, 1.0, IPPI_INTER_NN);
    EXPECT_EQ(r.pixels, (std::vector<uint8_t>{10, 30}));
  });
}

// Linear at x = -0.25: the first column of an enlargement by 2 lies in the leading zone and
// takes column 0 alone, interpolated down only.
TEST(SqrPixelEdgeCases, LinearLeadingZoneTakesTheEdgeColumn) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(6, 6, 6);
    const Resized r = resize8(p, 12, 12, 2.0, 2.0, IPPI_INTER_LINEAR);
    for (int y = 1; y < 11; ++y) {
      const double sy = (y + 0.5) / 2.0 - 0.5;
      const int iy = static_cast<int>(std::floor(sy));
      const int wy = static_cast<int>((sy - iy) * 16384 + 1e-7);
      const int expected = (p.v[iy * 6] * (16384 - wy) + p.v[(iy + 1) * 6] * wy + 8192) >> 14;
      EXPECT_EQ(r.pixels[static_cast<size_t>(y) * 12], expected) << y;
    }
    EXPECT_EQ(r.pixels[0], p.v[0]);  // the corner: both axes in their zones
  });
}

// Integers and half-up against the float rule of a linear resize that rounds once, ties to even:
// the two differ by one step at most.
TEST(SqrPixelEdgeCases, FixedPointLinearIsWithinOneStepOfFloatLinear) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(31, 23, 7);
    for (double f : {0.5, 0.73, 1.6, 2.0}) {
      const int dw = static_cast<int>(31 * f), dh = static_cast<int>(23 * f);
      const Resized r = resize8(p, dw, dh, f, f, IPPI_INTER_LINEAR);
      int largest = 0, differing = 0;
      for (int y = 0; y < dh; ++y)
        for (int x = 0; x < dw; ++x) {
          auto axis = [](int i, double inv, int length, int* i0, float* frac) {
            const double s = (i + 0.5) * inv - 0.5;
            const int k = static_cast<int>(std::floor(s));
            *frac = static_cast<float>(s - k);
            *i0 = k;
            (void)length;
          };
          int ix, iy;
          float fx, fy;
          axis(x, 1 / f, 31, &ix, &fx);
          axis(y, 1 / f, 23, &iy, &fy);
          auto at = [&](int u, int v) {
            return static_cast<float>(p.v[std::clamp(v, 0, 22) * 31 + std::clamp(u, 0, 30)]);
          };
          const float r0 = at(ix, iy) + (at(ix + 1, iy) - at(ix, iy)) * fx;
          const float r1 = at(ix, iy + 1) + (at(ix + 1, iy + 1) - at(ix, iy + 1)) * fx;
          const int plain = static_cast<int>(std::nearbyint(r0 + (r1 - r0) * fy));
          const int d = std::abs(plain - r.pixels[static_cast<size_t>(y) * dw + x]);
          largest = std::max(largest, d);
          differing += d != 0;
        }
      EXPECT_LE(largest, 1) << f;
      if (f != 2.0 && f != 0.5) {
        EXPECT_GT(differing, 0) << f;
      }
    }
  });
}

TEST(SqrPixelEdgeCases, CubicAtWholePositions) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(12, 9, 8);
    EXPECT_EQ(resize8(p, 12, 9, 1, 1, IPPI_INTER_CUBIC).pixels, p.v);
    EXPECT_EQ(resize8(p, 12, 9, 1, 1, IPPI_INTER_CR).pixels, p.v);
    // The B-spline weighs 1/6, 2/3, 1/6 even at a whole position: an impulse spreads.
    Plane impulse = constantPlane(9, 9, 0);
    impulse.v[4 * 9 + 4] = 216;
    const Resized b = resize8(impulse, 9, 9, 1, 1, IPPI_INTER_BSPLINE);
    EXPECT_EQ(b.pixels[4 * 9 + 4], 96);  // 216 * 2/3 * 2/3
    EXPECT_EQ(b.pixels[4 * 9 + 3], 24);  // 216 * 1/6 * 2/3
    EXPECT_EQ(b.pixels[3 * 9 + 3], 6);   // 216 * 1/6 * 1/6
    EXPECT_EQ(b.pixels[4 * 9 + 2], 0);
    const Resized c = resize8(impulse, 9, 9, 1, 1, IPPI_INTER_B05C03);
    EXPECT_GT(c.pixels[4 * 9 + 3], 0);
    EXPECT_LT(c.pixels[4 * 9 + 4], 216);
  });
}

TEST(SqrPixelEdgeCases, SuperAtFactorOneCopies) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(13, 7, 9);
    EXPECT_EQ(resize8(p, 13, 7, 1, 1, IPPI_INTER_SUPER).pixels, p.v);
  });
}

TEST(SqrPixelEdgeCases, SuperRoundsMeansHalfUp) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    // Thirds: the mean of nine samples, truncate(sum / 9 + 0.5).
    const Plane p{3, 3, {0, 0, 0, 0, 0, 0, 1, 1, 3}};  // sum 5: 0.56 -> 1
    EXPECT_EQ(resize8(p, 1, 1, 1.0 / 3, 1.0 / 3, IPPI_INTER_SUPER).pixels, std::vector<uint8_t>{1});
    const Plane q{3, 3, {0, 0, 0, 0, 0, 0, 1, 1, 2}};  // sum 4: 0.44 -> 0
    EXPECT_EQ(resize8(q, 1, 1, 1.0 / 3, 1.0 / 3, IPPI_INTER_SUPER).pixels, std::vector<uint8_t>{0});
    // Halves: a mean of 2.5 gives 3 and of 4.5 gives 5, where ties to even would give 2 and 4.
    const Plane h{4, 2, {2, 3, 4, 5, 2, 3, 4, 5}};
    EXPECT_EQ(resize8(h, 2, 1, 0.5, 0.5, IPPI_INTER_SUPER).pixels, (std::vector<uint8_t>{3, 5}));
  });
}

TEST(SqrPixelEdgeCases, SuperTwoThirdsWeighsHalfPixels) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p{3, 1, {30, 90, 150}};
    // Cells [0, 1.5) and [1.5, 3): (30 + 0.5 * 90) / 1.5 = 50, (0.5 * 90 + 150) / 1.5 = 130.
    EXPECT_EQ(resize8(p, 2, 1, 2.0 / 3, 1.0, IPPI_INTER_SUPER).pixels, (std::vector<uint8_t>{50, 130}));
  });
}

TEST(SqrPixelEdgeCases, SuperCellBeforeTheImageCountsTheEdgeInFull) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p{4, 1, {100, 200, 0, 0}};
    // Shift 0.3 at factor 0.5: the first cell is [-0.6, 1.4): 0.6 of the edge pixel repeated, the
    // pixel itself, 0.4 of the next: (1.6 * 100 + 0.4 * 200) / 2 = 120.
    const Resized r = resize8(p, 3, 1, 0.5, 1.0, IPPI_INTER_SUPER, 0.3, 0.0);
    EXPECT_EQ(r.pixels[0], 120);
  });
}

TEST(SqrPixelEdgeCases, ConstantImagesStayConstant) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (uint8_t value : {0, 1, 77, 254, 255})
      for (double f : {0.1, 0.25, 1.0 / 3, 0.45, 2.0 / 3, 0.99, 1.0, 1.7, 3.0}) {
        const Plane p = constantPlane(29, 19, value);
        const int dw = std::max(1, static_cast<int>(29 * f)), dh = std::max(1, static_cast<int>(19 * f));
        std::vector<uint32_t> filters{IPPI_INTER_LINEAR | IPPI_ANTIALIASING, IPPI_INTER_CUBIC | IPPI_ANTIALIASING,
                                      IPPI_INTER_LANCZOS | IPPI_ANTIALIASING, IPPI_INTER_CR | IPPI_ANTIALIASING};
        if (f <= 1) filters.push_back(IPPI_INTER_SUPER);
        for (uint32_t filter : filters) {
          const Resized r = resize8(p, dw, dh, f, f, filter);
          EXPECT_EQ(r.pixels, std::vector<uint8_t>(r.pixels.size(), value)) << filter << " at " << f;
        }
      }
  });
}

// Columns of 0 and 255 reduced by 4, shifted so that every centre falls on an even column: the
// unstretched Lanczos samples those columns and sees black, the stretched one averages the
// pattern to mid-grey (away from the edges, where the repeated edge column tips the balance).
TEST(SqrPixelEdgeCases, StretchedLanczosAveragesAOnePixelPattern) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    Plane stripes{96, 16, {}};
    for (int y = 0; y < 16; ++y)
      for (int x = 0; x < 96; ++x) stripes.v.push_back(x % 2 ? 255 : 0);
    const uint32_t aaLanczos = IPPI_INTER_LANCZOS | IPPI_ANTIALIASING;
    const Resized aa = resize8(stripes, 24, 4, 0.25, 0.25, aaLanczos, -0.125, 0.0);
    const Resized plain = resize8(stripes, 24, 4, 0.25, 0.25, IPPI_INTER_LANCZOS, -0.125, 0.0);
    EXPECT_EQ(aa.status, ippStsNoErr);
    int aaFar = 0, plainFar = 0;
    for (int y = 0; y < 4; ++y)
      for (int x = 3; x <= 20; ++x) {
        aaFar = std::max(aaFar, std::abs(aa.pixels[static_cast<size_t>(y) * 24 + x] - 128));
        plainFar = std::max(plainFar, std::abs(plain.pixels[static_cast<size_t>(y) * 24 + x] - 128));
      }
    EXPECT_LE(aaFar, 2);
    EXPECT_GE(plainFar, 120);
  });
}

// Enlarging with the flag keeps the unstretched kernel: within a step of the tables' Lanczos.
TEST(SqrPixelEdgeCases, AntialiasedEnlargementIsTheKernelUnstretched) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const Plane p = randomPlane(20, 14, 10);
    for (uint32_t filter : {IPPI_INTER_LANCZOS, IPPI_INTER_CR, IPPI_INTER_LINEAR}) {
      const Resized aa = resize8(p, 50, 35, 2.5, 2.5, filter | IPPI_ANTIALIASING);
      const Resized plain = resize8(p, 50, 35, 2.5, 2.5, filter);
      int largest = 0;
      for (size_t i = 0; i < aa.pixels.size(); ++i)
        largest = std::max(largest, std::abs(aa.pixels[i] - plain.pixels[i]));
      EXPECT_LE(largest, 1) << filter;
    }
  });
}

// Factors far from the regions' ratio: a source region of 10 pixels reduced a hundredfold into
// one pixel needs more taps than the size query made room for; the result is still the rule's.
TEST(SqrPixelEdgeCases, AntialiasingWithFarFactorsStaysInsideTheScratch) {
  for (const sqrtest::Layout& layout : sqrtest::layouts())
    sqrtest::expectMatchesReference(layout,
                                    {300,
                                     12,
                                     {0, 0, 300, 12},
                                     10,
                                     10,
                                     {0, 0, 10, 10},
                                     0.01,
                                     0.5,
                                     0.45,
                                     0.0,
                                     IPPI_INTER_LANCZOS | IPPI_ANTIALIASING},
                                    3);
}

TEST(SqrPixelEdgeCases, LanczosTableIsTheKernelAndTheSameOnEveryTier) {
  const float* tables[] = {m7::tblLanczos3, u8::tblLanczos3, y8::tblLanczos3, e9::tblLanczos3};
  EXPECT_EQ(m7::tblLanczos3[0], 1.0f);
  for (int k = 1; k < 304; ++k) {
    const double x = M_PI * k / 100.0;
    const double rule = k >= 300 ? 0.0 : (std::sin(x) / x) * (std::sin(x / 3) / (x / 3));
    EXPECT_NEAR(m7::tblLanczos3[k], rule, 1e-7) << k;
    for (const float* t : tables) EXPECT_EQ(t[k], m7::tblLanczos3[k]) << k;
  }
}

}  // namespace

namespace {

// A narrow source region of a wide image: the scratch holds the tap tables but not a whole source
// row in floats, so the taps read the samples directly; the sums are the same.
TEST(SqrPixelEdgeCases, AntialiasingOnANarrowRegionOfAWideImage) {
  uint32_t seed = 40;
  for (const sqrtest::Layout& layout : sqrtest::layouts())
    for (uint32_t filter : {IPPI_INTER_LANCZOS, IPPI_INTER_CUBIC, IPPI_INTER_LINEAR})
      sqrtest::expectMatchesReference(
          layout, {1000, 6, {500, 1, 20, 3}, 12, 6, {0, 0, 12, 6}, 0.5, 1.5, -245.0, -1.0, filter | IPPI_ANTIALIASING},
          ++seed);
}

}  // namespace

namespace {

// Factors of a billionth with a shift that still leaves one pixel whose centre the mapped
// rectangle holds: super and the stretched kernels bound their cells and kernels at 16 times the
// source, finish, and write a mean of the source there; NaN shifts leave no pixel.
TEST(SqrPixelEdgeCases, FactorsFarBelowOnePixelFinish) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    Plane p = randomPlane(10, 10, 41);
    const double shift = 0.5 - 5e-9;
    for (uint32_t filter :
         std::vector<uint32_t>{IPPI_INTER_SUPER, IPPI_INTER_LANCZOS | IPPI_ANTIALIASING, IPPI_INTER_LINEAR}) {
      const Resized r = resize8(p, 3, 3, 1e-9, 1e-9, filter, shift, shift, 0x11);
      EXPECT_EQ(r.status, ippStsNoErr) << filter;
      const uint8_t lowest = *std::min_element(p.v.begin(), p.v.end());
      const uint8_t highest = *std::max_element(p.v.begin(), p.v.end());
      EXPECT_GE(r.pixels[0], lowest);
      EXPECT_LE(r.pixels[0], highest);
      EXPECT_EQ(std::vector<uint8_t>(r.pixels.begin() + 1, r.pixels.end()), std::vector<uint8_t>(8, 0x11));
    }
    EXPECT_EQ(resize8(p, 3, 3, 0.5, 0.5, IPPI_INTER_CUBIC, std::nan(""), 0.0).status, ippStsNoOperation);
  });
}

}  // namespace
