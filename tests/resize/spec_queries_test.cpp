// The queries of a ResizeSpec: scratch size, border widths and source region, each status in
// the order of its checks with the results untouched, and the values against the plain rules.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_reference.h"
#include "resize/resize_support.h"
#include "support/tiers.h"

namespace {

using resizetest::kLinear;
using resizetest::SpecBlock;

constexpr int kUntouched = -777;

// A record written by hand at a 64-byte boundary, for the rows of the size table that no init
// of this family makes.
struct HandMadeSpec {
  std::vector<uint8_t> bytes = std::vector<uint8_t>(512, 0);
  ResizeSpec* spec() {
    const uintptr_t base = reinterpret_cast<uintptr_t>(bytes.data());
    return reinterpret_cast<ResizeSpec*>((base + 63) & ~uintptr_t{63});
  }
  HandMadeSpec(Ipp32u interpolation, Ipp32u lobes, IppiSize src, IppiSize dst) {
    ResizeSpec* r = spec();
    r->magic = QV_RESIZE_SPEC_MAGIC;
    r->interpolation = interpolation;
    r->lobes = lobes;
    const uint32_t gx = std::gcd(src.width, dst.width), gy = std::gcd(src.height, dst.height);
    r->xFilter = {src.width, dst.width, src.width / gx, dst.width / gx, nullptr, nullptr, 0, 0};
    r->yFilter = {src.height, dst.height, src.height / gy, dst.height / gy, nullptr, nullptr, 0, 0};
  }
};

IppStatus bufferSize(const ResizeSpec* spec, IppiSize region, Ipp32u channels, int* size, bool sixteen = false) {
  return sixteen ? ippiResizeGetBufferSize_16u(spec, region, channels, size)
                 : ippiResizeGetBufferSize_8u(spec, region, channels, size);
}

TEST(ResizeGetBufferSize, StatusesInTheOrderOfTheirChecks) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    SpecBlock good({40, 30}, {20, 10}, kLinear);
    HandMadeSpec unmarked(2, 1, {40, 30}, {20, 10});
    unmarked.spec()->magic = 0;
    for (bool sixteen : {false, true}) {
      int size = kUntouched;
      EXPECT_EQ(bufferSize(nullptr, {0, 0}, 2, &size, sixteen), ippStsNullPtrErr);
      EXPECT_EQ(bufferSize(good.spec(), {0, 0}, 2, nullptr, sixteen), ippStsNullPtrErr);
      EXPECT_EQ(bufferSize(unmarked.spec(), {0, -1}, 2, &size, sixteen), ippStsNoOperation);
      EXPECT_EQ(bufferSize(good.spec(), {5, 0}, 4, &size, sixteen), ippStsNoOperation);
      EXPECT_EQ(bufferSize(unmarked.spec(), {-1, 5}, 2, &size, sixteen), ippStsContextMatchErr);
      EXPECT_EQ(bufferSize(good.spec(), {-1, 5}, 2, &size, sixteen), ippStsNumChannelsErr);
      EXPECT_EQ(bufferSize(good.spec(), {-1, 5}, 0, &size, sixteen), ippStsNumChannelsErr);
      EXPECT_EQ(bufferSize(good.spec(), {-1, 5}, 4, &size, sixteen), ippStsSizeErr);
      EXPECT_EQ(bufferSize(good.spec(), {5, -5}, 3, &size, sixteen), ippStsSizeErr);
      EXPECT_EQ(bufferSize(HandMadeSpec(0, 1, {9, 9}, {9, 9}).spec(), {5, 5}, 4, &size, sixteen),
                ippStsNotSupportedModeErr);
      EXPECT_EQ(bufferSize(HandMadeSpec(16, 4, {9, 9}, {9, 9}).spec(), {5, 5}, 4, &size, sixteen),
                ippStsNotSupportedModeErr);
      // Rows of a billion pixels need more than 2^31 bytes.
      EXPECT_EQ(bufferSize(HandMadeSpec(2, 1, {9, 9}, {1000000000, 9}).spec(), {1000000000, 9}, 1, &size, sixteen),
                ippStsSizeErr);
      EXPECT_EQ(size, kUntouched);
    }
  });
}

TEST(ResizeGetBufferSize, SizesFollowTheTable) {
  const int lengths[] = {1, 2, 7, 31, 32, 33, 100, 1919, 1920, 5000};
  for (int lobes : {kLinear, 2, 3})
    for (int w : lengths)
      for (int h : lengths) {
        const IppiSize dst{w, h};
        SpecBlock block({17, 9}, dst, lobes);
        ASSERT_EQ(block.initStatus(), ippStsNoErr);
        for (IppiSize region : {dst, IppiSize{1, 1}, IppiSize{w, 1}, IppiSize{(w + 1) / 2, (h + 2) / 3}})
          for (Ipp32u channels : {1u, 3u, 4u}) {
            int size = kUntouched, size16 = kUntouched;
            ASSERT_EQ(bufferSize(block.spec(), region, channels, &size), ippStsNoErr);
            ASSERT_EQ(bufferSize(block.spec(), region, channels, &size16, true), ippStsNoErr);
            const int64_t expected = resizetest::referenceBufferSize(dst, region, static_cast<int>(channels), lobes);
            EXPECT_EQ(size, expected) << w << "x" << h << " lobes " << lobes << " channels " << channels;
            EXPECT_EQ(size16, expected);
          }
      }
}

