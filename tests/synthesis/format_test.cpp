// Parameters, formats, pixelel positions, the metric tables and the building of the two maps.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "qvimage/imageSynth.h"
#include "reference.h"

namespace {

TEST(SynthParameters, DefaultsAreExactlyTheTable) {
  ImageSynthParametersStruct p;
  memset(&p, 0xCD, sizeof p);
  setDefaultParams(&p);
  EXPECT_EQ(p.wrapHorizontally, 0);
  EXPECT_EQ(p.wrapVertically, 0);
  EXPECT_EQ(p.targetOrder, 1);
  EXPECT_EQ(p.mapWeight, 0.5);
  EXPECT_EQ(p.sensitivity, 0.117);
  EXPECT_EQ(p.neighbourLimit, 30u);
  EXPECT_EQ(p.probeLimit, 200u);
}

TEST(SynthParameters, RecordLayoutInFieldOrder) {
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, wrapHorizontally), 0u);
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, wrapVertically), 4u);
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, targetOrder), 8u);
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, mapWeight), 16u);
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, sensitivity), 24u);
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, neighbourLimit), 32u);
  EXPECT_EQ(offsetof(ImageSynthParametersStruct, probeLimit), 36u);
  EXPECT_EQ(offsetof(_ImageBuffer, data), 0u);
  EXPECT_EQ(offsetof(_ImageBuffer, width), 8u);
  EXPECT_EQ(offsetof(_ImageBuffer, height), 12u);
  EXPECT_EQ(offsetof(_ImageBuffer, rowBytes), 16u);
  EXPECT_EQ(sizeof(SortPoint), 12u);
  EXPECT_EQ(sizeof(Point), 8u);
}

TEST(SynthFormat, PixelelsPerPixel) {
  EXPECT_EQ(countPixelelsPerPixelForFormat(0), 3u);
  EXPECT_EQ(countPixelelsPerPixelForFormat(1), 4u);
  EXPECT_EQ(countPixelelsPerPixelForFormat(2), 1u);
  EXPECT_EQ(countPixelelsPerPixelForFormat(3), 2u);
  EXPECT_EQ(countPixelelsPerPixelForFormat(4), 0u);
  EXPECT_EQ(countPixelelsPerPixelForFormat(-1), 0u);
}

ImageFormatIndices sentinelIndices() {
  ImageFormatIndices ix;
  memset(&ix, 0xEE, sizeof ix);
  return ix;
}

struct Row {
  int format;
  int colorEnd, alphaIndex, mapStart, mapEnd, colorCount, mapCount, total, targetAlpha, corpusAlpha;
};

TEST(SynthFormat, IndicesOfEachFormat) {
  const Row rows[] = {{0, 4, 0xEE, 4, 4, 3, 0, 4, 0, 0},
                      {1, 4, 4, 5, 5, 3, 0, 5, 1, 1},
                      {2, 2, 0xEE, 2, 2, 1, 0, 2, 0, 0},
                      {3, 2, 2, 3, 3, 1, 0, 3, 1, 1}};
  for (const Row& r : rows) {
    ImageFormatIndices ix = sentinelIndices();
    EXPECT_EQ(prepareImageFormatIndicesFromFormatType(&ix, r.format), 0);
    EXPECT_EQ(ix.colorEnd, r.colorEnd) << r.format;
    EXPECT_EQ(ix.alphaIndex, r.alphaIndex) << r.format;  // 0xEE: not written
    EXPECT_EQ(ix.mapStart, r.mapStart) << r.format;
    EXPECT_EQ(ix.mapEnd, r.mapEnd) << r.format;
    EXPECT_EQ(ix.colorCount, r.colorCount) << r.format;
    EXPECT_EQ(ix.mapCount, r.mapCount) << r.format;
    EXPECT_EQ(ix.total_bpp, r.total) << r.format;
    EXPECT_EQ(ix.targetHasAlpha, r.targetAlpha) << r.format;
    EXPECT_EQ(ix.corpusHasAlpha, r.corpusAlpha) << r.format;
  }
}

