// The span walk that the affine and perspective drivers share.

#include "primitives/image/geometry/warp/warp_rows.h"

#include "primitives/data/memory/memory.h"
#include "primitives/image/geometry/warp/quad.h"
#include "primitives/image/geometry/warp/smooth_border.h"
#include "primitives/image/geometry/warp/warp_checks.h"

namespace QV_TIER {

IppStatus ownpi_WarpRows(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, Ipp8u* pDst, int dstStep, IppiRect dstRoi,
                         const double quad[4][2], bool winding, const double inverse[9], WarpRowKernel kernel,
                         bool needsScratch, int interpolation, int type) {
  WarpRows job{};
  const IppiPoint first = firstCornerOf(dstRoi), last = lastCornerOf(dstRoi);
  int* spans = ownpi_ClipQuad(quad, first, last, winding, &job.firstRow, &job.lastRow);
  if (spans == nullptr) return ippStsWrongIntersectQuad;
  if (needsScratch) {
    job.scratch = ippsMalloc_32f(2 * dstRoi.width);
    if (job.scratch == nullptr) {
      ippsFree(spans);
      return ippStsMemAllocErr;
    }
  }
  job.src = pSrc;
  job.srcStep = srcStep;
  job.dst = rowAt(pDst, dstStep, job.firstRow);
  job.dstStep = dstStep;
  job.spans = spans;
  for (int k = 0; k < 9; ++k) job.inverse[k] = inverse[k];
  job.limitX = srcSize.width - 1;
  job.limitY = srcSize.height - 1;
  kernel(job);
  ippsFree(job.scratch);
  ippsFree(spans);
  if (smoothsEdges(interpolation)) ownpi_SmoothBorder(pDst, dstStep, type, quad, first, last, winding);
  return ippStsNoErr;
}

}  // namespace QV_TIER
