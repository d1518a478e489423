// Every status of the square-pixel resize and of its size query, in the order of the checks,
// with a canary that nothing was written.

#include <gtest/gtest.h>

#include <vector>

#include "sqrpixel/sqrpixel_support.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;
using sqrtest::Layout;

struct Args {
  bool nullSrc = false, nullDst = false, nullBuffer = false;
  IppiSize srcSize{12, 10};
  IppiRect srcRoi{0, 0, 12, 10};
  IppiRect dstRoi{0, 0, 20, 20};
  double xFactor = 1.5, yFactor = 1.5, xShift = 0, yShift = 0;
  uint32_t interpolation = IPPI_INTER_LINEAR;
};

// The call's status; the destination and the scratch must be as they were.
IppStatus run(const Layout& layout, const Args& a) {
  TestImage src(12, 10, layout.pixelBytes(), 4, layout.bits == 8 ? 1 : 2);
  src.fillRandom(5);
  TestImage dst(20, 20, layout.pixelBytes(), 4, 2);
  dst.fill(0x3C);
  std::vector<uint8_t> buffer(1 << 16, 0x77);
  const IppStatus status =
      sqrtest::callResize(layout, a.nullSrc ? nullptr : src.data(), a.srcSize, src.step(), a.srcRoi,
                          a.nullDst ? nullptr : dst.data(), dst.step(), a.dstRoi, a.xFactor, a.yFactor, a.xShift,
                          a.yShift, a.interpolation, a.nullBuffer ? nullptr : buffer.data());
  EXPECT_EQ(dst.pixels(), std::vector<uint8_t>(dst.pixels().size(), 0x3C));
  EXPECT_TRUE(dst.surroundingsIntact());
  EXPECT_EQ(buffer, std::vector<uint8_t>(buffer.size(), 0x77));
  return status;
}

void forEveryLayoutAndTier(const std::function<void(const Layout&)>& body) {
  for (const Layout& layout : sqrtest::layouts()) {
    SCOPED_TRACE(layout.name);
    qvtest::onEveryTier([&](const qvtest::Tier&) { body(layout); });
  }
}

TEST(SqrPixelStatus, NullPointersComeFirst) {
  forEveryLayoutAndTier([](const Layout& layout) {
    Args a;
    a.nullSrc = true;
    a.srcSize = {0, 0};
    a.xFactor = 0;
    a.interpolation = 3;
    EXPECT_EQ(run(layout, a), ippStsNullPtrErr);
    Args b;
    b.nullDst = true;
    EXPECT_EQ(run(layout, b), ippStsNullPtrErr);
    Args c;
    c.nullBuffer = true;
    c.srcRoi = {-1, 0, 1, 1};
    EXPECT_EQ(run(layout, c), ippStsNullPtrErr);
  });
}

TEST(SqrPixelStatus, EmptyOrNegativeSizesAndRegions) {
  const std::vector<std::function<void(Args&)>> breaks{
      [](Args& a) { a.srcSize.width = 0; }, [](Args& a) { a.srcSize.height = -3; },
      [](Args& a) { a.srcRoi.x = -1; },     [](Args& a) { a.srcRoi.y = -1; },
      [](Args& a) { a.srcRoi.width = 0; },  [](Args& a) { a.srcRoi.height = -2; },
      [](Args& a) { a.dstRoi.x = -1; },     [](Args& a) { a.dstRoi.y = -5; },
      [](Args& a) { a.dstRoi.width = 0; },  [](Args& a) { a.dstRoi.height = 0; }};
  forEveryLayoutAndTier([&](const Layout& layout) {
    for (size_t i = 0; i < breaks.size(); ++i) {
      SCOPED_TRACE(i);
      Args a;
      breaks[i](a);
      a.xFactor = 0;  // a later check fails too
      EXPECT_EQ(run(layout, a), ippStsSizeErr);
    }
  });
}

