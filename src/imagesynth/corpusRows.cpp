#include "imagesynth/corpusRows.h"

#include <cstdlib>

#include "imagesynth/engineTypes.h"

namespace qv::synth {
namespace {

constexpr uint32_t kListRow = 0xFFFFFFFFu;  // a row answered from the list

// The row's columns are all of [0, width) but the run [gapStart, gapStart + gap): the gap's
// length, or kListRow when the row has another shape.
uint32_t gapOfRow(const Point* row, uint32_t count, uint32_t width, uint32_t& gapStart) {
  uint32_t k = 0;
  while (k < count && static_cast<uint32_t>(row[k].x) == k) ++k;
  gapStart = k;
  const uint32_t gap = width - count;
  for (; k < count; ++k) {
    if (static_cast<uint32_t>(row[k].x) != k + gap) return kListRow;
  }
  return gap;
}

}  // namespace

// Buckets of 2^shift consecutive indices, about as many as there are rows, each knowing the row
// of its first index, so that finding the row of an index is a short walk.
void prepareBuckets(EngineState& s) {
  const uint32_t count = s.corpusPoints->len;
  const uint32_t perRow = count / (s.corpus->height > 0 ? s.corpus->height : 1);
  uint32_t shift = 0;
  while ((2u << shift) <= perRow) ++shift;
  s.bucketShift = shift;
  const uint32_t buckets = (count >> shift) + 1;
  s.bucketRows = static_cast<uint32_t*>(malloc(sizeof(uint32_t) * buckets));
  uint32_t y = 0;
  for (uint32_t b = 0; b < buckets; ++b) {
    const uint32_t index = b << shift;
    while (y + 1 < s.corpus->height && s.corpusRows[y + 1].first <= index) ++y;
    s.bucketRows[b] = y;
  }
}

void prepareCorpusRows(EngineState& s) {
  const uint32_t height = s.corpus->height;
  s.corpusRows = static_cast<CorpusRow*>(malloc(sizeof(CorpusRow) * (height + 1)));
  const Point* points = pointsOf(s.corpusPoints);
  uint32_t k = 0;
  for (uint32_t y = 0; y <= height; ++y) {
    while (k < s.corpusPoints->len && static_cast<uint32_t>(points[k].y) < y) ++k;
    s.corpusRows[y].first = k;
  }
  for (uint32_t y = 0; y < height; ++y) {
    CorpusRow& row = s.corpusRows[y];
    row.gap = gapOfRow(points + row.first, s.corpusRows[y + 1].first - row.first, s.corpus->width, row.gapStart);
  }
  prepareBuckets(s);
}

void freeCorpusRows(EngineState& s) {
  free(s.corpusRows);
  free(s.bucketRows);
  s.corpusRows = nullptr;
  s.bucketRows = nullptr;
}

Point corpusPointAt(const EngineState& s, uint32_t index) {
  const CorpusRow* rows = s.corpusRows;
  uint32_t y = s.bucketRows[index >> s.bucketShift];  // then the row with rows[y].first <= index < rows[y + 1].first
  while (rows[y + 1].first <= index) ++y;
  const CorpusRow& row = rows[y];
  if (row.gap == kListRow) return pointsOf(s.corpusPoints)[index];
  const uint32_t k = index - row.first;
  return {static_cast<int32_t>(k < row.gapStart ? k : k + row.gap), static_cast<int32_t>(y)};
}

}  // namespace qv::synth
