// The public depth conversion and arithmetic operations of QVILConversion: which buffer gives
// the region, what is logged, and which failures are dropped.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "arith_reference.h"
#include "qvimage/QVILConversion.h"
#include "support/log_capture.h"
#include "support/tiers.h"

namespace {

using qvtest::LogCapture;
using qvtest::TestImage;

const char kUpSizeError[] =
    "Image conversion from 8 bits to 16 bits error: ippStsSizeErr: Incorrect value for data size.";
const char kUpNullError[] = "Image conversion from 8 bits to 16 bits error: ippStsNullPtrErr: Null pointer error.";
const char kUpStepError[] = "Image conversion from 8 bits to 16 bits error: ippStsStepErr: Step value is not valid.";
const char kDownSizeError[] =
    "Image conversion from 16 bits to 8 bits error: ippStsSizeErr: Incorrect value for data size.";
const char kDownNullError[] = "Image conversion from 16 bits to 8 bits error: ippStsNullPtrErr: Null pointer error.";

QVILConversion* conversion() { return QVILConversion::sharedInstance(); }

std::vector<std::string> lines(std::initializer_list<const char*> texts) {
  return std::vector<std::string>(texts.begin(), texts.end());
}

// --- 8 bits to 16 bits ---

TEST(Convert8888Uto16U, WidensEveryChannelOnEveryTier) {
  conversion();
  TestImage src(21, 5, 4, 3, 1);
  src.fillRandom(8);
  qvtest::expectSameOnEveryTier([&] {
    TestImage dst(21, 5, 8, 6, 2);
    vImage_Buffer from = src.buffer(), to = dst.buffer();
    LogCapture log;
    EXPECT_TRUE(conversion()->imageLibConvert8888Uto16U(&from, &to));
    EXPECT_TRUE(log.lines().empty());
    for (int y = 0; y < 5; ++y)
      for (int i = 0; i < 84; ++i)
        EXPECT_EQ(arithtest::wordAt(dst.row(y), i), arithtest::widenReference(src.row(y)[i]));
    EXPECT_TRUE(dst.surroundingsIntact());
    return arithtest::bytesOf(dst);
  });
}

TEST(Convert8888Uto16U, RegionComesFromTheSource) {
  TestImage src(3, 2, 4), dst(5, 4, 8);
  src.fill(1);
  dst.fill(0);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibConvert8888Uto16U(&from, &to));
  for (int y = 0; y < 4; ++y)
    for (int i = 0; i < 20; ++i) EXPECT_EQ(arithtest::wordAt(dst.row(y), i), (y < 2 && i < 12) ? 257 : 0);
}

TEST(Convert8888Uto16U, ZeroWidthSourceLogsTheSizeErrorAndAnswersNo) {
  TestImage src(4, 2, 4), dst(4, 2, 8);
  dst.fill(3);
  const std::vector<uint8_t> before = dst.allBytes();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  from.width = 0;
  LogCapture log;
  EXPECT_FALSE(conversion()->imageLibConvert8888Uto16U(&from, &to));
  EXPECT_EQ(log.lines(), lines({kUpSizeError}));
  EXPECT_EQ(dst.allBytes(), before);
}

TEST(Convert8888Uto16U, NullAndStepFailuresAreLogged) {
  TestImage src(4, 2, 4), dst(4, 2, 8);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  vImage_Buffer noPixels = to;
  noPixels.data = nullptr;
  vImage_Buffer noStep = from;
  noStep.rowBytes = 0;
  LogCapture log;
  EXPECT_FALSE(conversion()->imageLibConvert8888Uto16U(&from, &noPixels));
  EXPECT_FALSE(conversion()->imageLibConvert8888Uto16U(&noStep, &to));
  EXPECT_EQ(log.lines(), lines({kUpNullError, kUpStepError}));
}

TEST(Convert8888Uto16U, FieldsAreCutToTheirLow32Bits) {
  TestImage src(3, 2, 4, 4), dst(3, 2, 8);
  src.fill(2);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  from.width += 1ull << 32;
  from.height += 1ull << 33;
  from.rowBytes += 1ull << 32;
  ASSERT_TRUE(conversion()->imageLibConvert8888Uto16U(&from, &to));
  for (int y = 0; y < 2; ++y)
    for (int i = 0; i < 12; ++i) EXPECT_EQ(arithtest::wordAt(dst.row(y), i), 514);
  EXPECT_TRUE(dst.surroundingsIntact());
}

