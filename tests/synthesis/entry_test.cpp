// The entry and the public class: every result code, the rows and formats it accepts, the
// write-back and cancellation.

#include <gtest/gtest.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include <cstring>
#include <vector>

#include "helpers.h"
#include "qvimage/QVILResynthesize.h"
#include "qvimage/imageSynth.h"

namespace {

using synthtest::callEntry;
using synthtest::patternBytes;
using synthtest::rectangleMask;

std::vector<uint8_t> opaqueRgba(int w, int h, uint32_t seed) {
  std::vector<uint8_t> image = patternBytes(static_cast<size_t>(w) * h * 4, seed);
  for (size_t i = 3; i < image.size(); i += 4) image[i] = 255;
  return image;
}

TEST(SynthEntry, AllZeroMaskReturnsFiveUntouched) {
  const std::vector<uint8_t> image = opaqueRgba(6, 5, 1);
  const synthtest::EntryResult got = callEntry(image, std::vector<uint8_t>(30, 0), 6, 5, 1, {});
  EXPECT_EQ(got.result, SynthNoTargetPoints);
  EXPECT_EQ(got.image, image);
  EXPECT_TRUE(got.percents.empty());
}

TEST(SynthEntry, AllNonZeroMaskReturnsSixUntouched) {
  const std::vector<uint8_t> image = opaqueRgba(6, 5, 2);
  const synthtest::EntryResult got = callEntry(image, std::vector<uint8_t>(30, 1), 6, 5, 1, {});
  EXPECT_EQ(got.result, SynthNoCorpusPoints);
  EXPECT_EQ(got.image, image);
}

TEST(SynthEntry, TransparentCorpusReturnsSixUntouched) {
  std::vector<uint8_t> image = opaqueRgba(6, 5, 3);
  for (size_t i = 3; i < image.size(); i += 4) image[i] = 0;
  const synthtest::EntryResult got = callEntry(image, rectangleMask(6, 5, 1, 1, 2, 2), 6, 5, 1, {});
  EXPECT_EQ(got.result, SynthNoCorpusPoints);
  EXPECT_EQ(got.image, image);
}

TEST(SynthEntry, OneCorpusPointFillsEverything) {
  const int w = 7, h = 6;
  std::vector<uint8_t> image = opaqueRgba(w, h, 4);
  for (size_t i = 3; i < image.size(); i += 4) image[i] = static_cast<uint8_t>(i);  // alpha varies, never 0
  image[3] = 1;
  std::vector<uint8_t> mask(static_cast<size_t>(w) * h, 1);
  mask[20] = 0;
  const synthtest::EntryResult got = callEntry(image, mask, w, h, 1, {});
  EXPECT_EQ(got.result, SynthOK);
  for (int i = 0; i < w * h; ++i) {
    for (int k = 0; k < 3; ++k) EXPECT_EQ(got.image[i * 4 + k], image[20 * 4 + k]) << i;
    EXPECT_EQ(got.image[i * 4 + 3], image[i * 4 + 3]) << i;  // alpha comes back as it went in
  }
}

TEST(SynthEntry, SizeMismatchReturnsTwoUntouched) {
  std::vector<uint8_t> image = opaqueRgba(6, 5, 5);
  const std::vector<uint8_t> before = image;
  std::vector<uint8_t> mask(64, 255);
  int32_t flag = 0;
  synthtest::Progress progress;
  for (auto size : {std::pair<uint32_t, uint32_t>{7, 5}, {6, 4}, {5, 6}}) {
    _ImageBuffer img{image.data(), 6, 5, 24};
    _ImageBuffer msk{mask.data(), size.first, size.second, size.first};
    EXPECT_EQ(imageSynth(&img, &msk, 1, nullptr, synthtest::progressCallback(), &progress, &flag), SynthSizeMismatch);
  }
  EXPECT_EQ(image, before);
  EXPECT_TRUE(progress.percents.empty());
}

TEST(SynthEntry, DifferentRowLengthsWork) {
  const int w = 9, h = 7;
  const std::vector<uint8_t> packed = opaqueRgba(w, h, 6);
  const std::vector<uint8_t> packedMask = rectangleMask(w, h, 2, 2, 4, 3);
  const std::vector<uint8_t> expected = callEntry(packed, packedMask, w, h, 1, {}).image;
  // The same pixels with rows of 50 bytes, and the mask with rows of 13 bytes.
  std::vector<uint8_t> image(50 * h, 0xAB), mask(13 * h, 0xCD);
  for (int y = 0; y < h; ++y) {
    memcpy(&image[y * 50], &packed[y * w * 4], w * 4);
    memcpy(&mask[y * 13], &packedMask[y * w], w);
  }
  _ImageBuffer img{image.data(), w, h, 50};
  _ImageBuffer msk{mask.data(), w, h, 13};
  int32_t flag = 0;
  synthtest::Progress progress;
  EXPECT_EQ(imageSynth(&img, &msk, 1, nullptr, synthtest::progressCallback(), &progress, &flag), SynthOK);
  for (int y = 0; y < h; ++y) {
    EXPECT_EQ(memcmp(&image[y * 50], &expected[y * w * 4], w * 4), 0) << y;
    for (int b = w * 4; b < 50; ++b) EXPECT_EQ(image[y * 50 + b], 0xAB);  // padding untouched
  }
}

TEST(SynthEntry, RowOffsetsWrapAt32Bits) {
  // Only the low 32 bits of row times rowBytes count: 2^32 + 36 acts as 36.
  const int w = 9, h = 7;
  const std::vector<uint8_t> packed = opaqueRgba(w, h, 7);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 2, 2, 4, 3);
  const std::vector<uint8_t> expected = callEntry(packed, mask, w, h, 1, {}).image;
  std::vector<uint8_t> image = packed, maskCopy = mask;
  _ImageBuffer img{image.data(), w, h, (1ull << 32) + 36};
  _ImageBuffer msk{maskCopy.data(), w, h, (1ull << 32) + 9};
  int32_t flag = 0;
  synthtest::Progress progress;
  EXPECT_EQ(imageSynth(&img, &msk, 1, nullptr, synthtest::progressCallback(), &progress, &flag), SynthOK);
  EXPECT_EQ(image, expected);
}

