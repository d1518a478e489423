// The matching engine, run to the bit against the plain re-statement of the tests, and the
// behaviours of its passes, neighbours, candidates, progress and stop rule.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "helpers.h"
#include "imagesynth/engineState.h"
#include "qvimage/imageSynth.h"
#include "reference.h"

namespace {

using synthtest::callEntry;
using synthtest::patternBytes;
using synthtest::rectangleMask;

// Runs the library and the re-statement on the same input and compares everything they give:
// result, bytes, the reported percentages and where the random sequence stands afterwards.
void expectSameAsReference(const std::vector<uint8_t>& image, const std::vector<uint8_t>& mask, int w, int h,
                           int format, const synthref::Params& params, int cancelAt = -1) {
  const synthref::EntryRun want = synthref::runEntry(image, mask, w, h, format, params, cancelAt);
  const int wantNext = rand();
  const synthtest::EntryResult got = callEntry(image, mask, w, h, format, params, cancelAt);
  EXPECT_EQ(rand(), wantNext) << "random draws differ";
  EXPECT_EQ(got.result, want.result);
  EXPECT_EQ(got.percents, want.reports);
  ASSERT_EQ(got.image.size(), want.image.size());
  size_t differing = 0;
  for (size_t i = 0; i < got.image.size(); ++i) differing += got.image[i] != want.image[i];
  EXPECT_EQ(differing, 0u) << "format " << format << " order " << params.order;
  if (params.probeLimit > 0 && cancelAt < 0) {
    EXPECT_NE(got.image, image) << "nothing was synthesised";
  }
}

// A small textured picture: stripes and a checker with noise, n bytes a pixel, opaque alpha.
std::vector<uint8_t> texture(int w, int h, int format, uint32_t seed) {
  const int n = static_cast<int>(countPixelelsPerPixelForFormat(format));
  std::vector<uint8_t> noise = patternBytes(static_cast<size_t>(w) * h * n, seed, 15);
  std::vector<uint8_t> image(noise.size());
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x)
      for (int k = 0; k < n; ++k) {
        const size_t i = (static_cast<size_t>(y) * w + x) * n + k;
        const bool alpha = (format == 1 && k == 3) || (format == 3 && k == 1);
        image[i] = alpha ? 255 : static_cast<uint8_t>(((x + 2 * k) % 4) * 40 + ((x / 3 + y / 3) % 2) * 90 + noise[i]);
      }
  return image;
}

TEST(SynthPasses, TableForAMillionPoints) {
  qv::synth::PassEntry passes[qv::synth::kPassCount];
  qv::synth::fillPassEntries(1000000, passes);
  const uint32_t counts[6] = {1000000, 1000000, 750000, 562500, 421875, 316406};
  for (int k = 0; k < 6; ++k) {
    EXPECT_EQ(passes[k].count, counts[k]) << k;
    EXPECT_EQ(passes[k].start, 0u) << k;
  }
  qv::synth::fillPassEntries(10, passes);
  uint32_t total = 0;
  for (const auto& pass : passes) total += pass.count;
  EXPECT_EQ(total, 37u);  // 10 + 10 + 7 + 5 + 3 + 2
}

TEST(SynthProgress, FirstReportForTenPointsIs11067) {
  const int w = 8, h = 6;
  std::vector<uint8_t> mask = rectangleMask(w, h, 2, 2, 5, 2);  // ten points
  const synthtest::EntryResult got = callEntry(texture(w, h, 1, 3), mask, w, h, 1, {});
  ASSERT_FALSE(got.percents.empty());
  EXPECT_EQ(got.percents[0], 11067);  // 4095 / 37 * 100, truncated
  for (size_t k = 1; k < got.percents.size(); ++k) EXPECT_GT(got.percents[k], got.percents[k - 1]);
}

TEST(SynthEngine, WholeRunsMatchThePlainRestatementInEveryFormat) {
  const int w = 14, h = 11;
  const std::vector<uint8_t> mask = rectangleMask(w, h, 4, 3, 5, 4);
  for (int format = 0; format <= 3; ++format) {
    expectSameAsReference(texture(w, h, format, 11 + format), mask, w, h, format, {});
  }
}

