// The matching engine: visits the target points in their order and gives each the colour of the
// corpus pixel whose surroundings best match its own, over shrinking prefixes of the order.

#include <cstdlib>

#include "imagesynth/corpusRows.h"
#include "imagesynth/engineCost.h"
#include "imagesynth/engineState.h"
#include "imagesynth/engineTypes.h"
#include "imagesynth/mapOps.h"

namespace {

using qv::synth::elementAt;
using qv::synth::EngineState;
using qv::synth::insideMap;
using qv::synth::Neighbour;
using qv::synth::pointsOf;

constexpr uint32_t kNoCost = 0xFFFFFFFFu;

// The target points in row order, and which pixels are known context: those outside the mask
// that are not transparent, unless the order asks for a start without context.
void collectTargetPoints(EngineState& s) {
  const Map* target = s.target;
  uint32_t count = 0;
  for (uint32_t i = 0; i < qv::synth::cellCount(target); ++i) {
    if (target->data->data[static_cast<uint32_t>(i * target->depth)] != 0) ++count;
  }
  s.targetPoints = s_array_sized_new(0, 1, sizeof(Point), count);
  new_bytemap(&s.hasValue, target->width, target->height);
  for (uint32_t y = 0; y < target->height; ++y) {
    for (uint32_t x = 0; x < target->width; ++x) {
      const Point p{static_cast<int32_t>(x), static_cast<int32_t>(y)};
      const unsigned char* pixel = elementAt(target, p);
      const bool opaque = s.indices->targetHasAlpha == 0 || pixel[s.indices->alphaIndex] != 0;
      *elementAt(&s.hasValue, p) = (s.parameters.targetOrder != 0 && pixel[0] == 0 && opaque) ? 1 : 0;
      if (pixel[0] != 0) s_array_append_vals(s.targetPoints, &p, 1);
    }
  }
}

void newFilledCoordmap(Map* map, uint32_t width, uint32_t height, Point value) {
  new_coordmap(map, width, height);
  auto* cells = reinterpret_cast<Point*>(map->data->data);
  for (uint32_t i = 0; i < width * height; ++i) cells[i] = value;
}

void newFilledIntmap(Map* map, uint32_t width, uint32_t height, uint32_t value) {
  new_intmap(map, width, height);
  auto* cells = reinterpret_cast<uint32_t*>(map->data->data);
  for (uint32_t i = 0; i < width * height; ++i) cells[i] = value;
}

void fillPassTable(EngineState& s) {
  qv::synth::fillPassEntries(s.targetPoints->len, s.passes);
  s.progress.total = 0;
  for (const auto& pass : s.passes) s.progress.total += pass.count;
  s.progress.lastPercent = 0;
  s.progress.completed = 0;
}

// Called once every 4096 visits; the step it counts is 4095.
void reportProgress(qv::synth::ProgressRecord& progress) {
  progress.completed += 4095;
  const float fraction = static_cast<float>(progress.completed) / static_cast<float>(progress.total);
  const auto percent = static_cast<int32_t>(fraction * 100.0f);
  if (percent > static_cast<int32_t>(progress.lastPercent)) {
    progress.callback(percent, progress.context);
    progress.lastPercent = static_cast<uint32_t>(percent);
  }
}

// Moves p into the map along an axis that wraps; false when it falls off an axis that does not.
bool placeOnAxis(int32_t& v, int32_t size, bool wraps) {
  if (v < 0) {
    if (!wraps) return false;
    while (v < 0) v += size;
  } else if (v >= size) {
    if (!wraps) return false;
    while (v >= size) v -= size;
  }
  return true;
}

void copyPixel(Neighbour& neighbour, const unsigned char* pixel, uint32_t bpp) {
  for (uint32_t e = 0; e < bpp; ++e) neighbour.pixel[e] = pixel[e];
}

// The target point itself, then the nearest valued pixels, up to the neighbour limit.
void gatherNeighbours(EngineState& s, Point t) {
  const uint32_t bpp = s.indices->total_bpp;
  const qv::synth::OffsetTable& offsets = s.sortedOffsets;
  Neighbour& self = s.neighbours[0];
  self.offset = offsets.points[0];
  self.source = *reinterpret_cast<const Point*>(elementAt(&s.sourceOf, t));
  copyPixel(self, elementAt(s.target, t), bpp);
  s.neighbourCount = 1;
  const auto width = static_cast<int32_t>(s.target->width);
  const auto height = static_cast<int32_t>(s.target->height);
  for (uint32_t k = 1;; ++k) {
    if (k >= offsets.count && !qv::synth::extendOffsetTable(s.sortedOffsets)) break;
    Point p = qv::synth::add_points(t, offsets.points[k]);
    if (!placeOnAxis(p.x, width, s.parameters.wrapHorizontally != 0)) continue;
    if (!placeOnAxis(p.y, height, s.parameters.wrapVertically != 0)) continue;
    if (*elementAt(&s.hasValue, p) == 0) continue;
    Neighbour& neighbour = s.neighbours[s.neighbourCount];
    neighbour.offset = offsets.points[k];
    neighbour.source = *reinterpret_cast<const Point*>(elementAt(&s.sourceOf, p));
    copyPixel(neighbour, elementAt(s.target, p), bpp);
    s.neighbourCount += 1;
    if (s.neighbourCount >= s.parameters.neighbourLimit) break;
  }
}

struct Match {
  bool found = false;
  bool perfect = false;
  Point point{0, 0};
  uint32_t cost = kNoCost;
};

// Tries c; true when it is a perfect match and the search ends.
bool tryCandidate(const EngineState& s, Point c, Match& match) {
  uint32_t cost = 0;
  if (!qv::synth::costBelow(s, c, match.cost, cost)) return false;
  match.found = true;
  match.point = c;
  match.cost = cost;
  match.perfect = cost == 0;
  return match.perfect;
}

// The corpus points that would line each neighbour's source up with t; each tried once per
// iteration number, a stamp that no pass clears.
bool searchNeighbourCandidates(EngineState& s, uint32_t i, Match& match) {
  auto* stamps = reinterpret_cast<uint32_t*>(s.triedStamp.data->data);
  for (uint32_t n = 0; n < s.neighbourCount; ++n) {
    const Neighbour& neighbour = s.neighbours[n];
    if (neighbour.source.x == -1) continue;
    const Point c = qv::synth::subtract_points(neighbour.source, neighbour.offset);
    if (!insideMap(s.corpus, c) || elementAt(s.corpus, c)[0] != 255) continue;
    uint32_t& stamp = stamps[qv::synth::cellIndex(&s.triedStamp, c.x, c.y)];
    if (stamp == i) continue;
    if (tryCandidate(s, c, match)) return true;
    stamp = i;
  }
  return false;
}

bool searchRandomCandidates(EngineState& s, Match& match) {
  for (uint32_t probe = 0; probe < s.parameters.probeLimit; ++probe) {
    const uint32_t r = s_rand_int_range(s.random, 0, s.corpusPoints->len);
    if (tryCandidate(s, qv::synth::corpusPointAt(s, r), match)) return true;
  }
  return false;
}

// Copies the colours of a new match; true when t changed its source.
bool commit(EngineState& s, Point t, const Match& match) {
  if (!match.found) return false;
  auto* source = reinterpret_cast<Point*>(elementAt(&s.sourceOf, t));
  if (qv::synth::equal_points(*source, match.point)) return false;
  const unsigned char* from = elementAt(s.corpus, match.point);
  unsigned char* to = elementAt(s.target, t);
  for (uint32_t e = 1; e < s.indices->colorEnd; ++e) to[e] = from[e];
  *source = match.point;
  return true;
}

// One visit of t at iteration i.
bool synthesizePoint(EngineState& s, Point t, uint32_t i) {
  gatherNeighbours(s, t);
  qv::synth::prepareNeighbourhoodCost(s);
  Match match;
  if (!searchNeighbourCandidates(s, i, match)) searchRandomCandidates(s, match);
  const bool changed = commit(s, t, match);
  *elementAt(&s.hasValue, t) = 1;
  return changed;
}

// Passes over shrinking prefixes of the order, until a pass changes fewer than a tenth of all
// target points, or the cancel flag is seen.
void runPasses(EngineState& s, const int32_t* cancelFlag) {
  const Point* targets = pointsOf(s.targetPoints);
  const uint32_t n = s.targetPoints->len;
  for (uint32_t k = 0; k < qv::synth::kPassCount; ++k) {
    uint32_t betterCount = 0;
    for (uint32_t i = 0; i < s.passes[k].count; ++i) {
      if (i % 4096 == 0) {
        reportProgress(s.progress);
        if (*cancelFlag != 0) break;
      }
      if (synthesizePoint(s, targets[i], i)) ++betterCount;
    }
    const double changed = static_cast<double>(static_cast<float>(betterCount) / static_cast<float>(n));
    if (changed < 0.1) break;
  }
}

void freeWorkingState(EngineState& s) {
  s_array_free(s.targetPoints, 1);
  s_array_free(s.corpusPoints, 1);
  qv::synth::freeOffsetTable(s.sortedOffsets);
  free_map(&s.hasValue);
  free_map(&s.sourceOf);
  free_map(&s.triedStamp);
  qv::synth::freeCostCache(s);
  qv::synth::freeCorpusRows(s);
}

}  // namespace