TEST(ResizeGetBufferSize, ARegionBiggerThanTheDestinationIsSizedClampedWithAWarning) {
  for (int lobes : {kLinear, 3}) {
    SpecBlock block({64, 64}, {40, 30}, lobes);
    int size = kUntouched;
    EXPECT_EQ(bufferSize(block.spec(), {41, 30}, 4, &size), ippStsSizeWrn);
    EXPECT_EQ(size, resizetest::referenceBufferSize({40, 30}, {40, 30}, 4, lobes));
    EXPECT_EQ(bufferSize(block.spec(), {10, 31}, 4, &size), ippStsSizeWrn);
    EXPECT_EQ(size, resizetest::referenceBufferSize({40, 30}, {10, 30}, 4, lobes));
    EXPECT_EQ(bufferSize(block.spec(), {40, 30}, 4, &size), ippStsNoErr);
  }
}

TEST(ResizeGetBufferSize, RowsOfTheTableThatNoInitMakes) {
  const IppiSize src{100, 50}, dst{30, 20};
  const int64_t tables = 4 * (32 + 32);
  int size = 0;
  ASSERT_EQ(bufferSize(HandMadeSpec(1, 0, src, dst).spec(), dst, 4, &size), ippStsNoErr);
  EXPECT_EQ(size, tables + 64);
  ASSERT_EQ(bufferSize(HandMadeSpec(6, 0, src, dst).spec(), dst, 3, &size), ippStsNoErr);
  EXPECT_EQ(size, tables + 4 * 3 * ((4 * 30 + 127) / 32 * 32) + 64);
  ASSERT_EQ(bufferSize(HandMadeSpec(5, 0, src, dst).spec(), dst, 4, &size), ippStsNoErr);  // any other value
  EXPECT_EQ(size, tables + 64);
  // Super: vertical 50/20 = 5/2 (e = 1), horizontal 100/30 = 10/3; 30 % 3 = 0 gives f = 0 and
  // min(100, 10 * 10) = 100 columns.
  ASSERT_EQ(bufferSize(HandMadeSpec(8, 0, src, dst).spec(), dst, 4, &size), ippStsNoErr);
  EXPECT_EQ(size, (4 * (5 / 2 + 1 + 4 * 128) + 8) * 2 + 64);
  // 28 columns: 28 % 3 = 1 gives f = 1, and min(100, 10 * (9 + 1)) = 100 columns again.
  ASSERT_EQ(bufferSize(HandMadeSpec(8, 0, src, dst).spec(), {28, 20}, 1, &size), ippStsNoErr);
  EXPECT_EQ(size, (4 * (2 + 1 + 1 * 128) + 8) * 2 + 64);
}

TEST(ResizeGetBorderSize, StatusesAndWidths) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (auto query : {ippiResizeGetBorderSize_8u, ippiResizeGetBorderSize_16u}) {
      Ipp32u border[4] = {9, 9, 9, 9};
      HandMadeSpec unmarked(2, 1, {9, 9}, {9, 9});
      unmarked.spec()->magic = 0x4B617388;
      EXPECT_EQ(query(nullptr, border), ippStsNullPtrErr);
      EXPECT_EQ(query(unmarked.spec(), nullptr), ippStsNullPtrErr);
      EXPECT_EQ(query(unmarked.spec(), border), ippStsContextMatchErr);
      for (Ipp32u side : border) EXPECT_EQ(side, 9u);
      for (int lobes : {kLinear, 2, 3}) {
        SpecBlock block({12, 12}, {5, 7}, lobes, 3);
        ASSERT_EQ(query(block.spec(), border), ippStsNoErr);
        for (Ipp32u side : border) EXPECT_EQ(side, static_cast<Ipp32u>(lobes));
      }
    }
  });
}

struct RoiQuery {
  IppStatus status;
  IppiPoint offset{kUntouched, kUntouched};
  IppiSize size{kUntouched, kUntouched};
};

RoiQuery sourceRegion(ResizeSpec* spec, IppiPoint offset, IppiSize size, bool sixteen = false) {
  RoiQuery q{};
  q.status = sixteen ? ippiResizeGetSrcRoi_16u(spec, offset, size, &q.offset, &q.size)
                     : ippiResizeGetSrcRoi_8u(spec, offset, size, &q.offset, &q.size);
  return q;
}

