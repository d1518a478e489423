// Row kernels of the perspective warp: the source points of a row into the scratch
// (ownpi_WarpPC), then a vector interpolator over the row.

#include "primitives/image/geometry/warp/affine_kernels.h"
#include "primitives/image/geometry/warp/interpolators.h"
#include "primitives/image/geometry/warp/perspective.h"
#include "primitives/image/geometry/warp/warp_tiles.h"

namespace QV_TIER {
namespace {

// Runs of a row are of an even number of pixels, so that the pairs of ownpi_WarpPC fall as in a
// walk over the whole row.
constexpr int kSegmentPixels = 64;

// ownpi_WarpPC: count source points from the numerators nx, ny and the denominator d at the
// run's first pixel, each advanced by i0, i3, i6 a pixel, and left at the pixel after the run.
// Two pixels share one division: the reciprocal of the product of their denominators,
// multiplied out; a last odd pixel divides alone. Points are stored as floats. The two
// numerators travel together in one register, with the same additions and products.
void warpPC(double& nx, double& ny, double& d, const double* inverse, float* xs, float* ys, int count) {
  const __m128d numeratorStep = _mm_setr_pd(inverse[0], inverse[3]);
  const double denominatorStep = inverse[6];
  __m128d numerators = _mm_setr_pd(nx, ny);
  int k = 0;
  for (; k + 1 < count; k += 2) {
    const __m128d following = _mm_add_pd(numerators, numeratorStep);
    const double d1 = d + denominatorStep;
    const __m128d reciprocal = _mm_set1_pd(1 / (d * d1));
    const __m128 first = _mm_cvtpd_ps(_mm_mul_pd(_mm_mul_pd(numerators, _mm_set1_pd(d1)), reciprocal));
    const __m128 second = _mm_cvtpd_ps(_mm_mul_pd(_mm_mul_pd(following, _mm_set1_pd(d)), reciprocal));
    const __m128 points = _mm_unpacklo_ps(first, second);  // x0 x1 y0 y1
    _mm_storel_pi(reinterpret_cast<__m64*>(xs + k), points);
    _mm_storeh_pi(reinterpret_cast<__m64*>(ys + k), points);
    numerators = _mm_add_pd(following, numeratorStep);
    d = d1 + denominatorStep;
  }
  if (k < count) {
    const __m128d point = _mm_mul_pd(numerators, _mm_set1_pd(1 / d));
    xs[k] = static_cast<float>(_mm_cvtsd_f64(point));
    ys[k] = static_cast<float>(_mm_cvtsd_f64(_mm_unpackhi_pd(point, point)));
    numerators = _mm_add_pd(numerators, numeratorStep);
    d += denominatorStep;
  }
  nx = _mm_cvtsd_f64(numerators);
  ny = _mm_cvtsd_f64(_mm_unpackhi_pd(numerators, numerators));
}

// Calls interpolate(out, xs, ys, count) for the points of runs of every span, in the order of
// walkTiles. A row's sums at its first pixel are i0 (i3, i6) times the first column plus the
// row's sums, which start at i1 (i4, i7) times the first row plus i2 (i5, i8) and are carried
// down by adding i1 (i4, i7).
template <typename Vector>
QV_INLINE void walkPerspectiveRows(const WarpRows& job, int pixelBytes, Vector&& interpolate) {
  const double* i = job.inverse;
  double rowX = i[1] * job.firstRow + i[2];
  double rowY = i[4] * job.firstRow + i[5];
  double rowD = i[7] * job.firstRow + i[8];
  walkTiles(
      job, kSegmentPixels,
      [&](int, const int* span) {
        const RowCursor cursor{i[0] * span[0] + rowX, i[3] * span[0] + rowY, i[6] * span[0] + rowD, span[0], span[1]};
        rowX += i[1];
        rowY += i[4];
        rowD += i[7];
        return cursor;
      },
      [&](Ipp8u* row, RowCursor& cursor, int count) {
        float* xs = job.scratch;
        float* ys = job.scratch + count;
        warpPC(cursor.first, cursor.second, cursor.third, i, xs, ys, count);
        interpolate(row + static_cast<ptrdiff_t>(cursor.next) * pixelBytes, xs, ys, count);
      });
}

void warpPerspectiveNearest8uC4(const WarpRows& job) {
  walkPerspectiveRows(job, 4, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVector_NN_8_C4(job.src, job.srcStep, out, xs, ys, count, job.limitX, job.limitY);
  });
}

void warpPerspectiveLinear8uC4(const WarpRows& job) {
  walkPerspectiveRows(job, 4, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVector_L_8u_C4(job.src, job.srcStep, out, xs, ys, count, job.limitX, job.limitY);
  });
}

void warpPerspectiveCubic8uC4(const WarpRows& job) {
  walkPerspectiveRows(job, 4, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_8u_C4(job.src, job.srcStep, out, xs, ys, count, -1, -1, job.limitX + 1, job.limitY + 1,
                                   job.limitX, job.limitY);
  });
}

struct PerspectiveKernelTable {
  WarpRowKernel entries[24 * 3];
};

constexpr PerspectiveKernelTable makePerspectiveKernelTable() {
  PerspectiveKernelTable table{};
  WarpRowKernel* row = table.entries + kernelRowOf(kType8uC4) * 3;
  row[kColumnNearest] = warpPerspectiveNearest8uC4;
  row[kColumnLinear] = warpPerspectiveLinear8uC4;
  row[kColumnCubic] = warpPerspectiveCubic8uC4;
  return table;
}

constexpr PerspectiveKernelTable kPerspectiveKernels = makePerspectiveKernelTable();

}  // namespace

WarpRowKernel ownpi_perspectiveKernel(int type, int column) {
  return kPerspectiveKernels.entries[kernelRowOf(type) * 3 + column];
}

}  // namespace QV_TIER
