// The size query of ResizeSpec records: every status in the order of its checks, with the
// results left as they were, and the sizes of its table for many pairs of sizes.

#include <gtest/gtest.h>

#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_reference.h"
#include "support/tiers.h"

namespace {

constexpr int kUntouched = -12345;

struct Query {
  IppStatus status;
  int spec = kUntouched, init = kUntouched;
};

Query getSize(IppiSize src, IppiSize dst, Ipp32u interpolation, Ipp32u antialiasing = 0, bool sixteen = false) {
  Query q{};
  q.status = sixteen ? ippiResizeGetSize_16u(src, dst, interpolation, antialiasing, &q.spec, &q.init)
                     : ippiResizeGetSize_8u(src, dst, interpolation, antialiasing, &q.spec, &q.init);
  return q;
}

void expectRefused(IppiSize src, IppiSize dst, Ipp32u interpolation, Ipp32u antialiasing, IppStatus expected) {
  for (bool sixteen : {false, true}) {
    const Query q = getSize(src, dst, interpolation, antialiasing, sixteen);
    EXPECT_EQ(q.status, expected) << "src " << src.width << "x" << src.height << " dst " << dst.width << "x"
                                  << dst.height << " interpolation " << interpolation << " antialiasing "
                                  << antialiasing << (sixteen ? " (16u)" : " (8u)");
    EXPECT_EQ(q.spec, kUntouched);
    EXPECT_EQ(q.init, kUntouched);
  }
}

TEST(ResizeGetSize, NullResultPointersComeFirst) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    int size = kUntouched;
    EXPECT_EQ(ippiResizeGetSize_8u({0, -1}, {0, 0}, 3, 1, nullptr, &size), ippStsNullPtrErr);
    EXPECT_EQ(ippiResizeGetSize_8u({0, -1}, {0, 0}, 3, 1, &size, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippiResizeGetSize_16u({0, -1}, {0, 0}, 3, 1, nullptr, &size), ippStsNullPtrErr);
    EXPECT_EQ(size, kUntouched);
  });
}

TEST(ResizeGetSize, StatusesInTheOrderOfTheirChecks) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    // A dimension of 0 wins over a negative one and over a bad interpolation.
    expectRefused({0, 10}, {10, 10}, 2, 0, ippStsNoOperation);
    expectRefused({10, 0}, {10, 10}, 2, 0, ippStsNoOperation);
    expectRefused({10, 10}, {0, 10}, 2, 0, ippStsNoOperation);  // a destination width of 0
    expectRefused({10, 10}, {10, 0}, 2, 0, ippStsNoOperation);
    expectRefused({-5, 10}, {0, 10}, 99, 7, ippStsNoOperation);
    // Then negative sizes, before the interpolation.
    expectRefused({-1, 10}, {10, 10}, 99, 0, ippStsSizeErr);
    expectRefused({10, 10}, {10, -3}, 2, 0, ippStsSizeErr);
    // Then the interpolation, before antialiasing.
    for (Ipp32u bad : {3u, 4u, 5u, 7u, 9u, 15u, 17u, 32u, 0x80000002u, 0xFFFFFFFFu})
      expectRefused({10, 10}, {10, 10}, bad, 1, ippStsInterpolationErr);
    // Antialiasing, then interpolation 0, which passes the value test.
    for (Ipp32u good : {1u, 2u, 6u, 8u, 16u}) expectRefused({10, 10}, {5, 5}, good, 1, ippStsNotSupportedModeErr);
    expectRefused({10, 10}, {5, 5}, 0, 0, ippStsNotSupportedModeErr);
    expectRefused({10, 10}, {5, 5}, 0, 1, ippStsNotSupportedModeErr);
    // Then the minimum source of the filter.
    expectRefused({1, 100}, {50, 50}, 2, 0, ippStsSizeErr);  // linear needs 2 by 2
    expectRefused({100, 1}, {50, 50}, 2, 0, ippStsSizeErr);
    expectRefused({3, 10}, {5, 5}, 6, 0, ippStsSizeErr);  // cubic and Lanczos need 4 by 4
    expectRefused({10, 3}, {5, 5}, 16, 0, ippStsSizeErr);
    expectRefused({9, 10}, {10, 5}, 8, 0, ippStsSizeErr);  // super needs the destination's size
    expectRefused({10, 4}, {10, 5}, 8, 0, ippStsSizeErr);
  });
}