// --- 16 bits to 8 bits ---

TEST(Convert16Uto8888U, UsesTheFastForm) {
  const uint16_t words[8] = {0, 65535, 257, 128, 384, 385, 32768, 1000};
  TestImage src(2, 1, 8), dst(2, 1, 4);
  for (int i = 0; i < 8; ++i) arithtest::setWordAt(src.row(0), i, words[i]);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  LogCapture log;
  ASSERT_TRUE(conversion()->imageLibConvert16Uto8888U(&from, &to));
  EXPECT_TRUE(log.lines().empty());
  for (int i = 0; i < 8; ++i) EXPECT_EQ(dst.row(0)[i], arithtest::narrowFastReference(words[i])) << words[i];
  EXPECT_EQ(dst.row(0)[3], 1) << "128 gives 1 in the fast form";
  EXPECT_EQ(dst.row(0)[4], 1);
  EXPECT_EQ(dst.row(0)[5], 2);
}

TEST(Convert16Uto8888U, UpAndBackReturnsEveryValue) {
  TestImage bytes(64, 1, 4), wide(64, 1, 8), back(64, 1, 4);
  for (int i = 0; i < 256; ++i) bytes.row(0)[i] = static_cast<uint8_t>(i);
  vImage_Buffer b = bytes.buffer(), w = wide.buffer(), r = back.buffer();
  ASSERT_TRUE(conversion()->imageLibConvert8888Uto16U(&b, &w));
  ASSERT_TRUE(conversion()->imageLibConvert16Uto8888U(&w, &r));
  EXPECT_EQ(back.pixels(), bytes.pixels());
}

TEST(Convert16Uto8888U, FailuresAreLogged) {
  TestImage src(4, 2, 8), dst(4, 2, 4);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  vImage_Buffer empty = from;
  empty.height = 0;
  vImage_Buffer noPixels = from;
  noPixels.data = nullptr;
  LogCapture log;
  EXPECT_FALSE(conversion()->imageLibConvert16Uto8888U(&empty, &to));
  EXPECT_FALSE(conversion()->imageLibConvert16Uto8888U(&noPixels, &to));
  EXPECT_EQ(log.lines(), lines({kDownSizeError, kDownNullError}));
}

// --- the BGRA forms ---

TEST(ConvertBGRA8toRGBA16, PermutesTheSourceAndLeavesItPermuted) {
  TestImage src(7, 3, 4, 5, 1), dst(7, 3, 8, 2);
  src.fillRandom(31);
  const std::vector<uint8_t> original = src.pixels();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibConvertBGRA8toRGBA16(&from, &to));
  const std::vector<uint8_t> permuted = src.pixels();
  for (size_t p = 0; p < original.size(); p += 4) {
    EXPECT_EQ(permuted[p], original[p + 2]);
    EXPECT_EQ(permuted[p + 1], original[p + 1]);
    EXPECT_EQ(permuted[p + 2], original[p]);
    EXPECT_EQ(permuted[p + 3], original[p + 3]);
  }
  for (int y = 0; y < 3; ++y)
    for (int i = 0; i < 28; ++i) EXPECT_EQ(arithtest::wordAt(dst.row(y), i), arithtest::widenReference(src.row(y)[i]));
  EXPECT_TRUE(src.surroundingsIntact());
  EXPECT_TRUE(dst.surroundingsIntact());
}

