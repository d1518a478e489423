// The mirror primitives against a plain mirror, on every tier: every axis, in place and out of
// place, odd and even sizes, padded and misaligned rows; every status in the order of its test.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "geometry/mirror_reference.h"
#include "qvimage/qvimage.h"
#include "support/images.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

int pixelBytesOf(int bits) { return bits == 8 ? 4 : 8; }

IppStatus mirror(int bits, const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, IppiSize roi, int axis) {
  if (bits == 8) return ippiMirror_8u_C4R(src, srcStep, dst, dstStep, roi, axis);
  return ippiMirror_16u_C4R(reinterpret_cast<const Ipp16u*>(src), srcStep, reinterpret_cast<Ipp16u*>(dst), dstStep, roi,
                            axis);
}

struct Shape {
  int width, height, padding, srcOffset, dstOffset;
};

std::vector<Shape> shapesFor(int bits) {
  std::vector<Shape> shapes;
  const int oddOffset = bits == 8 ? 3 : 2;
  for (int width : {2, 3, 4, 5, 7, 8, 9, 16, 17, 31, 33, 64, 67})
    for (int height : {2, 3, 4, 5, 8}) {
      shapes.push_back({width, height, 0, 0, 0});
      shapes.push_back({width, height, 12, oddOffset, 4});
      shapes.push_back({width, height, 40, 8, oddOffset});
    }
  return shapes;
}

TEST(MirrorPrimitive, OutOfPlaceEqualsPlainMirror) {
  for (int bits : {8, 16})
    for (int axis : {0, 1, 2})
      for (const Shape& shape : shapesFor(bits)) {
        SCOPED_TRACE(testing::Message() << bits << " bits, axis " << axis << ", " << shape.width << "x" << shape.height
                                        << " padding " << shape.padding << " offsets " << shape.srcOffset << "/"
                                        << shape.dstOffset);
        const int pixelBytes = pixelBytesOf(bits);
        qvtest::expectSameOnEveryTier([&] {
          TestImage src(shape.width, shape.height, pixelBytes, shape.padding, shape.srcOffset);
          TestImage dst(shape.width, shape.height, pixelBytes, shape.padding + 4, shape.dstOffset);
          src.fillRandom(static_cast<uint32_t>(shape.width * 131 + shape.height * 7 + axis));
          dst.fill(0x5A);
          const std::vector<uint8_t> before = src.pixels();
          EXPECT_EQ(mirror(bits, src.data(), src.step(), dst.data(), dst.step(), dst.size(), axis), ippStsNoErr);
          EXPECT_EQ(dst.pixels(), qvtest::mirroredPixels(before, shape.width, shape.height, pixelBytes, axis));
          EXPECT_EQ(src.pixels(), before);
          EXPECT_TRUE(dst.surroundingsIntact());
          EXPECT_TRUE(src.surroundingsIntact());
          return dst.pixels();
        });
      }
}

TEST(MirrorPrimitive, SamePointerAndStepMirrorsInPlace) {
  for (int bits : {8, 16})
    for (int axis : {0, 1, 2})
      for (const Shape& shape : shapesFor(bits)) {
        SCOPED_TRACE(testing::Message() << bits << " bits, axis " << axis << ", " << shape.width << "x" << shape.height
                                        << " padding " << shape.padding);
        const int pixelBytes = pixelBytesOf(bits);
        qvtest::expectSameOnEveryTier([&] {
          TestImage image(shape.width, shape.height, pixelBytes, shape.padding, shape.dstOffset);
          image.fillRandom(static_cast<uint32_t>(shape.width * 17 + shape.height + axis * 1000));
          const std::vector<uint8_t> before = image.pixels();
          EXPECT_EQ(mirror(bits, image.data(), image.step(), image.data(), image.step(), image.size(), axis),
                    ippStsNoErr);
          EXPECT_EQ(image.pixels(), qvtest::mirroredPixels(before, shape.width, shape.height, pixelBytes, axis));
          EXPECT_TRUE(image.surroundingsIntact());
          return image.pixels();
        });
      }
}

TEST(MirrorPrimitive, BothAxesEqualAHalfTurn) {
  for (int bits : {8, 16})
    for (int width : {2, 5, 6, 19})
      for (int height : {2, 3, 8, 11}) {
        const int pixelBytes = pixelBytesOf(bits);
        TestImage src(width, height, pixelBytes, 8, 4);
        TestImage dst(width, height, pixelBytes, 0, 0);
        src.fillRandom(static_cast<uint32_t>(width * height));
        ASSERT_EQ(mirror(bits, src.data(), src.step(), dst.data(), dst.step(), dst.size(), ippAxsBoth), ippStsNoErr);
        EXPECT_EQ(dst.pixels(), qvtest::turnedHalfway(src.pixels(), width, height, pixelBytes));
      }
}

// Rows that are either the same memory or apart: the out-of-place walk copies source row r
// to destination row height-1-r, from the top, with each buffer's own step.
std::vector<uint8_t> rowWalkWithAliasing(std::vector<uint8_t> memory, int rowBytes, int srcStep, int dstStep,
                                         int height) {
  std::vector<uint8_t> row(static_cast<size_t>(rowBytes));
  for (int r = 0; r < height; ++r) {
    std::memcpy(row.data(), &memory[static_cast<size_t>(r) * srcStep], row.size());
    std::memcpy(&memory[static_cast<size_t>(height - 1 - r) * dstStep], row.data(), row.size());
  }
  return memory;
}

