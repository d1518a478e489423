// Multiplication with scaling: the scaled product over all pairs, images with each other and
// with constants, the in-place forms, and the order of the argument tests.

#include <gtest/gtest.h>

#include "arith_reference.h"
#include "qvimage/ippi_arith.h"
#include "support/tiers.h"
#include "tier_forms.h"

namespace {

using arithtest::Shape;
using qvtest::TestImage;

TEST(MulScale, EveryPairOfBytes) {
  std::vector<uint8_t> a(65536), b(65536);
  for (int i = 0; i < 65536; ++i) {
    a[i] = static_cast<uint8_t>(i >> 8);
    b[i] = static_cast<uint8_t>(i);
  }
  qvtest::expectSameOnEveryTier([&] {
    std::vector<uint8_t> product = b;
    EXPECT_EQ(ippiMulScale_8u_C1IR(a.data(), 256, product.data(), 256, {256, 256}), ippStsNoErr);
    for (int i = 0; i < 65536; ++i) EXPECT_EQ(product[i], arithtest::scaledProductReference(a[i], b[i])) << i;
    return product;
  });
}

TEST(MulScale, NamedProducts) {
  const uint8_t a[4] = {128, 255, 1, 0};
  uint8_t b[4] = {128, 255, 128, 200};
  ASSERT_EQ(ippiMulScale_8u_C1IR(a, 4, b, 4, {4, 1}), ippStsNoErr);
  EXPECT_EQ(b[0], 64);   // 128 * 128
  EXPECT_EQ(b[1], 255);  // 255 * 255
  EXPECT_EQ(b[2], 0);    // 1 * 128, although 128 / 255 rounds to 1
  EXPECT_EQ(b[3], 0);    // 0 * anything
}

void expectMulScaleImages(int channels) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage src = arithtest::imageOf(shape, channels);
    src.fillRandom(static_cast<uint32_t>(shape.width + 3 * shape.height));
    TestImage start(shape.width, shape.height, channels, shape.padding + 3, shape.offset + 1);
    start.fillRandom(static_cast<uint32_t>(shape.width * 7 + shape.height));
    qvtest::expectSameOnEveryTier([&] {
      TestImage dst(shape.width, shape.height, channels, shape.padding + 3, shape.offset + 1);
      arithtest::copyPixels(start, dst);
      const IppStatus status = channels == 1
                                   ? ippiMulScale_8u_C1IR(src.data(), src.step(), dst.data(), dst.step(), dst.size())
                                   : ippiMulScale_8u_C4IR(src.data(), src.step(), dst.data(), dst.step(), dst.size());
      EXPECT_EQ(status, ippStsNoErr);
      for (int y = 0; y < shape.height; ++y)
        for (int x = 0; x < channels * shape.width; ++x)
          EXPECT_EQ(dst.row(y)[x], arithtest::scaledProductReference(src.row(y)[x], start.row(y)[x]));
      EXPECT_TRUE(dst.surroundingsIntact());
      return arithtest::bytesOf(dst);
    });
  }
}

TEST(MulScale, OneChannelImages) { expectMulScaleImages(1); }
TEST(MulScale, FourChannelImagesTreatAlphaAlike) { expectMulScaleImages(4); }

void expectMulCScaleImages(int channels, const uint8_t value[4]) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage start = arithtest::imageOf(shape, channels);
    start.fillRandom(static_cast<uint32_t>(shape.width * 5 + shape.height));
    qvtest::expectSameOnEveryTier([&] {
      TestImage image = arithtest::imageOf(shape, channels);
      arithtest::copyPixels(start, image);
      const IppStatus status = channels == 1 ? ippiMulCScale_8u_C1IR(value[0], image.data(), image.step(), image.size())
                                             : ippiMulCScale_8u_C4IR(value, image.data(), image.step(), image.size());
      EXPECT_EQ(status, ippStsNoErr);
      for (int y = 0; y < shape.height; ++y)
        for (int x = 0; x < channels * shape.width; ++x)
          EXPECT_EQ(image.row(y)[x], arithtest::scaledProductReference(start.row(y)[x], value[x % channels]));
      EXPECT_TRUE(image.surroundingsIntact());
      return arithtest::bytesOf(image);
    });
  }
}

TEST(MulCScale, OneChannelImages) {
  for (uint8_t v : {0, 1, 77, 128, 254, 255}) {
    const uint8_t value[4] = {v, v, v, v};
    expectMulCScaleImages(1, value);
  }
}

TEST(MulCScale, FourChannelImagesWithDifferentValues) {
  const uint8_t value[4] = {200, 13, 255, 128};
  expectMulCScaleImages(4, value);
}

TEST(MulCScale, FourEqualValuesWorkAsOneChannel) {
  const uint8_t value[4] = {90, 90, 90, 90};
  expectMulCScaleImages(4, value);
}

TEST(MulCScale, FourChannelsThatDifferOnlyInAlpha) {
  const uint8_t value[4] = {90, 90, 90, 91};
  expectMulCScaleImages(4, value);
}

