#ifndef QVIMAGE_IPPI_GEOMETRY_H
#define QVIMAGE_IPPI_GEOMETRY_H

/* Mirroring of interleaved four-channel images. Steps are in bytes. */

#include "ippdefs.h"

QV_BEGIN_C

/* The axis of a mirror: a signed 32-bit value; only these three are accepted. */
typedef int IppiAxis;
enum {
  ippAxsHorizontal = 0, /* row order reversed: the top row becomes the bottom row */
  ippAxsVertical = 1,   /* pixels of each row reversed: the left column becomes the right one */
  ippAxsBoth = 2        /* both: a turn of 180 degrees */
};

/* Out of place. The same pointer with the same step hands the call to the in-place mirror,
   before any other test. Then: null pointer, width or height below 1, axis outside 0..2, and a
   mirror that would change nothing (height below 2 for axes 0 and 2, width below 2 for axes 1
   and 2) are refused, in that order, before anything is written. A pixel is 4 bytes (8u) or
   8 bytes (16u) and keeps its channel order. */
QV_API IppStatus ippiMirror_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                   IppiAxis flip);
QV_API IppStatus ippiMirror_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiSize roiSize,
                                    IppiAxis flip);

QV_END_C

#endif
