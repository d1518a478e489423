// Absolute differences of two images and of an image and a clamped constant.

#include <gtest/gtest.h>

#include "arith_reference.h"
#include "qvimage/ippi_arith.h"
#include "support/tiers.h"

namespace {

using arithtest::Shape;
using qvtest::TestImage;

TEST(AbsDiff, EveryPairOfBytes) {
  std::vector<uint8_t> a(65536), b(65536);
  for (int i = 0; i < 65536; ++i) {
    a[i] = static_cast<uint8_t>(i >> 8);
    b[i] = static_cast<uint8_t>(i);
  }
  qvtest::expectSameOnEveryTier([&] {
    std::vector<uint8_t> out(65536);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(a.data(), 256, b.data(), 256, out.data(), 256, {256, 256}), ippStsNoErr);
    for (int i = 0; i < 65536; ++i) EXPECT_EQ(out[i], arithtest::absDiffReference(a[i], b[i])) << i;
    return out;
  });
}

TEST(AbsDiff, RandomImages) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage one = arithtest::imageOf(shape, 1);
    TestImage two(shape.width, shape.height, 1, shape.padding + 7, shape.offset + 5);
    one.fillRandom(static_cast<uint32_t>(shape.width));
    two.fillRandom(static_cast<uint32_t>(shape.width + 1000));
    qvtest::expectSameOnEveryTier([&] {
      TestImage dst(shape.width, shape.height, 1, shape.padding + 1, shape.offset + 3);
      EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), one.step(), two.data(), two.step(), dst.data(), dst.step(), one.size()),
                ippStsNoErr);
      for (int y = 0; y < shape.height; ++y)
        for (int x = 0; x < shape.width; ++x)
          EXPECT_EQ(dst.row(y)[x], arithtest::absDiffReference(one.row(y)[x], two.row(y)[x]));
      EXPECT_TRUE(dst.surroundingsIntact());
      return arithtest::bytesOf(dst);
    });
  }
}

TEST(AbsDiffC, RandomImagesAndValues) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage src = arithtest::imageOf(shape, 1);
    src.fillRandom(static_cast<uint32_t>(shape.height * 100 + shape.width));
    for (int value : {0, 1, 100, 254, 255}) {
      qvtest::expectSameOnEveryTier([&] {
        TestImage dst(shape.width, shape.height, 1, shape.padding + 4, shape.offset + 1);
        EXPECT_EQ(ippiAbsDiffC_8u_C1R(src.data(), src.step(), dst.data(), dst.step(), src.size(), value), ippStsNoErr);
        for (int y = 0; y < shape.height; ++y)
          for (int x = 0; x < shape.width; ++x)
            EXPECT_EQ(dst.row(y)[x], arithtest::absDiffReference(src.row(y)[x], value));
        EXPECT_TRUE(dst.surroundingsIntact());
        return arithtest::bytesOf(dst);
      });
    }
  }
}

// The value is clamped to 0..255 first: 300 works as 255, -5 as 0.
TEST(AbsDiffC, ValuesOutsideAByteAreClamped) {
  std::vector<uint8_t> every(256);
  for (int i = 0; i < 256; ++i) every[i] = static_cast<uint8_t>(i);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (const auto& [value, clamped] : {std::pair{300, 255}, std::pair{-5, 0}, std::pair{256, 255},
                                         std::pair{1 << 30, 255}, std::pair{-2147483647 - 1, 0}}) {
      std::vector<uint8_t> out(256), expected(256);
      ASSERT_EQ(ippiAbsDiffC_8u_C1R(every.data(), 256, out.data(), 256, {256, 1}, value), ippStsNoErr);
      ASSERT_EQ(ippiAbsDiffC_8u_C1R(every.data(), 256, expected.data(), 256, {256, 1}, clamped), ippStsNoErr);
      EXPECT_EQ(out, expected) << value;
      for (int i = 0; i < 256; ++i) EXPECT_EQ(out[i], arithtest::absDiffReference(i, clamped)) << value;
    }
  });
}

TEST(AbsDiffC, InPlaceWith255Inverts) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage image(37, 5, 1, 11, 7);
    image.fillRandom(12);
    const std::vector<uint8_t> start = image.pixels();
    ASSERT_EQ(ippiAbsDiffC_8u_C1R(image.data(), image.step(), image.data(), image.step(), image.size(), 255),
              ippStsNoErr);
    const std::vector<uint8_t> after = image.pixels();
    for (size_t i = 0; i < after.size(); ++i) EXPECT_EQ(after[i], 255 - start[i]);
    EXPECT_TRUE(image.surroundingsIntact());
  });
}

TEST(AbsDiff, StatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage one(4, 2, 1, 4), two(4, 2, 1, 4), dst(4, 2, 1, 4);
    one.fill(10);
    two.fill(20);
    const std::vector<uint8_t> before = dst.allBytes();
    // Pointers before the size, the size before the steps.
    EXPECT_EQ(ippiAbsDiff_8u_C1R(nullptr, 0, two.data(), 8, dst.data(), 8, {0, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 8, nullptr, 8, dst.data(), 8, {4, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 8, two.data(), 8, nullptr, 8, {4, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 0, two.data(), 8, dst.data(), 8, {0, 2}), ippStsSizeErr);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 8, two.data(), 8, dst.data(), 8, {4, -1}), ippStsSizeErr);
    // Any step below the width, even when positive.
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 3, two.data(), 8, dst.data(), 8, {4, 2}), ippStsStepErr);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 8, two.data(), 3, dst.data(), 8, {4, 2}), ippStsStepErr);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 8, two.data(), 8, dst.data(), 3, {4, 2}), ippStsStepErr);
    EXPECT_EQ(dst.allBytes(), before);
    // A step equal to the width is accepted.
    TestImage packed(4, 2, 1);
    EXPECT_EQ(ippiAbsDiff_8u_C1R(one.data(), 8, two.data(), 8, packed.data(), 4, {4, 2}), ippStsNoErr);
    EXPECT_EQ(packed.pixels(), std::vector<uint8_t>(8, 10));
  });
}

TEST(AbsDiffC, StatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage src(4, 2, 1, 4), dst(4, 2, 1, 4);
    src.fill(10);
    const std::vector<uint8_t> before = dst.allBytes();
    EXPECT_EQ(ippiAbsDiffC_8u_C1R(nullptr, 0, dst.data(), 8, {0, 2}, 5), ippStsNullPtrErr);
    EXPECT_EQ(ippiAbsDiffC_8u_C1R(src.data(), 8, nullptr, 8, {4, 2}, 5), ippStsNullPtrErr);
    EXPECT_EQ(ippiAbsDiffC_8u_C1R(src.data(), 0, dst.data(), 8, {0, 2}, 5), ippStsSizeErr);
    EXPECT_EQ(ippiAbsDiffC_8u_C1R(src.data(), 8, dst.data(), 8, {4, 0}, 5), ippStsSizeErr);
    EXPECT_EQ(ippiAbsDiffC_8u_C1R(src.data(), 3, dst.data(), 8, {4, 2}, 5), ippStsStepErr);
    EXPECT_EQ(ippiAbsDiffC_8u_C1R(src.data(), 8, dst.data(), 3, {4, 2}, 5), ippStsStepErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

}  // namespace