// --- argument tests ---

struct BinaryCase {
  const char* what;
  bool null1, null2, nullDst;
  int step1, step2, dstStep;
  IppiSize size;
  IppStatus status;
};

// The one-channel form: pointers, then steps, then size.
const BinaryCase kMulScaleC1Cases[] = {
    {"null first source before step and size", true, false, false, 0, 64, 64, {0, 0}, ippStsNullPtrErr},
    {"null second source", false, true, false, 64, 64, 64, {2, 2}, ippStsNullPtrErr},
    {"null destination", false, false, true, 64, 64, 64, {2, 2}, ippStsNullPtrErr},
    {"zero first step before size", false, false, false, 0, 64, 64, {0, 2}, ippStsStepErr},
    {"negative second step", false, false, false, 64, -1, 64, {2, 2}, ippStsStepErr},
    {"zero destination step", false, false, false, 64, 64, 0, {2, 2}, ippStsStepErr},
    {"zero width", false, false, false, 64, 64, 64, {0, 2}, ippStsSizeErr},
    {"zero height", false, false, false, 64, 64, 64, {2, 0}, ippStsSizeErr},
};

// The four-channel form tests the size first, then the one-channel tests run.
const BinaryCase kMulScaleC4Cases[] = {
    {"zero width before null", true, true, true, 0, 0, 0, {0, 2}, ippStsSizeErr},
    {"zero height before null", true, false, false, 64, 64, 64, {2, 0}, ippStsSizeErr},
    {"null first source before step", true, false, false, 0, 64, 64, {2, 2}, ippStsNullPtrErr},
    {"null second source", false, true, false, 64, 64, 64, {2, 2}, ippStsNullPtrErr},
    {"zero step", false, false, false, 64, 0, 64, {2, 2}, ippStsStepErr},
};

// Separate images for the two sources and the destination; the destination stays untouched.
void expectBinaryCase(const BinaryCase& c, decltype(&m7::ippiMulScale_8u_C1R) form) {
  SCOPED_TRACE(c.what);
  TestImage one(2, 2, 4, 56), two(2, 2, 4, 56), dst(2, 2, 4, 56);
  one.fill(200);
  two.fill(100);
  const std::vector<uint8_t> before = dst.allBytes();
  EXPECT_EQ(form(c.null1 ? nullptr : one.data(), c.step1, c.null2 ? nullptr : two.data(), c.step2,
                 c.nullDst ? nullptr : dst.data(), c.dstStep, c.size),
            c.status);
  EXPECT_EQ(dst.allBytes(), before);
}

TEST(MulScale, OneChannelStatusesInOrder) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    for (const BinaryCase& c : kMulScaleC1Cases) expectBinaryCase(c, tier.mulScaleC1);
  }
}

TEST(MulScale, FourChannelStatusesInOrder) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    for (const BinaryCase& c : kMulScaleC4Cases) expectBinaryCase(c, tier.mulScaleC4);
  }
}

TEST(MulScale, BadSizeWithNullPointerDiffersBetweenForms) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    EXPECT_EQ(tier.mulScaleC4(nullptr, 4, nullptr, 4, nullptr, 4, {0, 1}), ippStsSizeErr);
    EXPECT_EQ(tier.mulScaleC1(nullptr, 4, nullptr, 4, nullptr, 4, {0, 1}), ippStsNullPtrErr);
  }
  qvtest::onEveryTier([](const qvtest::Tier&) {
    EXPECT_EQ(ippiMulScale_8u_C4IR(nullptr, 4, nullptr, 4, {0, 1}), ippStsSizeErr);
    EXPECT_EQ(ippiMulScale_8u_C1IR(nullptr, 4, nullptr, 4, {0, 1}), ippStsNullPtrErr);
  });
}

TEST(MulScale, SeparateDestinationLeavesTheSourcesAlone) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    TestImage one(19, 3, 4, 5, 3), two(19, 3, 4, 1, 1), dst(19, 3, 4, 7, 9);
    one.fillRandom(1);
    two.fillRandom(2);
    const std::vector<uint8_t> oneBefore = one.allBytes(), twoBefore = two.allBytes();
    ASSERT_EQ(tier.mulScaleC4(one.data(), one.step(), two.data(), two.step(), dst.data(), dst.step(), dst.size()),
              ippStsNoErr);
    EXPECT_EQ(one.allBytes(), oneBefore);
    EXPECT_EQ(two.allBytes(), twoBefore);
    for (int y = 0; y < 3; ++y)
      for (int x = 0; x < 76; ++x)
        EXPECT_EQ(dst.row(y)[x], arithtest::scaledProductReference(one.row(y)[x], two.row(y)[x]));
    EXPECT_TRUE(dst.surroundingsIntact());
  }
}

