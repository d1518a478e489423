// The exported square-pixel resizes: the prelude, the engine it chooses, the edge passes after
// it, and the antialiasing warning.

#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

IppStatus resizeSqrPixel(const void* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, void* dst, int dstStep,
                         IppiRect dstRoi, double xFactor, double yFactor, double xShift, double yShift,
                         Ipp32u interpolation, Ipp8u* buffer, int channels, int dataType) {
  ResizeJob job;
  const IppStatus prelude = ownpiPreludeToResize(src, srcSize, srcRoi, dst, dstRoi, xFactor, yFactor, xShift, yShift,
                                                 interpolation, buffer, &job.geometry);
  if (prelude != ippStsNoErr) return prelude;
  const ResizeGeometry& g = job.geometry;
  const int pixelBytes = channels << dataType;
  job.src = static_cast<const Ipp8u*>(src);
  job.srcWidth = srcSize.width;
  job.srcHeight = srcSize.height;
  job.srcStep = srcStep;
  job.dst = rowAt(static_cast<Ipp8u*>(dst), dstStep, g.y0) + static_cast<intptr_t>(g.x0) * pixelBytes;
  job.dstStep = dstStep;
  job.channels = channels;
  job.dataType = dataType;
  job.scratch = buffer;
  job.scratchBytes = ownpiResizeScratchBytes(srcRoi, dstRoi, channels, interpolation);

  const bool nearestOrSuper = g.kind == IPPI_INTER_NN || g.kind == IPPI_INTER_SUPER;
  IppStatus status = g.antialiasing != 0 && !nearestOrSuper ? ownpiResizeAA(job) : ownpiResizeSP(job);
  if (g.smoothEdge != 0) ownpiEdgePass(job, true);
  if (g.subpixelEdge != 0) ownpiEdgePass(job, false);
  if (g.antialiasing != 0 && nearestOrSuper) status = static_cast<IppStatus>(status | ippStsNoAntialiasing);
  return status;
}

}  // namespace

IppStatus ippiResizeSqrPixel_8u_C1R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                    int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,
                                    double yShift, Ipp32u interpolation, Ipp8u* pBuffer) {
  return resizeSqrPixel(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, xFactor, yFactor, xShift, yShift,
                        interpolation, pBuffer, 1, 0);
}

IppStatus ippiResizeSqrPixel_8u_C4R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                    int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,
                                    double yShift, Ipp32u interpolation, Ipp8u* pBuffer) {
  return resizeSqrPixel(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, xFactor, yFactor, xShift, yShift,
                        interpolation, pBuffer, 4, 0);
}

IppStatus ippiResizeSqrPixel_16u_C4R(const Ipp16u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp16u* pDst,
                                     int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,
                                     double yShift, Ipp32u interpolation, Ipp8u* pBuffer) {
  return resizeSqrPixel(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, xFactor, yFactor, xShift, yShift,
                        interpolation, pBuffer, 4, 1);
}

IppStatus ownpiResizeSP(const ResizeJob& job) {
  switch (job.geometry.kind) {
    case IPPI_INTER_NN:
      ownpiResizeNearest(job);
      break;
    case IPPI_INTER_SUPER:
      ownpiDecimate(job);
      break;
    case IPPI_INTER_LINEAR:
      if (job.dataType == 0)
        ownpiResizeLinear8(job);
      else
        ownpiResizeFloat(job);
      break;
    default:
      ownpiResizeFloat(job);
      break;
  }
  return ippStsNoErr;
}

}  // namespace QV_TIER