TEST(SynthEntry, BadFormatReturnsOneBeforeAnyMapIsBuilt) {
  // No pixels at all: a map built from them would read through the null pointers.
  _ImageBuffer img{nullptr, 4, 4, 16};
  _ImageBuffer msk{nullptr, 4, 4, 4};
  int32_t flag = 0;
  synthtest::Progress progress;
  for (int format : {4, -1, 99})
    EXPECT_EQ(imageSynth(&img, &msk, format, nullptr, synthtest::progressCallback(), &progress, &flag), SynthBadFormat);
  EXPECT_TRUE(progress.percents.empty());
  // With pixels, they stay as they were.
  const int w = 6, h = 5;
  const std::vector<uint8_t> image = opaqueRgba(w, h, 16);
  const synthtest::EntryResult got = callEntry(image, rectangleMask(w, h, 1, 1, 2, 2), w, h, 4, {});
  EXPECT_EQ(got.result, SynthBadFormat);
  EXPECT_EQ(got.image, image);
}

TEST(SynthEntry, NeighbourLimitOf64IsAcceptedAnd65ReturnsThree) {
  const int w = 8, h = 6;
  const std::vector<uint8_t> image = opaqueRgba(w, h, 8);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 2, 2, 3, 2);
  synthref::Params params;
  params.neighbourLimit = 64;
  const synthtest::EntryResult accepted = callEntry(image, mask, w, h, 1, params);
  EXPECT_EQ(accepted.result, SynthOK);
  EXPECT_NE(accepted.image, image);
  params.neighbourLimit = 65;
  const synthtest::EntryResult refused = callEntry(image, mask, w, h, 1, params);
  EXPECT_EQ(refused.result, SynthTooManyNeighbours);
  EXPECT_EQ(refused.image, image);
  EXPECT_TRUE(refused.percents.empty());
}

TEST(SynthEntry, BadOrderReturnsFourUntouched) {
  const int w = 8, h = 6;
  const std::vector<uint8_t> image = opaqueRgba(w, h, 9);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 2, 2, 3, 2);
  for (uint32_t order : {9u, 0xFFFFFFFFu}) {
    synthref::Params params;
    params.order = order;
#if defined(__SANITIZE_ADDRESS__)
    // The engine leaves its arrays allocated on this path; the leak checker is told so.
    __lsan::ScopedDisabler keepLeaks;
#endif
    const synthtest::EntryResult got = callEntry(image, mask, w, h, 1, params);
    EXPECT_EQ(got.result, SynthBadOrder);
    EXPECT_EQ(got.image, image);
    EXPECT_TRUE(got.percents.empty());
  }
}

