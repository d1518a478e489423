// ippiAlphaComp_8u_AC4R and the public premultiplied "over" against the plain reference.

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"
#include "reference.h"
#include "support/images.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

// Composes a 256 x 256 pair in which source 1's alpha is the row and source 2's the column, so
// that every pair of alphas occurs, with random colours.
void fillAlphaGrid(TestImage& first, TestImage& second, uint32_t seed) {
  first.fillRandom(seed);
  second.fillRandom(seed + 1);
  for (int y = 0; y < 256; ++y) {
    for (int x = 0; x < 256; ++x) {
      first.row(y)[4 * x + 3] = static_cast<uint8_t>(y);
      second.row(y)[4 * x + 3] = static_cast<uint8_t>(x);
    }
  }
}

std::vector<uint8_t> referenceComposition(int type, const TestImage& first, const TestImage& second) {
  std::vector<uint8_t> out;
  for (int y = 0; y < first.height(); ++y) {
    for (int x = 0; x < first.width(); ++x) {
      uint8_t pixel[4];
      reference::composePixel(type, first.row(y) + 4 * x, second.row(y) + 4 * x, pixel);
      out.insert(out.end(), pixel, pixel + 4);
    }
  }
  return out;
}

TEST(AlphaComp, EveryTypeOverEveryPairOfAlphasMatchesTheReference) {
  for (int type = 0; type < 12; ++type) {
    SCOPED_TRACE("type " + std::to_string(type));
    TestImage first(256, 256, 4), second(256, 256, 4);
    fillAlphaGrid(first, second, 100u + static_cast<uint32_t>(type));
    const std::vector<uint8_t> expected = referenceComposition(type, first, second);
    qvtest::expectSameOnEveryTier([&] {
      TestImage out(256, 256, 4, 12, 4);
      EXPECT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(), out.step(),
                                      out.size(), static_cast<IppiAlphaType>(type)),
                ippStsNoErr);
      EXPECT_EQ(out.pixels(), expected);
      EXPECT_TRUE(out.surroundingsIntact());
      return out.pixels();
    });
  }
}

// Odd widths, padded steps and every offset of the three images against a 16-byte boundary.
TEST(AlphaComp, EveryAlignmentAndWidthGivesTheReferenceBytes) {
  const int widths[] = {1, 2, 3, 4, 5, 7, 8, 13, 17, 33};
  for (int type : {0, 3, 6, 9, 10, 11}) {
    for (int width : widths) {
      for (int offset = 0; offset < 16; ++offset) {
        SCOPED_TRACE("type " + std::to_string(type) + " width " + std::to_string(width) + " offset " +
                     std::to_string(offset));
        TestImage first(width, 3, 4, 5, offset), second(width, 3, 4, 3, (offset * 7) % 16);
        first.fillRandom(static_cast<uint32_t>(width * 31 + offset));
        second.fillRandom(static_cast<uint32_t>(width * 17 + offset));
        const std::vector<uint8_t> expected = referenceComposition(type, first, second);
        qvtest::expectSameOnEveryTier([&] {
          TestImage out(width, 3, 4, 7, (offset * 3) % 16);
          EXPECT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(),
                                          out.step(), out.size(), static_cast<IppiAlphaType>(type)),
                    ippStsNoErr);
          EXPECT_EQ(out.pixels(), expected);
          EXPECT_TRUE(out.surroundingsIntact());
          return out.pixels();
        });
      }
    }
  }
}

TEST(AlphaComp, InPlaceOnSourceTwoMatchesTheReference) {
  for (int offset : {0, 1, 4, 12}) {
    TestImage first(37, 5, 4, 0, offset);
    first.fillRandom(7);
    TestImage original(37, 5, 4, 9, offset);
    original.fillRandom(8);
    const std::vector<uint8_t> expected = referenceComposition(6, first, original);
    qvtest::expectSameOnEveryTier([&] {
      TestImage copy(37, 5, 4, 9, offset);
      for (int y = 0; y < 5; ++y)
        for (int i = 0; i < 4 * 37; ++i) copy.row(y)[i] = original.row(y)[i];
      EXPECT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), copy.data(), copy.step(), copy.data(), copy.step(),
                                      copy.size(), ippAlphaOverPremul),
                ippStsNoErr);
      EXPECT_EQ(copy.pixels(), expected);
      EXPECT_TRUE(copy.surroundingsIntact());
      return copy.pixels();
    });
  }
}

