#ifndef QVIMAGE_IPPI_REGION_H
#define QVIMAGE_IPPI_REGION_H

/* Flood fill of an 8-bit single-channel image. */

#include "ippdefs.h"

QV_BEGIN_C

/* What a flood fill reports: the pixels counted as spans were found, the new value (then 0, 0)
   and the bounding box of the spans worked. */
typedef struct {
  Ipp64f area;
  Ipp64f value[3];
  IppiRect rect;
} IppiConnectedComp;

/* The scratch size in bytes for a fill of an image of roiSize:
   (width + 2) * (height + 2) + ((height * 24 * width) >> 2) + 32, in 32 bits.
   Null pointer, then width or height below 1, are refused. */
QV_API IppStatus ippiFloodFillGetSize_Grad(IppiSize roiSize, int* pBufSize);

/* Repaints with newVal the four-connected region around seed whose values v satisfy
   low <= v <= high, where low = seed value - minDelta (at least 0) and high = seed value +
   maxDelta (at most 255). A scanline fill over a stack of span records held in pBuffer, whose
   capacity is width * height / 4 records; when the stack fills up its pointer returns to 0 and
   older records are abandoned, without a status. Tests in order: null image, result or scratch;
   width or height below 1; step below width; seed outside the image. A seed that already holds
   newVal returns success at once and touches neither the image nor *pRegion. */
QV_API IppStatus ippiFloodFill_Range4Con_8u_C1IR(Ipp8u* pImage, int imageStep, IppiSize roiSize, IppiPoint seed,
                                                 Ipp8u newVal, Ipp8u minDelta, Ipp8u maxDelta,
                                                 IppiConnectedComp* pRegion, Ipp8u* pBuffer);

QV_END_C

#endif
