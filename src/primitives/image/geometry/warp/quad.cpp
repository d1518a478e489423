// Quad geometry of the warps: corners, convexity, clipping and spans.

#include "primitives/image/geometry/warp/quad.h"

#include "primitives/data/memory/memory.h"
#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {
namespace {

// Cross product of the edges that meet at corner i.
double turnAt(const double quad[4][2], int i) {
  const double* before = quad[(i + 3) % 4];
  const double* at = quad[i];
  const double* after = quad[(i + 1) % 4];
  const double inX = at[0] - before[0], inY = at[1] - before[1];
  const double outX = after[0] - at[0], outY = after[1] - at[1];
  return inX * outY - inY * outX;
}

// One side of the rectangle: the coordinate it bounds (0 for x, 1 for y), its value, and
// whether the inside lies above (lower bound) or below it.
struct Side {
  int axis;
  double value;
  bool isLowerBound;
  bool contains(const double* p) const { return isLowerBound ? p[axis] >= value : p[axis] <= value; }
};

// Where the segment from a to b crosses the side: the side's coordinate exactly, and the other
// one interpolated.
void crossingOf(const Side& side, const double* a, const double* b, double* out) {
  const int other = 1 - side.axis;
  const double t = (side.value - a[side.axis]) / (b[side.axis] - a[side.axis]);
  out[side.axis] = side.value;
  out[other] = a[other] + t * (b[other] - a[other]);
}

int clipToSide(const Side& side, const double (*in)[2], int count, double (*out)[2]) {
  int written = 0;
  for (int i = 0; i < count; ++i) {
    const double* current = in[i];
    const double* previous = in[(i + count - 1) % count];
    const bool currentIn = side.contains(current);
    const bool previousIn = side.contains(previous);
    if (currentIn != previousIn) crossingOf(side, previous, current, out[written++]);
    if (currentIn) {
      out[written][0] = current[0];
      out[written][1] = current[1];
      ++written;
    }
  }
  return written;
}

// The left and right boundary of a convex polygon on row y. With winding, edges that run
// downward bound the right side and edges that run upward the left side; without it, the other
// way round. Horizontal edges on the row bound both.
void boundsOnRow(const double (*polygon)[2], int count, bool winding, double y, double* left, double* right) {
  double l = __builtin_inf(), r = -__builtin_inf();
  for (int i = 0; i < count; ++i) {
    const double* a = polygon[i];
    const double* b = polygon[(i + 1) % count];
    const double runY = b[1] - a[1];
    if (runY == 0) {
      if (a[1] == y) {
        l = minOf(l, minOf(a[0], b[0]));
        r = maxOf(r, maxOf(a[0], b[0]));
      }
      continue;
    }
    if (y < minOf(a[1], b[1]) || y > maxOf(a[1], b[1])) continue;
    const double x = a[0] + (y - a[1]) * (b[0] - a[0]) / runY;
    if ((runY > 0) == winding)
      r = maxOf(r, x);
    else
      l = minOf(l, x);
  }
  *left = l;
  *right = r;
}

// The first and last column of a row's span, keeping points within 1e-13 of the outline, and
// never leaving the rectangle's columns.
void spanOf(double left, double right, int firstColumn, int lastColumn, int* span) {
  if (!(left <= right)) {  // no boundary found on one side: an empty span
    span[0] = firstColumn;
    span[1] = firstColumn - 1;
    return;
  }
  const double up = ceilOf(left), down = floorOf(right);
  double first = 1 + left - up < 1e-13 ? up - 1 : up;
  double last = 1 - right + down < 1e-13 ? down + 1 : down;
  first = maxOf(first, static_cast<double>(firstColumn));
  last = minOf(last, static_cast<double>(lastColumn));
  span[0] = truncToInt(first);
  span[1] = first <= last ? truncToInt(last) : span[0] - 1;
}

}  // namespace