TEST(SynthFormat, UnknownFormatReturnsOneAndLeavesIndices) {
  for (int format : {4, 5, -1, 1000}) {
    ImageFormatIndices ix = sentinelIndices();
    const ImageFormatIndices before = ix;
    EXPECT_EQ(prepareImageFormatIndicesFromFormatType(&ix, format), 1);
    EXPECT_EQ(memcmp(&ix, &before, sizeof ix), 0);
  }
}

TEST(SynthFormat, DefaultIndicesAreTheRgbaRow) {
  ImageFormatIndices a = sentinelIndices(), b = sentinelIndices();
  prepareDefaultFormatIndices(&a);
  prepareImageFormatIndicesFromFormatType(&b, ImageFormatRGBA);
  EXPECT_EQ(memcmp(&a, &b, sizeof a), 0);
}

TEST(SynthFormat, GeneralIndicesWithMapPixelels) {
  ImageFormatIndices ix = sentinelIndices();
  prepareImageFormatIndices(&ix, 3, 2, 0, 1, 1);
  EXPECT_EQ(ix.colorCount, 3);
  EXPECT_EQ(ix.colorEnd, 4);
  EXPECT_EQ(ix.alphaIndex, 4);
  EXPECT_EQ(ix.mapStart, 5);
  EXPECT_EQ(ix.mapCount, 2);
  EXPECT_EQ(ix.mapEnd, 7);
  EXPECT_EQ(ix.total_bpp, 7);
  EXPECT_EQ(ix.targetHasAlpha, 0);
  EXPECT_EQ(ix.corpusHasAlpha, 1);
  // Without isMapUsed the map count is 0, and without alpha the maps follow the colours.
  ix = sentinelIndices();
  prepareImageFormatIndices(&ix, 2, 3, 0, 0, 0);
  EXPECT_EQ(ix.alphaIndex, 0xEE);
  EXPECT_EQ(ix.mapStart, 3);
  EXPECT_EQ(ix.mapCount, 0);
  EXPECT_EQ(ix.mapEnd, 3);
  EXPECT_EQ(ix.total_bpp, 3);
  // Eight pixelels is the most.
  ix = sentinelIndices();
  prepareImageFormatIndices(&ix, 3, 3, 1, 0, 1);
  EXPECT_EQ(ix.total_bpp, 8);
}

TEST(SynthFormatDeathTest, MoreThanEightPixelelsStops) {
  ImageFormatIndices ix;
  EXPECT_DEATH(prepareImageFormatIndices(&ix, 3, 4, 1, 1, 1), "indices->total_bpp <= MAX_IMAGE_SYNTH_BPP");
}

TEST(SynthMetric, ColourRowsAtTheDefaultSensitivity) {
  uint16_t colorDiff[512];
  uint32_t mapDiff[512];
  quantizeMetricFuncs(colorDiff, mapDiff, 0.117f, 0.5f);
  const int differences[] = {0, 1, 2, 4, 8, 16, 32, 64, 128, 255};
  const int costs[] = {0, 16, 67, 269, 1049, 3821, 11592, 26133, 45034, 65417};
  for (int k = 0; k < 10; ++k) {
    EXPECT_EQ(colorDiff[256 + differences[k]], costs[k]) << differences[k];
    EXPECT_EQ(colorDiff[256 - differences[k]], costs[k]) << -differences[k];
  }
  EXPECT_EQ(colorDiff[0], 65535);  // d = -256
}