// Entry 0 and 1 cover the whole order, each later entry three quarters of the one before.
void qv::synth::fillPassEntries(uint32_t n, PassEntry passes[kPassCount]) {
  passes[0] = {0, n};
  passes[1] = {0, n};
  for (uint32_t k = 2; k < kPassCount; ++k) passes[k] = {0, (3 * passes[k - 1].count) >> 2};
}

extern "C" int32_t engine(const ImageFormatIndices* indices, Map* target, const Map* corpus, void* callback,
                          void* contextInfo, int32_t* cancelFlag, ImageSynthParametersStruct parameters) {
  int32_t result = SynthTooManyNeighbours;
  if (parameters.neighbourLimit > qv::synth::kMaxNeighbours) return result;
  EngineState s{};
  s.indices = indices;
  s.target = target;
  s.corpus = corpus;
  s.parameters = parameters;
  collectTargetPoints(s);
  if (s.targetPoints->len == 0) {
    s_array_free(s.targetPoints, 1);
    free_map(&s.hasValue);
    return SynthNoTargetPoints;
  }
  newFilledCoordmap(&s.sourceOf, target->width, target->height, Point{-1, -1});
  prepareCorpusPoints(indices, corpus, &s.corpusPoints);
  if (s.corpusPoints->len == 0) {
    s_array_free(s.targetPoints, 1);
    s_array_free(s.corpusPoints, 1);
    free_map(&s.hasValue);
    free_map(&s.sourceOf);
    return SynthNoCorpusPoints;
  }
  qv::synth::prepareOffsetTable(s.sortedOffsets, target, corpus);
  quantizeMetricFuncs(s.colorDiff, s.mapDiff, static_cast<float>(parameters.sensitivity),
                      static_cast<float>(parameters.mapWeight));
  s.penalty = indices->colorCount * 65535u + indices->mapCount * s.mapDiff[0];
  s.random = s_rand_new_with_seed(qv::synth::kSeed);
  result = orderTargetPoints(&s.parameters, s.targetPoints, s.random);
  if (result != SynthOK) return result;  // the arrays built so far stay allocated on this path
  newFilledIntmap(&s.triedStamp, corpus->width, corpus->height, 0xFFFFFFFFu);
  s.progress.callback = reinterpret_cast<ImageSynthProgressCallback>(callback);
  s.progress.context = contextInfo;
  fillPassTable(s);
  qv::synth::prepareCostCache(s);
  qv::synth::prepareCorpusRows(s);
  runPasses(s, cancelFlag);
  freeWorkingState(s);
  return SynthOK;
}