TEST(SqrPixelStatus, FactorAtOrBelowZero) {
  forEveryLayoutAndTier([](const Layout& layout) {
    for (double bad : {0.0, -1.0, -0.0}) {
      Args a;
      a.xFactor = bad;
      a.interpolation = 3;  // a later check fails too
      EXPECT_EQ(run(layout, a), ippStsResizeFactorErr);
      Args b;
      b.yFactor = bad;
      EXPECT_EQ(run(layout, b), ippStsResizeFactorErr);
    }
  });
}

TEST(SqrPixelStatus, UnknownFiltersAndTwoEdgeFlags) {
  forEveryLayoutAndTier([](const Layout& layout) {
    for (uint32_t filter : {0u, 3u, 9u, 15u, 17u, 32u, 0x10000000u, 0x10000002u}) {
      SCOPED_TRACE(filter);
      Args a;
      a.interpolation = filter;
      a.srcRoi.x = 50;  // a later check fails too
      EXPECT_EQ(run(layout, a), ippStsInterpolationErr);
    }
    for (uint32_t flags :
         {IPPI_SMOOTH_EDGE | IPPI_SUBPIXEL_EDGE, IPPI_SMOOTH_EDGE | IPPI_ANTIALIASING,
          IPPI_SUBPIXEL_EDGE | IPPI_ANTIALIASING, IPPI_SMOOTH_EDGE | IPPI_SUBPIXEL_EDGE | IPPI_ANTIALIASING}) {
      SCOPED_TRACE(flags);
      Args a;
      a.interpolation = IPPI_INTER_SUPER | flags;  // super refuses the factor only after this
      EXPECT_EQ(run(layout, a), ippStsInterpolationErr);
    }
  });
}

TEST(SqrPixelStatus, SuperRefusesEnlargement) {
  forEveryLayoutAndTier([](const Layout& layout) {
    Args a;
    a.interpolation = IPPI_INTER_SUPER;
    a.xFactor = 1.5;
    a.yFactor = 0.5;
    a.srcRoi.x = 50;  // a later check fails too
    EXPECT_EQ(run(layout, a), ippStsResizeFactorErr);
    Args b;
    b.interpolation = IPPI_INTER_SUPER;
    b.xFactor = 0.5;
    b.yFactor = 1.5;
    EXPECT_EQ(run(layout, b), ippStsResizeFactorErr);
  });
}

TEST(SqrPixelStatus, SourceRegionPastTheImageWritesNothing) {
  forEveryLayoutAndTier([](const Layout& layout) {
    Args a;
    a.srcRoi = {12, 0, 4, 4};
    EXPECT_EQ(run(layout, a), ippStsWrongIntersectROI);
    Args b;
    b.srcRoi = {0, 10, 4, 4};
    EXPECT_EQ(run(layout, b), ippStsWrongIntersectROI);
  });
}

TEST(SqrPixelStatus, RectangleThinnerThanHalfAPixelIsNoOperation) {
  forEveryLayoutAndTier([](const Layout& layout) {
    Args a;
    a.srcRoi = {0, 0, 3, 10};
    a.xFactor = 0.1;  // 0.3 pixels wide
    EXPECT_EQ(run(layout, a), ippStsNoOperation);
    Args b;
    b.dstRoi = {15, 15, 5, 5};
    b.xFactor = b.yFactor = 1.0;  // mapped rectangle and destination region do not meet
    EXPECT_EQ(run(layout, b), ippStsNoOperation);
    Args c;
    c.srcRoi = {0, 0, 1, 1};
    c.xFactor = c.yFactor = 0.9;
    c.xShift = 0.3;  // [0.3, 1.2): no whole pixel inside with an edge flag
    c.interpolation = IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE;
    EXPECT_EQ(run(layout, c), ippStsNoOperation);
  });
}

// ---- the size query ----

IppStatus sizeOf(IppiRect s, IppiRect d, uint32_t channels, uint32_t interpolation, int* size) {
  *size = -12345;
  return ippiResizeGetBufSize(s, d, channels, interpolation, size);
}