TEST(SynthEngine, WholeRunsMatchThePlainRestatementInEveryOrder) {
  const int w = 13, h = 12;
  std::vector<uint8_t> mask = rectangleMask(w, h, 3, 3, 6, 5);
  mask[static_cast<size_t>(9) * w + 10] = 1;  // a second, single-pixel hole of a partial mask value
  const std::vector<uint8_t> image = texture(w, h, 1, 5);
  for (uint32_t order = 0; order <= 8; ++order) {
    synthref::Params params;
    params.order = order;
    params.probeLimit = 40;
    expectSameAsReference(image, mask, w, h, 1, params);
  }
}

TEST(SynthEngine, WholeRunsMatchWithWrapsLimitsAndSensitivities) {
  const int w = 12, h = 10;
  const std::vector<uint8_t> mask = rectangleMask(w, h, 0, 2, 4, 6);  // touching the left edge
  const std::vector<uint8_t> image = texture(w, h, 0, 9);
  synthref::Params variants[6];
  variants[0].wrapH = true;
  variants[1].wrapV = true;
  variants[1].order = 3;
  variants[2].wrapH = variants[2].wrapV = true;
  variants[2].neighbourLimit = 64;
  variants[3].neighbourLimit = 5;
  variants[3].sensitivity = 0.5;
  variants[4].probeLimit = 3;
  variants[4].order = 5;
  variants[5].neighbourLimit = 1;
  variants[5].mapWeight = 3.0;  // no map pixelels: no effect
  for (const synthref::Params& params : variants) expectSameAsReference(image, mask, w, h, 0, params);
}

TEST(SynthEngine, TransparentPixelsAreNeitherCorpusNorContext) {
  const int w = 12, h = 9;
  std::vector<uint8_t> image = texture(w, h, 1, 21);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; x += 3) image[(static_cast<size_t>(y) * w + x) * 4 + 3] = 0;
  expectSameAsReference(image, rectangleMask(w, h, 4, 2, 4, 5), w, h, 1, {});
  synthref::Params wrap;
  wrap.order = 2;
  expectSameAsReference(image, rectangleMask(w, h, 4, 2, 4, 5), w, h, 1, wrap);
}

// The engine driven directly, with map pixelels and a corpus of another size.
TEST(SynthEngine, MapPixelelsAndDifferentSizesMatchThePlainRestatement) {
  ImageFormatIndices indices;
  prepareImageFormatIndices(&indices, 3, 2, 0, 0, 1);  // mask, 3 colours, 2 map pixelels
  synthref::Layout layout{4, -1, 4, 6, 3, 2, 6, false, false};
  const int tw = 9, th = 7, cw = 11, ch = 6;
  synthref::Grid target{tw, th, 6, patternBytes(static_cast<size_t>(tw) * th * 6, 71)};
  synthref::Grid corpus{cw, ch, 6, patternBytes(static_cast<size_t>(cw) * ch * 6, 72)};
  for (int y = 0; y < th; ++y)
    for (int x = 0; x < tw; ++x) target.at(x, y)[0] = (x >= 2 && x < 6 && y >= 2 && y < 5) ? 200 : 0;
  for (int y = 0; y < ch; ++y)
    for (int x = 0; x < cw; ++x) corpus.at(x, y)[0] = (x + y) % 5 == 0 ? 0 : 255;
  synthref::Params params;
  params.mapWeight = 0.3;
  params.probeLimit = 25;
  const synthref::Run want = synthref::runEngine(layout, target, corpus, params);
  const int wantNext = rand();

  Map t, c;
  new_pixmap(&t, tw, th, 6);
  new_pixmap(&c, cw, ch, 6);
  memcpy(t.data->data, target.px.data(), target.px.size());
  memcpy(c.data->data, corpus.px.data(), corpus.px.size());
  int32_t flag = 0;
  synthtest::Progress progress;
  const int32_t result =
      engine(&indices, &t, &c, synthtest::progressCallback(), &progress, &flag, synthtest::toParameters(params));
  EXPECT_EQ(rand(), wantNext);
  EXPECT_EQ(result, want.result);
  EXPECT_EQ(progress.percents, want.reports);
  EXPECT_EQ(memcmp(t.data->data, want.target.px.data(), want.target.px.size()), 0);
  EXPECT_EQ(memcmp(c.data->data, corpus.px.data(), corpus.px.size()), 0);  // the corpus is unchanged
  free_map(&t);
  free_map(&c);
}

