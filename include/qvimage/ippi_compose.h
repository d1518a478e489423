#ifndef QVIMAGE_IPPI_COMPOSE_H
#define QVIMAGE_IPPI_COMPOSE_H

/* Alpha composition, Gaussian noise and bit reduction with dithering. Steps are in bytes. */

#include "ippdefs.h"

QV_BEGIN_C

/* Composition types. Types 0-5 take straight-alpha operands, 6-11 premultiplied ones; the
   result is always premultiplied and carries the composed alpha. */
typedef enum {
  ippAlphaOver = 0,
  ippAlphaIn = 1,
  ippAlphaOut = 2,
  ippAlphaATop = 3,
  ippAlphaXor = 4,
  ippAlphaPlus = 5,
  ippAlphaOverPremul = 6,
  ippAlphaInPremul = 7,
  ippAlphaOutPremul = 8,
  ippAlphaATopPremul = 9,
  ippAlphaXorPremul = 10,
  ippAlphaPlusPremul = 11
} IppiAlphaType;

/* Composes source 1 with source 2 into the destination, four channels of which the fourth is
   alpha. The destination may be source 2 itself. Checks: a null pointer, then a size below 1,
   then a type above 11 read as unsigned (ippStsAlphaTypeErr). Steps are not checked. */
QV_API IppStatus ippiAlphaComp_8u_AC4R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                                       int dstStep, IppiSize roiSize, IppiAlphaType alphaType);

/* Adds normally distributed noise (polar method) to channels 0-2 of every pixel, in place; the
   fourth channel is never read or written. *pSeed starts the generator and receives its newest
   lagged value at the end. Checks: a null image or seed, a size below 1, a step below 1. The
   integer forms truncate the noise and saturate; the float form adds without a clamp. */
QV_API IppStatus ippiAddRandGauss_Direct_8u_AC4IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp8u mean,
                                                  Ipp8u stDev, unsigned int* pSeed);
QV_API IppStatus ippiAddRandGauss_Direct_16u_AC4IR(Ipp16u* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp16u mean,
                                                   Ipp16u stDev, unsigned int* pSeed);
QV_API IppStatus ippiAddRandGauss_Direct_32f_AC4IR(Ipp32f* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp32f mean,
                                                   Ipp32f stDev, unsigned int* pSeed);

/* Dither types of the bit reduction. */
typedef enum {
  ippDitherNone = 0,
  ippDitherFS = 1,     /* Floyd-Steinberg */
  ippDitherJJN = 2,    /* Jarvis-Judice-Ninke */
  ippDitherStucki = 3, /* Stucki */
  ippDitherBayer = 4   /* ordered, 4x4 Bayer matrix */
} IppiDitherType;

/* Reduces every channel of a four-channel image (alpha included) to `levels` levels, with the
   given dither and a noise of 0 to 100 percent of a level on the thresholds. Checks: a null
   pointer, a size at or below 0, a noise above 100 read as unsigned (ippStsNoiseValErr),
   levels outside 2..256 (ippStsDitherLevelsErr). A dither type above 4 answers ippStsNoErr and
   writes nothing. */
QV_API IppStatus ippiReduceBits_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                       int noise, IppiDitherType ditherType, int levels);

QV_END_C

#endif