TEST(ConvertBGRA8toRGBA16, AFailedConversionDoesNotUndoThePermutation) {
  TestImage src(2, 1, 4);
  const uint8_t pixel[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  std::copy(pixel, pixel + 8, src.row(0));
  vImage_Buffer from = src.buffer();
  vImage_Buffer to{nullptr, 1, 2, 16};
  LogCapture log;
  EXPECT_FALSE(conversion()->imageLibConvertBGRA8toRGBA16(&from, &to));
  EXPECT_EQ(log.lines(), lines({kUpNullError}));
  EXPECT_EQ(src.pixels(), (std::vector<uint8_t>{3, 2, 1, 4, 7, 6, 5, 8}));
}

TEST(ConvertRGBA16toBGRA8, ConvertsThenPermutesTheDestination) {
  TestImage src(9, 2, 8, 6, 2), dst(9, 2, 4, 3, 5);
  src.fillRandom(12);
  const std::vector<uint8_t> srcBefore = src.allBytes();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibConvertRGBA16toBGRA8(&from, &to));
  EXPECT_EQ(src.allBytes(), srcBefore);
  const int swapped[4] = {2, 1, 0, 3};
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 9; ++x)
      for (int c = 0; c < 4; ++c)
        EXPECT_EQ(dst.row(y)[4 * x + c],
                  arithtest::narrowFastReference(arithtest::wordAt(src.row(y), 4 * x + swapped[c])));
  EXPECT_TRUE(dst.surroundingsIntact());
}

TEST(ConvertRGBA16toBGRA8, AFailedConversionLeavesTheDestinationAlone) {
  TestImage src(2, 2, 8), dst(2, 2, 4);
  dst.fillRandom(3);
  const std::vector<uint8_t> before = dst.allBytes();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  from.rowBytes = 0;
  LogCapture log;
  EXPECT_FALSE(conversion()->imageLibConvertRGBA16toBGRA8(&from, &to));
  EXPECT_EQ(log.lines(),
            lines({"Image conversion from 16 bits to 8 bits error: ippStsStepErr: Step value is not valid."}));
  EXPECT_EQ(dst.allBytes(), before);
}

// --- operations that drop the status ---

TEST(InvertBuffer, InvertsWidthBytesOfEachRow) {
  TestImage image(13, 4, 1, 3, 1);
  image.fillRandom(5);
  const std::vector<uint8_t> start = image.pixels();
  vImage_Buffer buffer = image.buffer();
  ASSERT_TRUE(conversion()->imageLibInvertBuffer(&buffer));
  const std::vector<uint8_t> after = image.pixels();
  for (size_t i = 0; i < start.size(); ++i) EXPECT_EQ(after[i], 255 - start[i]);
  EXPECT_TRUE(image.surroundingsIntact());
}

TEST(InvertBuffer, OnAFourChannelImageOnlyTheLeftQuarter) {
  TestImage image(8, 3, 4);
  image.fillRandom(6);
  const std::vector<uint8_t> start = image.pixels();
  vImage_Buffer buffer = image.buffer();  // width 8 pixels of 4 bytes: 8 bytes of 32 are inverted
  ASSERT_TRUE(conversion()->imageLibInvertBuffer(&buffer));
  const std::vector<uint8_t> after = image.pixels();
  for (size_t i = 0; i < start.size(); ++i) EXPECT_EQ(after[i], i % 32 < 8 ? 255 - start[i] : start[i]) << i;
}

TEST(InvertBuffer, FailuresAreDroppedAndNothingIsWritten) {
  TestImage image(8, 2, 1, 8);
  image.fill(1);
  const std::vector<uint8_t> before = image.allBytes();
  vImage_Buffer narrowStep = image.buffer();
  narrowStep.rowBytes = 7;  // below the width
  vImage_Buffer noPixels = image.buffer();
  noPixels.data = nullptr;
  LogCapture log;
  EXPECT_TRUE(conversion()->imageLibInvertBuffer(&narrowStep));
  EXPECT_TRUE(conversion()->imageLibInvertBuffer(&noPixels));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(image.allBytes(), before);
}

TEST(ThresholdGreaterPlanar, ReplacesStrictlyGreaterPixels) {
  TestImage image(16, 16, 1, 5, 3);
  for (int i = 0; i < 256; ++i) image.row(i / 16)[i % 16] = static_cast<uint8_t>(i);
  vImage_Buffer buffer = image.buffer();
  ASSERT_TRUE(conversion()->imageLibThresholdGreaterPlanar(&buffer, 100, 7));
  for (int i = 0; i < 256; ++i) EXPECT_EQ(image.row(i / 16)[i % 16], i > 100 ? 7 : i);
  EXPECT_TRUE(image.surroundingsIntact());
  vImage_Buffer noStep = buffer;
  noStep.rowBytes = 0;
  const std::vector<uint8_t> before = image.allBytes();
  EXPECT_TRUE(conversion()->imageLibThresholdGreaterPlanar(&noStep, 0, 0));
  EXPECT_EQ(image.allBytes(), before);
}

