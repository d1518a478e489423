// Visiting orders of the target points: a sort by a geometric key about the centre of the
// region, loosened by a local shuffle so that no order leaves visible sweep lines.

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "imagesynth/engineTypes.h"

namespace {

using qv::synth::pointsOf;

// The bounding-box centre of the unshifted list.
Point centreOf(const SArray* points) { return qv::synth::get_center(pointsOf(points), points->len); }

void shift(SArray* points, Point centre) {
  Point* p = pointsOf(points);
  for (uint32_t i = 0; i < points->len; ++i) p[i] = qv::synth::subtract_points(p[i], centre);
}

void unshift(SArray* points, Point centre) {
  Point* p = pointsOf(points);
  for (uint32_t i = 0; i < points->len; ++i) p[i] = qv::synth::add_points(p[i], centre);
}

// Swaps every position with one drawn from a window of a tenth of the list around it.
void loosen(SArray* points, void* random) {
  const auto n = static_cast<int32_t>(points->len);
  const auto w = static_cast<int32_t>(n * 0.1);
  for (int32_t i = 0; i < n; ++i) {
    const int32_t low = i - w > 0 ? i - w : 0;
    const int32_t high = i + w < n - 1 ? i + w : n - 1;
    const auto j = low + static_cast<int32_t>(s_rand_int_range(random, 0, static_cast<uint32_t>(high - low)));
    qv::synth::swap_vector_elements(points, static_cast<uint32_t>(i), static_cast<uint32_t>(j));
  }
}

void plainShuffle(SArray* points, void* random) {
  const uint32_t n = points->len;
  for (uint32_t i = 0; i < n; ++i) qv::synth::swap_vector_elements(points, i, s_rand_int_range(random, 0, n));
}

// Sorts the shifted list by its distance ratio and writes the sorted coordinates back over it.
void sortInwardInPlace(SComparator comparator, SArray* points) {
  SArray* sorted = targetPointsToSortArray(points);
  s_array_sort(sorted, comparator);
  const auto* from = reinterpret_cast<const SortPoint*>(sorted->data);
  Point* to = pointsOf(points);
  for (uint32_t i = 0; i < points->len; ++i) to[i] = {from[i].x, from[i].y};
  s_array_free(sorted, 1);
}

// The inward order of value 8: a two-ended interleave of the list is written, then overwritten
// whole by the sorted coordinates, so the order is that of value 2.
void orderTargetPointsInwardInterleaved(SArray* points, void* random) {
  const Point centre = centreOf(points);
  shift(points, centre);
  SArray* sorted = targetPointsToSortArray(points);
  s_array_sort(sorted, moreInward);
  const uint32_t n = points->len;
  SArray* copy = s_array_sized_new(0, 1, sizeof(Point), n);
  memcpy(copy->data, points->data, static_cast<size_t>(n) * sizeof(Point));
  copy->len = n;
  const Point* from = pointsOf(copy);
  Point* to = pointsOf(points);
  for (uint32_t k = 0; k < n; ++k) to[k] = (k % 2 == 0) ? from[k / 2] : from[n - 1 - k / 2];
  const auto* sortedPoints = reinterpret_cast<const SortPoint*>(sorted->data);
  for (uint32_t k = 0; k < n; ++k) to[k] = {sortedPoints[k].x, sortedPoints[k].y};
  s_array_free(sorted, 1);
  unshift(points, centre);
  loosen(points, random);
  s_array_free(copy, 1);
}

}  // namespace

extern "C" {

// Each point's squared radius over the greatest squared radius seen in its direction, one of
// 401 angular bins of the full turn: 1.0 on the rim of the region, falling toward its centre.
SArray* targetPointsToSortArray(const SArray* points) {
  uint32_t binMaximum[401] = {};
  uint32_t* bins = static_cast<uint32_t*>(malloc(sizeof(uint32_t) * (points->len + 1)));
  uint32_t* radii = static_cast<uint32_t*>(malloc(sizeof(uint32_t) * (points->len + 1)));
  const Point* p = pointsOf(points);
  for (uint32_t i = 0; i < points->len; ++i) {
    const double angle =
        atan2(static_cast<double>(static_cast<float>(p[i].y)), static_cast<double>(static_cast<float>(p[i].x)));
    bins[i] = static_cast<uint32_t>(static_cast<int32_t>(angle * 63.66197723675814 + 200.0));
    const auto ux = static_cast<uint32_t>(p[i].x);
    const auto uy = static_cast<uint32_t>(p[i].y);
    radii[i] = ux * ux + uy * uy;
    if (radii[i] > binMaximum[bins[i]]) binMaximum[bins[i]] = radii[i];
  }
  SArray* result = s_array_sized_new(0, 1, sizeof(SortPoint), points->len);
  for (uint32_t i = 0; i < points->len; ++i) {
    const uint32_t maximum = binMaximum[bins[i]];
    const float radius = static_cast<float>(static_cast<int32_t>(radii[i]));
    const SortPoint point{p[i].x, p[i].y, maximum == 0 ? NAN : radius / static_cast<float>(maximum)};
    s_array_append_vals(result, &point, 1);
  }
  free(radii);
  free(bins);
  return result;
}

void orderTargetPointsRandomDirectional(SComparator comparator, SArray* points, void* random) {
  const Point centre = centreOf(points);
  shift(points, centre);
  s_array_sort(points, comparator);
  unshift(points, centre);
  loosen(points, random);
}

void orderTargetPointsRandomBrushfire(SComparator comparator, SArray* points, void* random) {
  const Point centre = centreOf(points);
  shift(points, centre);
  sortInwardInPlace(comparator, points);
  unshift(points, centre);
  loosen(points, random);
}

int32_t orderTargetPoints(const ImageSynthParametersStruct* parameters, SArray* points, void* random) {
  switch (static_cast<uint32_t>(parameters->targetOrder)) {
    case 0:
    case 1:
      plainShuffle(points, random);
      return SynthOK;
    case 2:
      orderTargetPointsRandomBrushfire(moreInward, points, random);
      return SynthOK;
    case 3:
      orderTargetPointsRandomDirectional(moreHorizontal, points, random);
      return SynthOK;
    case 4:
      orderTargetPointsRandomDirectional(moreVertical, points, random);
      return SynthOK;
    case 5:
      orderTargetPointsRandomBrushfire(lessInward, points, random);
      return SynthOK;
    case 6:
      orderTargetPointsRandomDirectional(lessHorizontal, points, random);
      return SynthOK;
    case 7:
      orderTargetPointsRandomDirectional(lessVertical, points, random);
      return SynthOK;
    case 8:
      orderTargetPointsInwardInterleaved(points, random);
      return SynthOK;
    default:
      return SynthBadOrder;
  }
}

}  // extern "C"