TEST(SynthEngine, RunsAreRepeatable) {
  const int w = 16, h = 12;
  const std::vector<uint8_t> image = texture(w, h, 1, 8);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 5, 4, 6, 5);
  const synthtest::EntryResult first = callEntry(image, mask, w, h, 1, {});
  rand();
  const synthtest::EntryResult second = callEntry(image, mask, w, h, 1, {});
  EXPECT_EQ(first.image, second.image);
  EXPECT_NE(first.image, image);
}

TEST(SynthEngine, NoContextAndNoProbesLeavesTheImage) {
  const int w = 10, h = 8;
  const std::vector<uint8_t> image = texture(w, h, 1, 4);
  synthref::Params params;
  params.order = 0;
  params.probeLimit = 0;
  const synthtest::EntryResult got = callEntry(image, rectangleMask(w, h, 2, 2, 5, 4), w, h, 1, params);
  EXPECT_EQ(got.result, 0);
  EXPECT_EQ(got.image, image);
  EXPECT_EQ(got.percents.size(), 1u);  // pass 0 changed nothing, and the run ended there
}

TEST(SynthEngine, NoProbesWithContextKeepsOldColours) {
  const int w = 10, h = 8;
  const std::vector<uint8_t> image = texture(w, h, 1, 4);
  synthref::Params params;
  params.probeLimit = 0;
  // Context pixels have no source, so no candidate ever arises: every point keeps its colour.
  const synthtest::EntryResult got = callEntry(image, rectangleMask(w, h, 2, 2, 5, 4), w, h, 1, params);
  EXPECT_EQ(got.result, 0);
  EXPECT_EQ(got.image, image);
  expectSameAsReference(image, rectangleMask(w, h, 2, 2, 5, 4), w, h, 1, params);
}

TEST(SynthEngine, NeighbourLimitsZeroOneAndTwoAreTheSame) {
  const int w = 12, h = 10;
  const std::vector<uint8_t> image = texture(w, h, 0, 6);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 3, 3, 5, 4);
  synthref::Params params;
  params.neighbourLimit = 2;
  const std::vector<uint8_t> two = callEntry(image, mask, w, h, 0, params).image;
  params.neighbourLimit = 1;
  EXPECT_EQ(callEntry(image, mask, w, h, 0, params).image, two);
  params.neighbourLimit = 0;
  EXPECT_EQ(callEntry(image, mask, w, h, 0, params).image, two);
  params.neighbourLimit = 3;
  EXPECT_NE(callEntry(image, mask, w, h, 0, params).image, two);
}

TEST(SynthEngine, AlonePointTakesTheFirstRandomCandidate) {
  // Order 0: no context; one target point has a neighbourhood of itself alone and no colour
  // term, so the first random corpus point costs 0 and ends the search.
  const int w = 7, h = 5;
  const std::vector<uint8_t> image = texture(w, h, 0, 13);
  std::vector<uint8_t> mask = rectangleMask(w, h, 3, 2, 1, 1);
  synthref::Params params;
  params.order = 0;
  const synthtest::EntryResult got = callEntry(image, mask, w, h, 0, params);
  // Expected by hand: the shuffle of one point draws once, then the first probe picks corpus
  // point r of the 34 corpus points in row order.
  srand(1198472);
  rand();
  const uint32_t r = static_cast<uint32_t>(rand()) / (0x7fffffffu / 34u + 1u);
  const uint32_t corpusIndex = r < 17 ? r : r + 1;  // the target pixel (index 17) is no corpus point
  std::vector<uint8_t> expected = image;
  for (int k = 0; k < 3; ++k) expected[17 * 3 + k] = image[corpusIndex * 3 + k];
  EXPECT_EQ(got.image, expected);
  EXPECT_EQ(got.percents.size(), 2u);  // pass 0 changed its one point; pass 1 found it again
}