TEST(MirrorPrimitive, SamePointerWithOtherStepTakesTheOutOfPlaceWalk) {
  constexpr int kWidth = 5, kHeight = 6, kRowBytes = kWidth * 4, kStep = 24;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    std::vector<uint8_t> memory = qvtest::randomBytes(static_cast<size_t>(2 * kStep * kHeight), 77);
    const std::vector<uint8_t> expected = rowWalkWithAliasing(memory, kRowBytes, kStep, 2 * kStep, kHeight);
    std::vector<uint8_t> inPlace = memory;
    ASSERT_EQ(ippiMirror_8u_C4R(inPlace.data(), kStep, inPlace.data(), kStep, {kWidth, kHeight}, ippAxsHorizontal),
              ippStsNoErr);
    ASSERT_EQ(ippiMirror_8u_C4R(memory.data(), kStep, memory.data(), 2 * kStep, {kWidth, kHeight}, ippAxsHorizontal),
              ippStsNoErr);
    EXPECT_EQ(memory, expected);
    EXPECT_NE(memory, inPlace);
  });
}

// One refused call: the status, and not a byte of either image changed.
void expectRefused(int bits, bool inPlace, IppiSize roi, int axis, IppStatus expected, bool nullSource = false,
                   bool nullDestination = false) {
  const int pixelBytes = pixelBytesOf(bits);
  TestImage src(4, 4, pixelBytes, 4, 0);
  TestImage dst(4, 4, pixelBytes, 4, 0);
  src.fillRandom(1);
  dst.fillRandom(2);
  const std::vector<uint8_t> srcBefore = src.allBytes();
  const std::vector<uint8_t> dstBefore = dst.allBytes();
  uint8_t* to = nullDestination ? nullptr : dst.data();
  const uint8_t* from = inPlace ? to : (nullSource ? nullptr : src.data());
  EXPECT_EQ(mirror(bits, from, dst.step(), to, dst.step(), roi, axis), expected);
  EXPECT_EQ(src.allBytes(), srcBefore);
  EXPECT_EQ(dst.allBytes(), dstBefore);
}

TEST(MirrorPrimitive, StatusesInTheOrderOfTheirTests) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int bits : {8, 16})
      for (bool inPlace : {false, true}) {
        SCOPED_TRACE(testing::Message() << bits << " bits, " << (inPlace ? "in place" : "out of place"));
        // Null pointers come first, before the size and the axis.
        expectRefused(bits, inPlace, {0, 0}, 7, ippStsNullPtrErr, true, true);
        if (!inPlace) expectRefused(bits, inPlace, {0, 0}, 7, ippStsNullPtrErr, true, false);
        expectRefused(bits, inPlace, {-1, 4}, 7, ippStsNullPtrErr, false, true);
        // Then the size, before the axis.
        expectRefused(bits, inPlace, {0, 4}, 7, ippStsSizeErr);
        expectRefused(bits, inPlace, {4, 0}, 3, ippStsSizeErr);
        expectRefused(bits, inPlace, {-4, 4}, 0, ippStsSizeErr);
        // Then the axis, before the test of a mirror that would change nothing.
        expectRefused(bits, inPlace, {1, 1}, 3, ippStsMirrorFlipErr);
        expectRefused(bits, inPlace, {4, 4}, -1, ippStsMirrorFlipErr);
        // A mirror that would change nothing.
        expectRefused(bits, inPlace, {4, 1}, ippAxsHorizontal, ippStsSizeErr);
        expectRefused(bits, inPlace, {4, 1}, ippAxsBoth, ippStsSizeErr);
        expectRefused(bits, inPlace, {1, 4}, ippAxsVertical, ippStsSizeErr);
        expectRefused(bits, inPlace, {1, 4}, ippAxsBoth, ippStsSizeErr);
        expectRefused(bits, inPlace, {1, 1}, ippAxsHorizontal, ippStsSizeErr);
        expectRefused(bits, inPlace, {1, 1}, ippAxsVertical, ippStsSizeErr);
        expectRefused(bits, inPlace, {1, 1}, ippAxsBoth, ippStsSizeErr);
      }
  });
}

TEST(MirrorPrimitive, OneRowFlopsAndOneColumnFlips) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int bits : {8, 16}) {
      const int pixelBytes = pixelBytesOf(bits);
      TestImage row(6, 1, pixelBytes), rowOut(6, 1, pixelBytes);
      row.fillRandom(3);
      EXPECT_EQ(mirror(bits, row.data(), row.step(), rowOut.data(), rowOut.step(), {6, 1}, ippAxsVertical),
                ippStsNoErr);
      EXPECT_EQ(rowOut.pixels(), qvtest::mirroredPixels(row.pixels(), 6, 1, pixelBytes, 1));
      TestImage column(1, 5, pixelBytes, 4), columnOut(1, 5, pixelBytes);
      column.fillRandom(4);
      EXPECT_EQ(
          mirror(bits, column.data(), column.step(), columnOut.data(), columnOut.step(), {1, 5}, ippAxsHorizontal),
          ippStsNoErr);
      EXPECT_EQ(columnOut.pixels(), qvtest::mirroredPixels(column.pixels(), 1, 5, pixelBytes, 0));
      EXPECT_TRUE(columnOut.surroundingsIntact());
    }
  });
}

}  // namespace