int ownpi_CheckQuad(const double quad[4][2]) {
  const double turns[4] = {turnAt(quad, 3), turnAt(quad, 0), turnAt(quad, 1), turnAt(quad, 2)};
  for (double turn : turns)
    if (turn == 0) return kQuadDegenerate;
  bool allPositive = true, allNegative = true;
  for (double turn : turns) {
    allPositive = allPositive && turn > 0;
    allNegative = allNegative && turn < 0;
  }
  if (allPositive) return kQuadPositive;
  if (allNegative) return kQuadNegative;
  return kQuadNotConvex;
}

void ownpi_WarpAffineRect(const double coeffs[2][3], double x0, double y0, double x1, double y1, double quad[4][2]) {
  const double corners[4][2] = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
  for (int i = 0; i < 4; ++i) {
    const double x = corners[i][0], y = corners[i][1];
    quad[i][0] = coeffs[0][0] * x + coeffs[0][1] * y + coeffs[0][2];
    quad[i][1] = coeffs[1][0] * x + coeffs[1][1] * y + coeffs[1][2];
  }
}

IppStatus ippiGetAffineQuad(IppiRect srcRoi, double quad[4][2], const double coeffs[2][3]) {
  if (srcRoi.x < 0 || srcRoi.y < 0 || srcRoi.width < 1 || srcRoi.height < 1) return ippStsSizeErr;
  ownpi_WarpAffineRect(coeffs, srcRoi.x, srcRoi.y, static_cast<double>(srcRoi.x) + srcRoi.width - 1,
                       static_cast<double>(srcRoi.y) + srcRoi.height - 1, quad);
  const int check = ownpi_CheckQuad(quad);
  if (check == kQuadDegenerate || check == kQuadNotConvex) return ippStsCoeffErr;
  return ippStsNoErr;
}

int ownpi_ClipPolygon(const double quad[4][2], double x0, double y0, double x1, double y1,
                      double polygon[kMaxPolygonPoints][2]) {
  const Side sides[4] = {{0, x0, true}, {0, x1, false}, {1, y0, true}, {1, y1, false}};
  double scratch[kMaxPolygonPoints][2];
  for (int i = 0; i < 4; ++i) {
    polygon[i][0] = quad[i][0];
    polygon[i][1] = quad[i][1];
  }
  int count = 4;
  for (const Side& side : sides) {
    count = clipToSide(side, polygon, count, scratch);
    for (int i = 0; i < count; ++i) {
      polygon[i][0] = scratch[i][0];
      polygon[i][1] = scratch[i][1];
    }
    if (count == 0) break;
  }
  return count;
}

int* ownpi_ClipQuad(const double quad[4][2], IppiPoint first, IppiPoint last, bool winding, int* firstRow,
                    int* lastRow) {
  double polygon[kMaxPolygonPoints][2];
  const int count = ownpi_ClipPolygon(quad, first.x, first.y, last.x, last.y, polygon);
  if (count <= 0) return nullptr;
  double leastX = polygon[0][0], greatestX = polygon[0][0], leastY = polygon[0][1], greatestY = polygon[0][1];
  for (int i = 1; i < count; ++i) {
    leastX = minOf(leastX, polygon[i][0]);
    greatestX = maxOf(greatestX, polygon[i][0]);
    leastY = minOf(leastY, polygon[i][1]);
    greatestY = maxOf(greatestY, polygon[i][1]);
  }
  const double top = ceilOf(leastY), bottom = floorOf(greatestY);
  if (bottom < top || floorOf(greatestX) < ceilOf(leastX)) return nullptr;
  const int rowFirst = truncToInt(top), rowLast = truncToInt(bottom);
  int* spans = ippsMalloc_32s(2 * (rowLast - rowFirst + 1));
  if (spans == nullptr) return nullptr;
  for (int y = rowFirst; y <= rowLast; ++y) {
    double left, right;
    boundsOnRow(polygon, count, winding, y, &left, &right);
    spanOf(left, right, first.x, last.x, spans + 2 * (y - rowFirst));
  }
  *firstRow = rowFirst;
  *lastRow = rowLast;
  return spans;
}

}  // namespace QV_TIER