TEST(MulScale, InPlaceStatusesInOrder) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage src(2, 2, 4, 56), image(2, 2, 4, 56);
    image.fill(9);
    const std::vector<uint8_t> before = image.allBytes();
    EXPECT_EQ(ippiMulScale_8u_C1IR(nullptr, 0, image.data(), 64, {0, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMulScale_8u_C1IR(src.data(), 64, nullptr, 64, {2, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMulScale_8u_C1IR(src.data(), 0, image.data(), 64, {0, 2}), ippStsStepErr);
    EXPECT_EQ(ippiMulScale_8u_C1IR(src.data(), 64, image.data(), -5, {2, 2}), ippStsStepErr);
    EXPECT_EQ(ippiMulScale_8u_C1IR(src.data(), 64, image.data(), 64, {2, 0}), ippStsSizeErr);
    EXPECT_EQ(ippiMulScale_8u_C4IR(nullptr, 0, nullptr, 0, {2, -1}), ippStsSizeErr);
    EXPECT_EQ(ippiMulScale_8u_C4IR(nullptr, 0, image.data(), 64, {2, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMulScale_8u_C4IR(src.data(), 64, image.data(), 0, {2, 2}), ippStsStepErr);
    EXPECT_EQ(image.allBytes(), before);
  });
}

struct ConstantCase {
  const char* what;
  bool nullSrc, nullValue, nullDst;
  int srcStep, dstStep;
  IppiSize size;
  IppStatus status;
};

// Pointers (the values included), then steps, then size.
const ConstantCase kMulCScaleCases[] = {
    {"null source before step and size", true, false, false, 0, 0, {0, 0}, ippStsNullPtrErr},
    {"null values", false, true, false, 0, 64, {0, 2}, ippStsNullPtrErr},
    {"null destination", false, false, true, 64, 64, {2, 2}, ippStsNullPtrErr},
    {"zero source step before size", false, false, false, 0, 64, {0, 2}, ippStsStepErr},
    {"negative destination step", false, false, false, 64, -64, {2, 2}, ippStsStepErr},
    {"zero width", false, false, false, 64, 64, {0, 2}, ippStsSizeErr},
    {"negative height", false, false, false, 64, 64, {2, -2}, ippStsSizeErr},
};

TEST(MulCScale, SeparateDestinationStatusesInOrder) {
  const uint8_t values[4] = {1, 2, 3, 4};
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    for (const ConstantCase& c : kMulCScaleCases) {
      SCOPED_TRACE(c.what);
      TestImage src(2, 2, 4, 56), dst(2, 2, 4, 56);
      src.fill(200);
      const std::vector<uint8_t> before = dst.allBytes();
      const Ipp8u* from = c.nullSrc ? nullptr : src.data();
      Ipp8u* to = c.nullDst ? nullptr : dst.data();
      EXPECT_EQ(tier.mulCScaleC4(from, c.srcStep, c.nullValue ? nullptr : values, to, c.dstStep, c.size), c.status);
      if (!c.nullValue) {
        EXPECT_EQ(tier.mulCScaleC1(from, c.srcStep, 7, to, c.dstStep, c.size), c.status);
      }
      EXPECT_EQ(dst.allBytes(), before);
    }
  }
}

TEST(MulCScale, InPlaceStatusesInOrder) {
  const uint8_t values[4] = {1, 2, 3, 4};
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    TestImage image(2, 2, 4, 56);
    image.fill(9);
    const std::vector<uint8_t> before = image.allBytes();
    EXPECT_EQ(ippiMulCScale_8u_C1IR(3, nullptr, 0, {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMulCScale_8u_C1IR(3, image.data(), 0, {0, 2}), ippStsStepErr);
    EXPECT_EQ(ippiMulCScale_8u_C1IR(3, image.data(), 64, {2, 0}), ippStsSizeErr);
    EXPECT_EQ(ippiMulCScale_8u_C4IR(nullptr, image.data(), 0, {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMulCScale_8u_C4IR(values, nullptr, 0, {0, 0}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMulCScale_8u_C4IR(values, image.data(), -1, {0, 2}), ippStsStepErr);
    EXPECT_EQ(ippiMulCScale_8u_C4IR(values, image.data(), 64, {0, 2}), ippStsSizeErr);
    EXPECT_EQ(image.allBytes(), before);
  });
}

TEST(MulCScale, SeparateDestinationFourChannels) {
  const uint8_t values[4] = {255, 0, 128, 64};
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    TestImage src(23, 4, 4, 3, 5), dst(23, 4, 4, 9, 2);
    src.fillRandom(5);
    const std::vector<uint8_t> srcBefore = src.allBytes();
    ASSERT_EQ(tier.mulCScaleC4(src.data(), src.step(), values, dst.data(), dst.step(), dst.size()), ippStsNoErr);
    EXPECT_EQ(src.allBytes(), srcBefore);
    for (int y = 0; y < 4; ++y)
      for (int x = 0; x < 92; ++x)
        EXPECT_EQ(dst.row(y)[x], arithtest::scaledProductReference(src.row(y)[x], values[x % 4]));
    EXPECT_TRUE(dst.surroundingsIntact());
  }
}

}  // namespace