TEST(SqrPixelBufferSize, StatusesInOrder) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const IppiRect good{0, 0, 10, 10};
    EXPECT_EQ(ippiResizeGetBufSize({-1, 0, 0, 0}, good, 0, 3, nullptr), ippStsNullPtrErr);
    int size;
    for (IppiRect bad : {IppiRect{-1, 0, 5, 5}, IppiRect{0, -1, 5, 5}, IppiRect{0, 0, 0, 5}, IppiRect{0, 0, 5, -5}}) {
      EXPECT_EQ(sizeOf(bad, good, 0, 3, &size), ippStsSizeErr);
      EXPECT_EQ(sizeOf(good, bad, 0, 3, &size), ippStsSizeErr);
      EXPECT_EQ(size, -12345);
    }
    for (uint32_t channels : {0u, 2u, 5u, 8u}) EXPECT_EQ(sizeOf(good, good, channels, 3, &size), ippStsNumChannelsErr);
    for (uint32_t bad : {0u, 3u, 9u, 0x10000004u, uint32_t(IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE | IPPI_SUBPIXEL_EDGE)})
      EXPECT_EQ(sizeOf(good, good, 3, bad, &size), ippStsInterpolationErr);
    EXPECT_EQ(size, -12345);
  });
}

TEST(SqrPixelBufferSize, EveryFilterAndChannelCountFollowsTheTable) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const std::vector<IppiRect> regions{{0, 0, 1, 1}, {3, 4, 17, 9}, {0, 0, 640, 480}, {1, 2, 63, 65}, {0, 0, 1000, 3}};
    for (uint32_t filter : {1u, 2u, 4u, 5u, 6u, 7u, 8u, 16u})
      for (uint32_t flags : {0, IPPI_ANTIALIASING, IPPI_SMOOTH_EDGE, IPPI_SUBPIXEL_EDGE})
        for (uint32_t channels : {1u, 3u, 4u})
          for (const IppiRect& s : regions)
            for (const IppiRect& d : regions) {
              int got, expected;
              const IppStatus status = sizeOf(s, d, channels, filter | flags, &got);
              EXPECT_EQ(status, sqrref::bufferSize(s, d, channels, filter | flags, &expected));
              EXPECT_EQ(got, expected) << filter << " " << flags << " " << channels;
            }
  });
}

TEST(SqrPixelBufferSize, AntialiasingWithNearestOrSuperWarns) {
  int size;
  EXPECT_EQ(sizeOf({0, 0, 100, 50}, {0, 0, 30, 20}, 4, IPPI_INTER_NN | IPPI_ANTIALIASING, &size), ippStsNoAntialiasing);
  EXPECT_EQ(size, 4 * (32 + 32) + 16);
  EXPECT_EQ(sizeOf({0, 0, 100, 50}, {0, 0, 30, 20}, 4, IPPI_INTER_SUPER | IPPI_ANTIALIASING, &size),
            ippStsNoAntialiasing);
  EXPECT_EQ(size, 8 * 4 * 112 + 16);
  EXPECT_EQ(sizeOf({0, 0, 100, 50}, {0, 0, 30, 20}, 4, IPPI_INTER_SUPER, &size), ippStsNoErr);
  EXPECT_EQ(size, 8 * 4 * 112 + 16);
}

TEST(SqrPixelBufferSize, TooLargeIsASizeErrorWithSizeZero) {
  int size = 7;
  EXPECT_EQ(sizeOf({0, 0, 10, 10}, {0, 0, 100000000, 10}, 4, IPPI_INTER_LANCZOS, &size), ippStsSizeErr);
  EXPECT_EQ(size, 0);
  size = 7;
  EXPECT_EQ(sizeOf({0, 0, 30000, 30000}, {0, 0, 20000, 20000}, 4, IPPI_INTER_LANCZOS | IPPI_ANTIALIASING, &size),
            ippStsSizeErr);
  EXPECT_EQ(size, 0);
}

}  // namespace
