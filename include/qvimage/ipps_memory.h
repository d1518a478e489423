#ifndef QVIMAGE_IPPS_MEMORY_H
#define QVIMAGE_IPPS_MEMORY_H

/* Long fills and overlapping moves over plain arrays. */

#include "ippdefs.h"

QV_BEGIN_C

QV_API IppStatus ippsSet_32s(Ipp32s value, Ipp32s* pDst, int len);
/* Source and destination may overlap. */
QV_API IppStatus ippsMove_8u(const Ipp8u* pSrc, Ipp8u* pDst, int len);

QV_END_C

#endif