TEST(MultiplyAndScale, RGBA8888RegionComesFromDest) {
  TestImage src(6, 4, 4, 2, 1), dst(5, 3, 4, 7, 3);
  src.fillRandom(1);
  dst.fillRandom(2);
  const std::vector<uint8_t> start = dst.pixels();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibMultiplyAndScaleRGBA8888(&from, &to));
  const std::vector<uint8_t> after = dst.pixels();
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 20; ++x)
      EXPECT_EQ(after[y * 20 + x], arithtest::scaledProductReference(src.row(y)[x], start[y * 20 + x]));
  EXPECT_TRUE(dst.surroundingsIntact());
}

TEST(MultiplyAndScale, Planar8RegionComesFromDest) {
  TestImage src(30, 4, 1, 2, 1), dst(17, 3, 1, 7, 3);
  src.fillRandom(3);
  dst.fillRandom(4);
  const std::vector<uint8_t> start = dst.pixels();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibMultiplyAndScalePlanar8(&from, &to));
  const std::vector<uint8_t> after = dst.pixels();
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 17; ++x)
      EXPECT_EQ(after[y * 17 + x], arithtest::scaledProductReference(src.row(y)[x], start[y * 17 + x]));
  EXPECT_TRUE(dst.surroundingsIntact());
}

TEST(MultiplyAndScale, FailuresAreDropped) {
  TestImage src(4, 2, 4), dst(4, 2, 4);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  from.data = nullptr;
  const std::vector<uint8_t> before = dst.allBytes();
  LogCapture log;
  EXPECT_TRUE(conversion()->imageLibMultiplyAndScaleRGBA8888(&from, &to));
  EXPECT_TRUE(conversion()->imageLibMultiplyAndScalePlanar8(&from, &to));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(dst.allBytes(), before);
}

TEST(MultiplyPlanar8, By255LeavesEveryPixelAndBy0ClearsTheImage) {
  TestImage image(29, 5, 1, 3, 1);
  image.fillRandom(17);
  const std::vector<uint8_t> start = image.pixels();
  vImage_Buffer buffer = image.buffer();
  ASSERT_TRUE(conversion()->imageLibMultiplyPlanar8(&buffer, 255));
  EXPECT_EQ(image.pixels(), start);
  ASSERT_TRUE(conversion()->imageLibMultiplyPlanar8(&buffer, 0));
  EXPECT_EQ(image.pixels(), std::vector<uint8_t>(start.size(), 0));
  EXPECT_TRUE(image.surroundingsIntact());
}

TEST(MultiplyPlanar8, OtherValuesScale) {
  TestImage image(29, 5, 1, 3, 1);
  image.fillRandom(18);
  const std::vector<uint8_t> start = image.pixels();
  vImage_Buffer buffer = image.buffer();
  ASSERT_TRUE(conversion()->imageLibMultiplyPlanar8(&buffer, 128));
  const std::vector<uint8_t> after = image.pixels();
  for (size_t i = 0; i < start.size(); ++i) EXPECT_EQ(after[i], arithtest::scaledProductReference(start[i], 128));
}

TEST(MultiplyRGBA8888, EachChannelByItsValue) {
  TestImage image(11, 3, 4, 5, 2);
  image.fillRandom(19);
  const std::vector<uint8_t> start = image.pixels();
  const uint8_t value[4] = {255, 128, 0, 64};
  vImage_Buffer buffer = image.buffer();
  ASSERT_TRUE(conversion()->imageLibMultiplyRGBA8888(&buffer, value));
  const std::vector<uint8_t> after = image.pixels();
  for (size_t i = 0; i < start.size(); ++i)
    EXPECT_EQ(after[i], arithtest::scaledProductReference(start[i], value[i % 4]));
  EXPECT_TRUE(image.surroundingsIntact());
  LogCapture log;
  EXPECT_TRUE(conversion()->imageLibMultiplyRGBA8888(&buffer, nullptr));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(image.pixels(), after);
}