// How many numbers rand() has given since srand(seed), found by replaying the sequence.
int drawsSince(uint32_t seed, int next, int most) {
  srand(seed);
  for (int k = 0; k < most; ++k)
    if (rand() == next) return k;
  return -1;
}

TEST(SynthEngine, FlatCorpusEndsEachSearchAtItsFirstPerfectCandidate) {
  const int w = 24, h = 24;
  std::vector<uint8_t> image(static_cast<size_t>(w) * h * 3, 0);
  for (size_t i = 0; i < image.size(); i += 3) {
    image[i] = 30;
    image[i + 1] = 60;
    image[i + 2] = 90;
  }
  std::vector<uint8_t> holed = image;
  for (int y = 10; y < 14; ++y)
    for (int x = 10; x < 14; ++x) holed[(static_cast<size_t>(y) * w + x) * 3] = 250;
  const std::vector<uint8_t> mask = rectangleMask(w, h, 10, 10, 4, 4);
  synthref::Params params;
  params.neighbourLimit = 4;
  const synthtest::EntryResult got = callEntry(holed, mask, w, h, 0, params);
  const int next = rand();
  EXPECT_EQ(got.image, image);
  // Sixteen draws of the shuffle, then few per visit: a search that went on after a cost of 0
  // would draw 200 numbers for every visit.
  const int draws = drawsSince(1198472, next, 20000);
  ASSERT_GT(draws, 16);
  EXPECT_LT(draws - 16, 2 * 16 * static_cast<int>(got.percents.size()));
  expectSameAsReference(holed, mask, w, h, 0, params);
}

TEST(SynthEngine, WrapChangesNeighboursButNotTheCorpusEdge) {
  // A hole at the left edge: with wrapping its neighbours include the right edge's pixels.
  const int w = 10, h = 8;
  const std::vector<uint8_t> image = texture(w, h, 0, 17);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 0, 2, 2, 4);
  synthref::Params plain, wrapped;
  wrapped.wrapH = true;
  const std::vector<uint8_t> a = callEntry(image, mask, w, h, 0, plain).image;
  const std::vector<uint8_t> b = callEntry(image, mask, w, h, 0, wrapped).image;
  EXPECT_NE(a, b);
  expectSameAsReference(image, mask, w, h, 0, wrapped);
}

TEST(SynthEngine, FirstPassMayBeFinal) {
  // With context but no probes nothing changes in pass 0, and the run ends after it.
  const int w = 12, h = 10;
  const std::vector<uint8_t> image = texture(w, h, 2, 40);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 3, 3, 6, 4);
  synthref::Params params;
  params.probeLimit = 0;
  const synthtest::EntryResult got = callEntry(image, mask, w, h, 2, params);
  EXPECT_EQ(got.percents.size(), 1u);
  const synthref::EntryRun want = synthref::runEntry(image, mask, w, h, 2, params);
  EXPECT_EQ(want.passes, 1);
  EXPECT_EQ(got.image, want.image);
}

TEST(SynthEngine, CancellationDuringARunLeavesTheImage) {
  // 5000 points: reports at visits 0 and 4096 of pass 0. The flag set at the second report ends
  // pass 0; enough changed to begin pass 1, whose first report reads the flag and ends the run.
  const int w = 100, h = 60;
  const std::vector<uint8_t> image = texture(w, h, 2, 30);
  const std::vector<uint8_t> mask = rectangleMask(w, h, 0, 0, 100, 50);
  synthref::Params params;
  params.probeLimit = 2;
  params.neighbourLimit = 4;
  const synthtest::EntryResult got = callEntry(image, mask, w, h, 2, params, 2);
  EXPECT_EQ(got.result, 0);
  EXPECT_EQ(got.image, image);
  const std::vector<int32_t> expectedPercents = {20, 40, 60};  // 4095, 8190, 12285 of 20252
  EXPECT_EQ(got.percents, expectedPercents);
  expectSameAsReference(image, mask, w, h, 2, params, 2);
}

}  // namespace