TEST(ResizeGetSize, MinimumSourcesAreAccepted) {
  EXPECT_EQ(getSize({1, 1}, {7, 7}, 1).status, ippStsNoErr);
  EXPECT_EQ(getSize({2, 2}, {7, 7}, 2).status, ippStsNoErr);
  EXPECT_EQ(getSize({4, 4}, {7, 7}, 6).status, ippStsNoErr);
  EXPECT_EQ(getSize({4, 4}, {7, 7}, 16).status, ippStsNoErr);
  EXPECT_EQ(getSize({5, 5}, {7, 7}, 16).status, ippStsNoErr);  // sized for Lanczos although 3 lobes need 6
  EXPECT_EQ(getSize({7, 7}, {7, 7}, 8).status, ippStsNoErr);
}

TEST(ResizeGetSize, SizesOf2To31BytesAreRefused) {
  // Linear, destination one row high: 8 * (a(w) + 32) + 176 + 64 bytes.
  const Query below = getSize({2, 2}, {268435392, 1}, 2);
  EXPECT_EQ(below.status, ippStsNoErr);
  EXPECT_EQ(below.spec, 2147483632);
  EXPECT_EQ(below.init, 64);
  expectRefused({2, 2}, {268435393, 1}, 2, 0, ippStsSizeErr);
  expectRefused({4, 4}, {0x7FFFFFFF, 0x7FFFFFFF}, 16, 0, ippStsSizeErr);
  expectRefused({0x7FFFFFFF, 0x7FFFFFFF}, {0x7FFFFFFE, 3}, 8, 0, ippStsSizeErr);
}

std::vector<std::pair<IppiSize, IppiSize>> sizePairs() {
  std::vector<std::pair<IppiSize, IppiSize>> pairs;
  const int lengths[] = {4, 5, 6, 7, 31, 32, 33, 64, 100, 333, 500, 720, 1000, 1080, 1920, 2160, 3840, 7919, 20000};
  for (int a : lengths)
    for (int b : lengths) pairs.push_back({{a, b}, {b, a}});
  for (int a : lengths) pairs.push_back({{a, a}, {a, a}});
  pairs.push_back({{20000, 19999}, {6, 4}});
  pairs.push_back({{4, 4}, {20000, 17}});
  return pairs;
}

TEST(ResizeGetSize, SizesFollowTheTableForManyPairs) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (const auto& [src, dst] : sizePairs())
      for (int interpolation : {1, 2, 6, 8, 16}) {
        const bool superRefused = interpolation == 8 && (src.width < dst.width || src.height < dst.height);
        if (superRefused) continue;
        const resizetest::SpecSizes expected = resizetest::referenceSpecSizes(src, dst, interpolation);
        for (bool sixteen : {false, true}) {
          const Query q = getSize(src, dst, static_cast<Ipp32u>(interpolation), 0, sixteen);
          ASSERT_EQ(q.status, ippStsNoErr) << interpolation;
          EXPECT_EQ(q.spec, expected.spec) << src.width << "x" << src.height << " to " << dst.width << "x" << dst.height
                                           << " interpolation " << interpolation;
          EXPECT_EQ(q.init, expected.init) << interpolation;
        }
      }
  });
}

TEST(ResizeGetSize, SuperSizesFollowTheReducedPeriods) {
  // 10 to 4 reduces to 5/2: e = 2 (5 % 2 = 1 gives 1), table 2 * (2 + 1) = 6; 9 to 3: 3/1, e = 0.
  EXPECT_EQ(getSize({10, 9}, {4, 3}, 8).spec, 4 * (32 + 6 + 3 + 32) + 176 + 64);
  // 7 to 3: e = 1 (7 % 3 = 1), t = 3 * (2 + 1) = 9; 11 to 4: 11 % 4 = 3, e = 2, t = 4 * (2 + 2) = 16.
  EXPECT_EQ(getSize({7, 11}, {3, 4}, 8).spec, 4 * (32 + 9 + 16 + 32) + 176 + 64);
}

}  // namespace