TEST(SynthMetric, MapRowsAtTheDefaultWeight) {
  uint16_t colorDiff[512];
  uint32_t mapDiff[512];
  quantizeMetricFuncs(colorDiff, mapDiff, 0.117f, 0.5f);
  EXPECT_EQ(mapDiff[256], 0u);
  EXPECT_EQ(mapDiff[257], 2u);
  EXPECT_EQ(mapDiff[255], 2u);
  EXPECT_EQ(mapDiff[258], 8u);
  EXPECT_EQ(mapDiff[256 + 16], 512u);
  EXPECT_EQ(mapDiff[256 + 255], 130050u);
  EXPECT_EQ(mapDiff[1], 130050u);
  EXPECT_EQ(mapDiff[0], 131072u);
}

TEST(SynthMetric, WholeTablesFollowTheirFormulas) {
  const float sensitivities[] = {0.117f, 0.05f, 0.5f, 1.0f};
  const float weights[] = {0.5f, 0.0f, 0.3f, 2.0f};
  for (int k = 0; k < 4; ++k) {
    uint16_t colorDiff[512];
    uint32_t mapDiff[512];
    quantizeMetricFuncs(colorDiff, mapDiff, sensitivities[k], weights[k]);
    const std::vector<uint32_t> colours = synthref::colorTable(sensitivities[k]);
    const std::vector<uint32_t> maps = synthref::mapTable(weights[k]);
    for (int i = 0; i < 512; ++i) {
      EXPECT_EQ(colorDiff[i], colours[i]) << k << " " << i;
      EXPECT_EQ(mapDiff[i], maps[i]) << k << " " << i;
    }
  }
}

TEST(SynthAdapt, TargetAndCorpusFromImageAndMask) {
  // 3 x 2 pixels of RGB with padded rows; the mask has rows of its own length.
  const int w = 3, h = 2, n = 3;
  std::vector<uint8_t> image(2 * 11, 0x77);
  std::vector<uint8_t> mask(2 * 5, 0x66);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      for (int k = 0; k < n; ++k) image[y * 11 + x * n + k] = static_cast<uint8_t>(10 * (y * w + x) + k);
      mask[y * 5 + x] = static_cast<uint8_t>(y * w + x == 4 ? 0 : 40 * (y * w + x));
    }
  _ImageBuffer img{image.data(), 3, 2, 11};
  _ImageBuffer msk{mask.data(), 3, 2, 5};
  Map target, corpus;
  adaptSimpleAPI(&img, &msk, &target, &corpus, n);
  ASSERT_EQ(target.depth, 4u);
  ASSERT_EQ(corpus.depth, 4u);
  for (int i = 0; i < w * h; ++i) {
    const uint8_t m = static_cast<uint8_t>(i == 4 ? 0 : 40 * i);
    EXPECT_EQ(target.data->data[i * 4], m) << i;
    EXPECT_EQ(corpus.data->data[i * 4], m == 0 ? 255 : static_cast<uint8_t>(~m)) << i;
    for (int k = 0; k < n; ++k) {
      EXPECT_EQ(target.data->data[i * 4 + 1 + k], 10 * i + k);
      EXPECT_EQ(corpus.data->data[i * 4 + 1 + k], 10 * i + k);
    }
  }
  free_map(&target);
  free_map(&corpus);
}

TEST(SynthAdapt, PlainVariantKeepsTheMaskApart) {
  std::vector<uint8_t> image = {1, 2, 3, 4};
  std::vector<uint8_t> mask = {9, 0};
  _ImageBuffer img{image.data(), 2, 1, 4};
  _ImageBuffer msk{mask.data(), 2, 1, 2};
  Map map, maskMap;
  adaptImageAndMask(&img, &msk, &map, &maskMap, 2);
  ASSERT_EQ(map.depth, 3u);
  ASSERT_EQ(maskMap.depth, 1u);
  const uint8_t expectedMap[6] = {0, 1, 2, 0, 3, 4};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(map.data->data[i], expectedMap[i]) << i;
  EXPECT_EQ(maskMap.data->data[0], 9);
  EXPECT_EQ(maskMap.data->data[1], 0);
  free_map(&map);
  free_map(&maskMap);
}

}  // namespace