TEST(MinimumAndMaximum, PublicOperations) {
  TestImage rgba(9, 4, 4, 3, 1), planar(23, 5, 1, 2, 3);
  rgba.fill(200);
  planar.fill(100);
  const uint8_t corner[4] = {9, 8, 7, 6};
  std::copy(corner, corner + 4, rgba.row(3) + 32);
  planar.row(4)[22] = 3;
  planar.row(0)[0] = 240;
  vImage_Buffer four = rgba.buffer(), one = planar.buffer();
  uint8_t minValues[4] = {0, 0, 0, 0};
  uint8_t minValue = 0, maxValue = 0;
  ASSERT_TRUE(conversion()->imageLibGetMinimumValuesFromRGBA888(&four, minValues));
  ASSERT_TRUE(conversion()->imageLibGetMinimumValueFromPlanar8(&one, &minValue));
  ASSERT_TRUE(conversion()->imageLibGetMaximumValueFromPlanar8(&one, &maxValue));
  EXPECT_EQ(std::vector<uint8_t>(minValues, minValues + 4), std::vector<uint8_t>(corner, corner + 4));
  EXPECT_EQ(minValue, 3);
  EXPECT_EQ(maxValue, 240);
  // Failures are dropped: the results stay as they were.
  uint8_t untouched = 42;
  vImage_Buffer empty = one;
  empty.width = 0;
  LogCapture log;
  EXPECT_TRUE(conversion()->imageLibGetMinimumValueFromPlanar8(&empty, &untouched));
  EXPECT_TRUE(conversion()->imageLibGetMaximumValueFromPlanar8(&empty, &untouched));
  EXPECT_TRUE(conversion()->imageLibGetMinimumValuesFromRGBA888(&four, nullptr));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(untouched, 42);
}

TEST(AbsDiffBufferOne, RegionComesFromBufferOne) {
  TestImage one(15, 3, 1, 2, 1), two(20, 5, 1, 1, 2), dst(20, 5, 1, 3, 3);
  one.fillRandom(21);
  two.fillRandom(22);
  dst.fill(77);
  vImage_Buffer a = one.buffer(), b = two.buffer(), d = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibAbsDiffBufferOne(&a, &b, &d));
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 20; ++x) {
      const uint8_t expected = y < 3 && x < 15 ? arithtest::absDiffReference(one.row(y)[x], two.row(y)[x]) : 77;
      EXPECT_EQ(dst.row(y)[x], expected);
    }
  EXPECT_TRUE(dst.surroundingsIntact());
}

TEST(AbsDiffBufferOne, AStepBelowTheWidthLeavesTheDestinationAndAnswersYes) {
  TestImage one(8, 2, 1), two(8, 2, 1), dst(8, 2, 1, 8);
  one.fill(10);
  two.fill(3);
  dst.fill(5);
  const std::vector<uint8_t> before = dst.allBytes();
  vImage_Buffer a = one.buffer(), b = two.buffer(), d = dst.buffer();
  b.rowBytes = 7;
  LogCapture log;
  EXPECT_TRUE(conversion()->imageLibAbsDiffBufferOne(&a, &b, &d));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(dst.allBytes(), before);
}

TEST(MaxEveryBuffer, RegionComesFromTheSource) {
  TestImage src(10, 2, 1, 2, 1), dst(14, 4, 1, 3, 2);
  src.fillRandom(23);
  dst.fillRandom(24);
  const std::vector<uint8_t> start = dst.pixels();
  vImage_Buffer s = src.buffer(), d = dst.buffer();
  ASSERT_TRUE(conversion()->imageLibMaxEveryBuffer(&s, &d));
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 14; ++x) {
      const uint8_t before = start[y * 14 + x];
      EXPECT_EQ(dst.row(y)[x], y < 2 && x < 10 ? std::max(before, src.row(y)[x]) : before);
    }
  EXPECT_TRUE(dst.surroundingsIntact());
  vImage_Buffer noStep = s;
  noStep.rowBytes = 0;
  const std::vector<uint8_t> after = dst.allBytes();
  EXPECT_TRUE(conversion()->imageLibMaxEveryBuffer(&noStep, &d));
  EXPECT_EQ(dst.allBytes(), after);
}

}  // namespace
