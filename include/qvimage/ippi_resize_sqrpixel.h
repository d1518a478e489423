#ifndef QVIMAGE_IPPI_RESIZE_SQRPIXEL_H
#define QVIMAGE_IPPI_RESIZE_SQRPIXEL_H

/* Resizing by real factors and shifts, with the whole geometry worked out at each call.

   A destination pixel d maps to the source position (d + 0.5) / factor - shift / factor - 0.5
   (pixel centres). The source pointer is the image's first pixel, not the region's, and so is the
   destination pointer: both regions are in image coordinates. Only the destination pixels that
   the source region maps onto, cut to the destination region, are written. Filters read the
   whole source image, repeating its edge pixels past its border. Steps are in bytes. */

#include "ippdefs.h"
#include "ippi_interpolation.h"

QV_BEGIN_C

/* Checks, in order, before anything is written: a null pointer (source, destination, scratch);
   a source size, source region or destination region that is empty or starts at a negative
   coordinate; a factor at or below 0; an unknown filter or two edge flags at once; a factor above
   1 with IPPI_INTER_SUPER. A source narrower or lower than 6 pixels turns Lanczos into the
   cubic, and one under 4 turns every 4- and 6-tap filter into linear, silently. A source region
   that starts at or past the image's edge answers ippStsWrongIntersectROI; a mapped rectangle
   with no whole pixel answers ippStsNoOperation. IPPI_ANTIALIASING with nearest or super resizes
   without it and answers ippStsNoAntialiasing. The edge flags write one row and column outside
   the mapped rectangle (inside the destination region), which the caller must own. The scratch
   size comes from ippiResizeGetBufSize. */
QV_API IppStatus ippiResizeSqrPixel_8u_C1R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                                           Ipp8u* pDst, int dstStep, IppiRect dstRoi, double xFactor, double yFactor,
                                           double xShift, double yShift, Ipp32u interpolation, Ipp8u* pBuffer);
QV_API IppStatus ippiResizeSqrPixel_8u_C4R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                                           Ipp8u* pDst, int dstStep, IppiRect dstRoi, double xFactor, double yFactor,
                                           double xShift, double yShift, Ipp32u interpolation, Ipp8u* pBuffer);
QV_API IppStatus ippiResizeSqrPixel_16u_C4R(const Ipp16u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                                            Ipp16u* pDst, int dstStep, IppiRect dstRoi, double xFactor, double yFactor,
                                            double xShift, double yShift, Ipp32u interpolation, Ipp8u* pBuffer);

/* The scratch bytes for a resize of the destination region with nChannel channels (1, 3 or 4),
   whatever the factors. Checks, in order: null result; a negative corner or an empty side of
   either region; the channel count; the interpolation word. With IPPI_ANTIALIASING and nearest
   or super it answers ippStsNoAntialiasing beside the size. */
QV_API IppStatus ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, Ipp32u nChannel, Ipp32u interpolation,
                                      int* pBufferSize);

QV_END_C

#endif
