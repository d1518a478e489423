// QVILComputerVision: the scratch size, and the fill on a vImage_Buffer with its rectangle.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "qvimage/QVILComputerVision.h"
#include "qvimage/qvimage.h"
#include "region/fill_reference.h"
#include "support/images.h"
#include "support/log_capture.h"

namespace {

using qvtest::TestImage;

TEST(FloodFillPublic, SharedInstanceIsMadeOnce) {
  QVILComputerVision* first = QVILComputerVision::sharedInstance();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(QVILComputerVision::sharedInstance(), first);
}

TEST(FloodFillPublic, SizeTruncatesAndAlwaysAnswersTrue) {
  QVILComputerVision* vision = QVILComputerVision::sharedInstance();
  int32_t size = -1;
  EXPECT_TRUE(vision->floodFillGetSize_Grad({640.9, 480.99}, &size));
  EXPECT_EQ(size, 642 * 482 + (480 * 24 * 640) / 4 + 32);
  size = 77;
  EXPECT_TRUE(vision->floodFillGetSize_Grad({0.5, 10}, &size));  // width 0: refused, status dropped
  EXPECT_EQ(size, 77);
  EXPECT_TRUE(vision->floodFillGetSize_Grad({10, 10}, nullptr));
}

std::vector<uint8_t> scratchFor(int width, int height) {
  int32_t size = 0;
  QVILComputerVision::sharedInstance()->floodFillGetSize_Grad({static_cast<double>(width), static_cast<double>(height)},
                                                              &size);
  return std::vector<uint8_t>(static_cast<size_t>(size));
}

TEST(FloodFillPublic, FillsFromTheTruncatedSeedAndReportsTheBox) {
  constexpr int kWidth = 45, kHeight = 21;
  std::vector<uint8_t> pixels = qvtest::randomBytes(kWidth * kHeight, 51);
  for (uint8_t& pixel : pixels) pixel = pixel % 5 == 0 ? 10 : static_cast<uint8_t>(160 + pixel % 30);
  pixels[7 * kWidth + 12] = 175;
  const qvtest::ReferenceFill expected = qvtest::referenceFill(pixels, kWidth, kHeight, 12, 7, 0, 20, 20);
  TestImage image(kWidth, kHeight, 1, 11, 0);
  for (int y = 0; y < kHeight; ++y) std::memcpy(image.row(y), &pixels[static_cast<size_t>(y) * kWidth], kWidth);
  vImage_Buffer buffer = image.buffer();
  std::vector<uint8_t> scratch = scratchFor(kWidth, kHeight);
  CGRect box{{-1, -1}, {-1, -1}};
  qvtest::LogCapture log;
  EXPECT_TRUE(QVILComputerVision::sharedInstance()->floodFillRange4ConPlanar(&buffer, {12.99, 7.5}, 0, 20, 20, &box,
                                                                             scratch.data()));
  EXPECT_EQ(image.pixels(), expected.image);
  EXPECT_EQ(box.origin.x, expected.box.x);
  EXPECT_EQ(box.origin.y, expected.box.y);
  EXPECT_EQ(box.size.width, expected.box.width);
  EXPECT_EQ(box.size.height, expected.box.height);
  EXPECT_TRUE(log.lines().empty());
  EXPECT_TRUE(image.surroundingsIntact());
}

TEST(FloodFillPublic, NullRectangleIsAllowed) {
  TestImage image(8, 3, 1);
  image.fill(40);
  vImage_Buffer buffer = image.buffer();
  std::vector<uint8_t> scratch = scratchFor(8, 3);
  EXPECT_TRUE(QVILComputerVision::sharedInstance()->floodFillRange4ConPlanar(&buffer, {1, 1}, 9, 0, 0, nullptr,
                                                                             scratch.data()));
  EXPECT_EQ(image.pixels(), std::vector<uint8_t>(24, 9));
}

// A refusal: false, the zero rectangle, nothing written, nothing logged.
void expectRefused(vImage_Buffer buffer, CGPoint seed, uint8_t* scratch, const TestImage& image) {
  const std::vector<uint8_t> before = image.allBytes();
  CGRect box{{5, 5}, {5, 5}};
  qvtest::LogCapture log;
  EXPECT_FALSE(QVILComputerVision::sharedInstance()->floodFillRange4ConPlanar(&buffer, seed, 1, 3, 3, &box, scratch));
  EXPECT_EQ(box.origin.x, 0);
  EXPECT_EQ(box.origin.y, 0);
  EXPECT_EQ(box.size.width, 0);
  EXPECT_EQ(box.size.height, 0);
  EXPECT_EQ(image.allBytes(), before);
  EXPECT_TRUE(log.lines().empty());
  EXPECT_FALSE(
      QVILComputerVision::sharedInstance()->floodFillRange4ConPlanar(&buffer, seed, 1, 3, 3, nullptr, scratch));
}

TEST(FloodFillPublic, RefusalsGiveTheZeroRectangle) {
  TestImage image(6, 4, 1, 2);
  image.fill(30);
  std::vector<uint8_t> scratch = scratchFor(6, 4);
  const vImage_Buffer good = image.buffer();
  vImage_Buffer nullData = good;
  nullData.data = nullptr;
  expectRefused(nullData, {1, 1}, scratch.data(), image);
  expectRefused(good, {1, 1}, nullptr, image);
  vImage_Buffer empty = good;
  empty.height = 0;
  expectRefused(empty, {1, 1}, scratch.data(), image);
  vImage_Buffer narrowRows = good;
  narrowRows.rowBytes = 5;
  expectRefused(narrowRows, {1, 1}, scratch.data(), image);
  // rowBytes of 2^32 + 8 is cut to 8: accepted; 2^32 + 5 is cut to 5: refused.
  vImage_Buffer cutRows = good;
  cutRows.rowBytes = 0x100000005ull;
  expectRefused(cutRows, {1, 1}, scratch.data(), image);
  expectRefused(good, {6, 1}, scratch.data(), image);
  expectRefused(good, {1, 4.2}, scratch.data(), image);
  expectRefused(good, {-1, 0}, scratch.data(), image);
}

TEST(FloodFillPublic, SeedHoldingTheNewValueAnswersTrueAndWritesNothing) {
  TestImage image(6, 4, 1);
  image.fill(30);
  const std::vector<uint8_t> before = image.allBytes();
  vImage_Buffer buffer = image.buffer();
  std::vector<uint8_t> scratch = scratchFor(6, 4);
  CGRect box{};
  EXPECT_TRUE(
      QVILComputerVision::sharedInstance()->floodFillRange4ConPlanar(&buffer, {2, 2}, 30, 9, 9, &box, scratch.data()));
  EXPECT_EQ(image.allBytes(), before);
}

}  // namespace