TEST(SynthEntry, NullParametersMeanTheDefaults) {
  const int w = 10, h = 8;
  std::vector<uint8_t> a = opaqueRgba(w, h, 10), b = a;
  std::vector<uint8_t> mask = rectangleMask(w, h, 3, 2, 4, 4);
  ImageSynthParametersStruct defaults;
  setDefaultParams(&defaults);
  int32_t flag = 0;
  synthtest::Progress p1, p2;
  _ImageBuffer imgA{a.data(), w, h, w * 4u}, imgB{b.data(), w, h, w * 4u}, msk{mask.data(), w, h, w * 1u};
  EXPECT_EQ(imageSynth(&imgA, &msk, 1, nullptr, synthtest::progressCallback(), &p1, &flag), SynthOK);
  EXPECT_EQ(imageSynth(&imgB, &msk, 1, &defaults, synthtest::progressCallback(), &p2, &flag), SynthOK);
  EXPECT_EQ(a, b);
  EXPECT_EQ(p1.percents, p2.percents);
}

TEST(SynthEntry, CancelFlagSetBeforeTheCall) {
  const int w = 10, h = 8;
  const std::vector<uint8_t> image = opaqueRgba(w, h, 11);
  const synthtest::EntryResult got = callEntry(image, rectangleMask(w, h, 3, 2, 4, 4), w, h, 1, {}, 0);
  EXPECT_EQ(got.result, SynthOK);
  EXPECT_EQ(got.image, image);
  EXPECT_LE(got.percents.size(), 1u);
}

TEST(SynthEntry, CancelAtTheFirstReport) {
  const int w = 10, h = 8;
  const std::vector<uint8_t> image = opaqueRgba(w, h, 12);
  const synthtest::EntryResult got = callEntry(image, rectangleMask(w, h, 3, 2, 4, 4), w, h, 1, {}, 1);
  EXPECT_EQ(got.result, SynthOK);
  EXPECT_EQ(got.image, image);
  EXPECT_EQ(got.percents.size(), 1u);
}

TEST(SynthEntry, PixelsOutsideTheMaskKeepTheirValues) {
  const int w = 11, h = 9;
  const std::vector<uint8_t> image = patternBytes(static_cast<size_t>(w) * h * 3, 13);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 3, 3, 4, 3, 128);
  const synthtest::EntryResult got = callEntry(image, mask, w, h, 0, {});
  ASSERT_EQ(got.result, SynthOK);
  size_t changedInside = 0;
  for (int i = 0; i < w * h; ++i)
    for (int k = 0; k < 3; ++k) {
      if (mask[i] == 0) {
        EXPECT_EQ(got.image[i * 3 + k], image[i * 3 + k]) << i;
      }
      changedInside += mask[i] != 0 && got.image[i * 3 + k] != image[i * 3 + k];
    }
  EXPECT_GT(changedInside, 0u);
}

TEST(SynthClass, AlwaysSynthesisesFourBytePixels) {
  const int w = 10, h = 8;
  const std::vector<uint8_t> image = opaqueRgba(w, h, 14);
  std::vector<uint8_t> mask = rectangleMask(w, h, 3, 2, 4, 4);
  const std::vector<uint8_t> expected = callEntry(image, mask, w, h, 1, {}).image;
  for (int32_t format : {0, 1, 2, 3, 4, -7}) {
    std::vector<uint8_t> pixels = image;
    _ImageBuffer img{pixels.data(), w, h, w * 4u}, msk{mask.data(), w, h, w * 1u};
    ImageSynthParametersStruct parameters;
    setDefaultParams(&parameters);
    int32_t flag = 0;
    synthtest::Progress progress;
    EXPECT_EQ(
        QVILResynthesize::imageSynth(&img, &msk, format, &parameters, synthtest::progressCallback(), &progress, &flag),
        SynthOK);
    EXPECT_EQ(pixels, expected) << format;
  }
}

TEST(SynthClass, PassesResultCodesThrough) {
  std::vector<uint8_t> pixels = opaqueRgba(4, 4, 15);
  const std::vector<uint8_t> before = pixels;
  std::vector<uint8_t> zeros(16, 0);
  _ImageBuffer img{pixels.data(), 4, 4, 16}, msk{zeros.data(), 4, 4, 4};
  int32_t flag = 0;
  synthtest::Progress progress;
  EXPECT_EQ(QVILResynthesize::imageSynth(&img, &msk, 1, nullptr, synthtest::progressCallback(), &progress, &flag),
            SynthNoTargetPoints);
  _ImageBuffer wide{zeros.data(), 5, 3, 5};
  EXPECT_EQ(QVILResynthesize::imageSynth(&img, &wide, 1, nullptr, synthtest::progressCallback(), &progress, &flag),
            SynthSizeMismatch);
  EXPECT_EQ(pixels, before);
}

}  // namespace