void expectUntouched(const RoiQuery& q) {
  EXPECT_EQ(q.offset.x, kUntouched);
  EXPECT_EQ(q.offset.y, kUntouched);
  EXPECT_EQ(q.size.width, kUntouched);
  EXPECT_EQ(q.size.height, kUntouched);
}

TEST(ResizeGetSrcRoi, StatusesInTheOrderOfTheirChecks) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    SpecBlock good({30, 20}, {15, 40}, kLinear);
    HandMadeSpec unmarked(2, 1, {30, 20}, {15, 40});
    unmarked.spec()->magic = 1;
    for (bool sixteen : {false, true}) {
      IppiPoint offset{kUntouched, kUntouched};
      IppiSize size{kUntouched, kUntouched};
      auto query = sixteen ? ippiResizeGetSrcRoi_16u : ippiResizeGetSrcRoi_8u;
      EXPECT_EQ(query(nullptr, {0, 0}, {0, 0}, &offset, &size), ippStsNullPtrErr);
      EXPECT_EQ(query(good.spec(), {0, 0}, {0, 0}, nullptr, &size), ippStsNullPtrErr);
      EXPECT_EQ(query(good.spec(), {0, 0}, {0, 0}, &offset, nullptr), ippStsNullPtrErr);
      expectUntouched(sourceRegion(unmarked.spec(), {-1, 0}, {0, 5}, sixteen));
      EXPECT_EQ(sourceRegion(unmarked.spec(), {-1, 0}, {0, 5}, sixteen).status, ippStsSizeErr);
      EXPECT_EQ(sourceRegion(unmarked.spec(), {-1, 0}, {5, -5}, sixteen).status, ippStsSizeErr);
      EXPECT_EQ(sourceRegion(unmarked.spec(), {-1, 0}, {5, 5}, sixteen).status, ippStsContextMatchErr);
      for (IppiPoint outside : {IppiPoint{-1, 0}, IppiPoint{0, -1}, IppiPoint{15, 0}, IppiPoint{0, 40}}) {
        const RoiQuery q = sourceRegion(good.spec(), outside, {1, 1}, sixteen);
        EXPECT_EQ(q.status, ippStsOutOfRangeErr);  // an offset equal to the width is outside
        expectUntouched(q);
      }
    }
  });
}

TEST(ResizeGetSrcRoi, RegionsMapToTheRowsAndColumnsOfTheirWholeParts) {
  const int lengths[] = {6, 7, 13, 40, 99, 100, 333};
  for (int s : lengths)
    for (int d : lengths) {
      const IppiSize src{s, d + 1}, dst{d, s};
      SpecBlock block(src, dst, kLinear);
      const resizetest::Axis x = resizetest::referenceAxis(src.width, dst.width, 1);
      const resizetest::Axis y = resizetest::referenceAxis(src.height, dst.height, 1);
      const double xr = double(x.srcReduced) / x.dstReduced, yr = double(y.srcReduced) / y.dstReduced;
      for (int ox = 0; ox < dst.width; ox += 1 + dst.width / 7)
        for (int oy = 0; oy < dst.height; oy += 1 + dst.height / 5)
          for (IppiSize size : {IppiSize{1, 1}, IppiSize{3, 2}, IppiSize{dst.width, dst.height}}) {
            const RoiQuery q = sourceRegion(block.spec(), {ox, oy}, size);
            const int w = std::min(size.width, dst.width - ox), h = std::min(size.height, dst.height - oy);
            const int sx = static_cast<int>(std::floor(ox * xr)), sy = static_cast<int>(std::floor(oy * yr));
            EXPECT_EQ(q.offset.x, sx);
            EXPECT_EQ(q.offset.y, sy);
            EXPECT_EQ(q.size.width, x.index[ox + w - 1] - sx + 1);
            EXPECT_EQ(q.size.height, y.index[oy + h - 1] - sy + 1);
            // Clamped by the offset alone: no warning.
            EXPECT_EQ(q.status, ippStsNoErr) << ox << "," << oy;
          }
    }
}

TEST(ResizeGetSrcRoi, ARegionBiggerThanTheDestinationWarns) {
  SpecBlock block({50, 50}, {100, 80}, kLinear);
  const RoiQuery wide = sourceRegion(block.spec(), {10, 0}, {101, 5}, true);
  EXPECT_EQ(wide.status, ippStsSizeWrn);
  EXPECT_EQ(wide.offset.x, 5);
  EXPECT_EQ(wide.size.width, 49 - 5 + 1);  // clamped to 90 columns: index[99] = 49
  EXPECT_EQ(sourceRegion(block.spec(), {0, 0}, {5, 81}).status, ippStsSizeWrn);
  // At the very top of an enlargement the last index is -1: a size of 0.
  const RoiQuery top = sourceRegion(block.spec(), {0, 0}, {1, 1});
  EXPECT_EQ(top.status, ippStsNoErr);
  EXPECT_EQ(top.size.width, 0);
  EXPECT_EQ(top.size.height, 0);
}

}  // namespace