// Steps are not tested: a negative step walks the rows upward.
TEST(AlphaComp, NegativeStepsAreFollowed) {
  TestImage first(9, 4, 4, 3), second(9, 4, 4, 1), out(9, 4, 4, 2);
  first.fillRandom(1);
  second.fillRandom(2);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    out.fill(0);
    EXPECT_EQ(ippiAlphaComp_8u_AC4R(first.row(3), -first.step(), second.row(3), -second.step(), out.row(3), -out.step(),
                                    out.size(), ippAlphaXor),
              ippStsNoErr);
    EXPECT_EQ(out.pixels(), referenceComposition(4, first, second));
    EXPECT_TRUE(out.surroundingsIntact());
  });
}

struct StatusCase {
  const char* what;
  bool nullFirst, nullSecond, nullDestination;
  IppiSize size;
  int type;
  IppStatus expected;
};

TEST(AlphaComp, StatusesComeInTheOrderOfTheChecksAndNothingIsWritten) {
  const StatusCase cases[] = {
      {"null source 1 before a zero size and a bad type", true, false, false, {0, 0}, 12, ippStsNullPtrErr},
      {"null source 2", false, true, false, {0, 5}, -1, ippStsNullPtrErr},
      {"null destination", false, false, true, {4, 4}, 6, ippStsNullPtrErr},
      {"zero width before a bad type", false, false, false, {0, 4}, 12, ippStsSizeErr},
      {"zero height", false, false, false, {4, 0}, 6, ippStsSizeErr},
      {"negative width", false, false, false, {-3, 4}, 6, ippStsSizeErr},
      {"type 12", false, false, false, {4, 4}, 12, ippStsAlphaTypeErr},
      {"type -1, read as unsigned", false, false, false, {4, 4}, -1, ippStsAlphaTypeErr},
      {"type INT_MIN", false, false, false, {4, 4}, INT32_MIN, ippStsAlphaTypeErr},
  };
  TestImage first(4, 4, 4, 4), second(4, 4, 4, 4);
  first.fillRandom(3);
  second.fillRandom(4);
  for (const StatusCase& c : cases) {
    SCOPED_TRACE(c.what);
    qvtest::onEveryTier([&](const qvtest::Tier&) {
      TestImage out(4, 4, 4, 4, 1);
      out.fill(0x5A);
      const std::vector<uint8_t> before = out.allBytes();
      EXPECT_EQ(ippiAlphaComp_8u_AC4R(c.nullFirst ? nullptr : first.data(), first.step(),
                                      c.nullSecond ? nullptr : second.data(), second.step(),
                                      c.nullDestination ? nullptr : out.data(), out.step(), c.size,
                                      static_cast<IppiAlphaType>(c.type)),
                c.expected);
      EXPECT_EQ(out.allBytes(), before);
    });
  }
}

TEST(AlphaComp, PremultipliedOverWithAnOpaqueSourceReplacesTheDestination) {
  TestImage first(16, 2, 4), second(16, 2, 4);
  first.fillRandom(11);
  second.fillRandom(12);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 16; ++x) first.row(y)[4 * x + 3] = 255;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    TestImage out(16, 2, 4);
    ASSERT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(), out.step(),
                                    out.size(), ippAlphaOverPremul),
              ippStsNoErr);
    EXPECT_EQ(out.pixels(), first.pixels());
  });
}

TEST(AlphaComp, PremultipliedOverWithAnEmptySourceLeavesTheDestination) {
  TestImage first(16, 2, 4), second(16, 2, 4);
  first.fill(0);
  second.fillRandom(13);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    TestImage out(16, 2, 4);
    ASSERT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(), out.step(),
                                    out.size(), ippAlphaOverPremul),
              ippStsNoErr);
    EXPECT_EQ(out.pixels(), second.pixels());
  });
}

