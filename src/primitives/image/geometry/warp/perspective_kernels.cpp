// Row kernels of the perspective warp: the source points of a row into the scratch
// (ownpi_WarpPC), then a vector interpolator over the row.

#include "primitives/image/geometry/warp/affine_kernels.h"
#include "primitives/image/geometry/warp/interpolators.h"
#include "primitives/image/geometry/warp/perspective.h"

namespace QV_TIER {
namespace {

// ownpi_WarpPC: count source points from the numerators nx, ny and the denominator d at the
// row's first pixel, each advanced by i0, i3, i6 a pixel. Two pixels share one division: the
// reciprocal of the product of their denominators, multiplied out; a last odd pixel divides
// alone. Points are stored as floats.
void warpPC(double nx, double ny, double d, const double* inverse, float* xs, float* ys, int count) {
  const double stepX = inverse[0], stepY = inverse[3], stepD = inverse[6];
  int k = 0;
  for (; k + 1 < count; k += 2) {
    const double nx1 = nx + stepX, ny1 = ny + stepY, d1 = d + stepD;
    const double reciprocal = 1 / (d * d1);
    xs[k] = static_cast<float>(nx * d1 * reciprocal);
    ys[k] = static_cast<float>(ny * d1 * reciprocal);
    xs[k + 1] = static_cast<float>(nx1 * d * reciprocal);
    ys[k + 1] = static_cast<float>(ny1 * d * reciprocal);
    nx = nx1 + stepX;
    ny = ny1 + stepY;
    d = d1 + stepD;
  }
  if (k < count) {
    const double reciprocal = 1 / d;
    xs[k] = static_cast<float>(nx * reciprocal);
    ys[k] = static_cast<float>(ny * reciprocal);
  }
}

// Calls interpolate(out, xs, ys, count) for the points of every non-empty span. The sums at a
// row's first pixel are i0 (i3, i6) times the first column plus the row's sums, which start at
// i1 (i4, i7) times the first row plus i2 (i5, i8) and are carried down by adding i1 (i4, i7).
template <typename Vector>
QV_INLINE void walkPerspectiveRows(const WarpRows& job, int pixelBytes, Vector&& interpolate) {
  const double* i = job.inverse;
  double rowX = i[1] * job.firstRow + i[2];
  double rowY = i[4] * job.firstRow + i[5];
  double rowD = i[7] * job.firstRow + i[8];
  for (int y = job.firstRow; y <= job.lastRow; ++y, rowX += i[1], rowY += i[4], rowD += i[7]) {
    const int* span = job.spans + 2 * (y - job.firstRow);
    if (span[0] > span[1]) continue;
    const int count = span[1] - span[0] + 1;
    float* xs = job.scratch;
    float* ys = job.scratch + count;
    warpPC(i[0] * span[0] + rowX, i[3] * span[0] + rowY, i[6] * span[0] + rowD, i, xs, ys, count);
    interpolate(rowAt(job.dst, job.dstStep, y - job.firstRow) + static_cast<ptrdiff_t>(span[0]) * pixelBytes, xs, ys,
                count);
  }
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