TEST(AlphaComp, HalfAlphaOverGivesAlphaOf128PlusScaledComplement) {
  TestImage first(256, 1, 4), second(256, 1, 4);
  first.fill(128);
  second.fillRandom(14);
  for (int x = 0; x < 256; ++x) second.row(0)[4 * x + 3] = static_cast<uint8_t>(x);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    TestImage out(256, 1, 4);
    ASSERT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(), out.step(),
                                    out.size(), ippAlphaOverPremul),
              ippStsNoErr);
    for (int b = 0; b < 256; ++b) {
      const int m = (127 * b + 1 + ((127 * b) >> 8)) >> 8;
      EXPECT_EQ(out.row(0)[4 * b + 3], 128 + m) << "B = " << b;
    }
  });
}

TEST(AlphaComp, PremultipliedPlusSaturates) {
  TestImage first(5, 1, 4), second(5, 1, 4);
  first.fill(200);
  second.fill(100);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    TestImage out(5, 1, 4);
    ASSERT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(), out.step(),
                                    out.size(), ippAlphaPlusPremul),
              ippStsNoErr);
    EXPECT_EQ(out.pixels(), std::vector<uint8_t>(20, 255));
  });
}

// Atop's alpha is exactly source 2's alpha, straight or premultiplied.
TEST(AlphaComp, AtopAlphaIsTheAlphaOfSourceTwo) {
  TestImage first(256, 256, 4), second(256, 256, 4);
  fillAlphaGrid(first, second, 15);
  for (IppiAlphaType type : {ippAlphaATop, ippAlphaATopPremul}) {
    TestImage out(256, 256, 4);
    ASSERT_EQ(ippiAlphaComp_8u_AC4R(first.data(), first.step(), second.data(), second.step(), out.data(), out.step(),
                                    out.size(), type),
              ippStsNoErr);
    for (int y = 0; y < 256; ++y)
      for (int x = 0; x < 256; ++x) ASSERT_EQ(out.row(y)[4 * x + 3], x);
  }
}

TEST(CompositeOverPublic, ComposesTheFirstBufferOverTheSecondInPlace) {
  TestImage first(23, 7, 4, 4, 3), original(23, 7, 4, 8, 1);
  first.fillRandom(21);
  original.fillRandom(22);
  const std::vector<uint8_t> expected = referenceComposition(6, first, original);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    TestImage dest(23, 7, 4, 8, 1);
    for (int y = 0; y < 7; ++y)
      for (int i = 0; i < 4 * 23; ++i) dest.row(y)[i] = original.row(y)[i];
    vImage_Buffer source = first.buffer();
    vImage_Buffer target = dest.buffer();
    EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibCompositeOverPremultipliedRGBASource(&source, &target));
    EXPECT_EQ(dest.pixels(), expected);
    EXPECT_TRUE(dest.surroundingsIntact());
  });
}

// The region is the first buffer's: a smaller first buffer composes only its own rectangle.
TEST(CompositeOverPublic, TakesTheRegionFromTheFirstBuffer) {
  TestImage first(3, 2, 4);
  first.fillRandom(31);
  TestImage dest(6, 4, 4);
  dest.fillRandom(32);
  const std::vector<uint8_t> before = dest.pixels();
  vImage_Buffer source = first.buffer();
  vImage_Buffer target = dest.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibCompositeOverPremultipliedRGBASource(&source, &target));
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 6; ++x) {
      uint8_t expected[4];
      const uint8_t* old = before.data() + 4 * (y * 6 + x);
      if (y < 2 && x < 3) {
        reference::composePixel(6, first.row(y) + 4 * x, old, expected);
      } else {
        for (int i = 0; i < 4; ++i) expected[i] = old[i];
      }
      for (int i = 0; i < 4; ++i) EXPECT_EQ(dest.row(y)[4 * x + i], expected[i]);
    }
  }
}

// A failure of the primitive is dropped: the answer is true and nothing is written.
TEST(CompositeOverPublic, AnswersTrueWhenThePrimitiveRefuses) {
  TestImage dest(4, 4, 4);
  dest.fillRandom(41);
  const std::vector<uint8_t> before = dest.allBytes();
  vImage_Buffer source{nullptr, 4, 4, 16};
  vImage_Buffer target = dest.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibCompositeOverPremultipliedRGBASource(&source, &target));
  TestImage empty(0, 0, 4);
  vImage_Buffer emptySource = empty.buffer();
  emptySource.data = dest.data();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibCompositeOverPremultipliedRGBASource(&emptySource, &target));
  EXPECT_EQ(dest.allBytes(), before);
}

}  // namespace
