#ifndef QVIMAGE_IPPI_RESIZE_H
#define QVIMAGE_IPPI_RESIZE_H

/* Resizing of four-channel interleaved images with a ResizeSpec record: a record of the
   source positions and weights of every destination row and column, built once per job and
   shared, read-only, by every strip of the job.

   Calling order: ippiResizeGetSize_8u; allocate the ResizeSpec and the init buffer;
   ippiResizeLinearInit_8u or ippiResizeLanczosInit_8u; ippiResizeGetBufferSize_8u for each
   region to be resized; ippiResizeGetBorderSize_8u and ippiResizeGetSrcRoi_8u as needed; then
   ippiResizeLinear_*_C4R or ippiResizeLanczos_*_C4R. None of these allocates. Every _16u query
   and init is the same function as its _8u twin: the ResizeSpec does not depend on the depth.

   Interpolation values of the size query: 1 nearest, 2 linear, 6 cubic, 8 super, 16 Lanczos.
   Only 2 and 16 have an init primitive. Steps are in bytes. */

#include "ippdefs.h"

QV_BEGIN_C

/* The mark of an initialised ResizeSpec. */
#define QV_RESIZE_SPEC_MAGIC 0x4B617389u

/* The positions and weights of one axis. x = (i + 0.5) * srcReduced / dstReduced - 0.5 is the
   source position of destination position i; index[i] is its whole part (-1 before the first
   source centre), and the fraction x - index[i] gives the weights. */
typedef struct {
  Ipp32s srcLength;     /* source height (or width) */
  Ipp32s dstLength;     /* destination height (or width) */
  Ipp32u srcReduced;    /* srcLength / gcd(srcLength, dstLength) */
  Ipp32u dstReduced;    /* dstLength / gcd(srcLength, dstLength) */
  Ipp32s* index;        /* dstLength entries */
  Ipp32f* weights;      /* linear: the fraction of each position; Lanczos: 2 * lobes weights a
                           position, weight k belonging to source sample index - lobes + 1 + k */
  Ipp32u leadingCount;  /* positions with a tap before the first source sample */
  Ipp32u trailingCount; /* positions with a tap past the last source sample */
} ResizeAxisFilter;

/* The caller's block may have any alignment: every primitive first advances the pointer to the
   next multiple of 64 bytes, where this record stands; the arrays follow it inside the block
   (linear: both index arrays, then both weight arrays, packed; Lanczos: both index arrays, then
   each weight array at a multiple of 32 bytes; vertical axis first). */
typedef struct {
  Ipp32u magic;         /* QV_RESIZE_SPEC_MAGIC once initialised */
  Ipp32u interpolation; /* 2 linear, 16 Lanczos */
  Ipp32u lobes;         /* 1 for linear; 2 or 3 for Lanczos */
  Ipp32u reserved;      /* 0 */
  Ipp32u border[4];     /* source pixels wanted beyond a region on each side: all equal lobes */
  ResizeAxisFilter yFilter;
  ResizeAxisFilter xFilter;
} ResizeSpec;

/* The border word of the resize primitives: the type in bits 0-2, flags in bits 4-7. Bit 3 and
   bits 8 and up are invalid. With the replicate type, taps outside the source image are moved to
   its edge, except on the sides whose flag says that the memory there may be read. */
enum {
  ippBorderRepl = 1,         /* replicate the edge pixels */
  ippBorderInMem = 6,        /* every tap is readable: the whole region is resized in one pass */
  ippBorderInMemTop = 16,    /* rows above the source image are in memory */
  ippBorderInMemBottom = 32, /* rows below it */
  ippBorderInMemLeft = 64,   /* columns to its left */
  ippBorderInMemRight = 128  /* columns to its right */
};

/* The 3-lobe Lanczos kernel at steps of 1/100: entry k is L(k / 100) with
   L(x) = sinc(x) sinc(x / 3); entries 300 to 303 are 0. */
QV_API extern const Ipp32f tblLanczos3[304];

/* Sizes of the ResizeSpec and of the init buffer, both with 64 bytes of slack for the
   alignment. Checks in order: a null result pointer; a dimension of 0 (ippStsNoOperation, nothing
   written); a negative dimension; an interpolation other than 0, 1, 2, 6, 8, 16; antialiasing
   not 0 or interpolation 0 (ippStsNotSupportedModeErr); a source below the filter's minimum
   (2 x 2 linear, 4 x 4 cubic and Lanczos, the destination's size for super); a size of 2^31 or
   more. */
QV_API IppStatus ippiResizeGetSize_8u(IppiSize srcSize, IppiSize dstSize, Ipp32u interpolation, Ipp32u antialiasing,
                                      int* pSpecSize, int* pInitBufSize);
QV_API IppStatus ippiResizeGetSize_16u(IppiSize srcSize, IppiSize dstSize, Ipp32u interpolation, Ipp32u antialiasing,
                                       int* pSpecSize, int* pInitBufSize);

/* A linear ResizeSpec: lobes 1, all four borders 1. A source side under 2 is refused. */
QV_API IppStatus ippiResizeLinearInit_8u(IppiSize srcSize, IppiSize dstSize, ResizeSpec* pSpec);
QV_API IppStatus ippiResizeLinearInit_16u(IppiSize srcSize, IppiSize dstSize, ResizeSpec* pSpec);

/* A Lanczos ResizeSpec of 2 or 3 lobes; pInitBuf is scratch for this call only. The mark,
   interpolation and lobes are written before lobes is judged: after a refusal the block carries
   a good mark and is still unusable. 3 lobes need a source of 6 x 6, 2 lobes one of 4 x 4
   (ippStsSizeErr); other lobes give ippStsNotSupportedModeErr. */
QV_API IppStatus ippiResizeLanczosInit_8u(IppiSize srcSize, IppiSize dstSize, Ipp32u numLobes, ResizeSpec* pSpec,
                                          Ipp8u* pInitBuf);
QV_API IppStatus ippiResizeLanczosInit_16u(IppiSize srcSize, IppiSize dstSize, Ipp32u numLobes, ResizeSpec* pSpec,
                                           Ipp8u* pInitBuf);

/* Scratch size for resizing a region of dstSize with numChannels channels (1, 3 or 4). A region
   larger than the ResizeSpec's destination is sized as clamped, with ippStsSizeWrn. */
QV_API IppStatus ippiResizeGetBufferSize_8u(const ResizeSpec* pSpec, IppiSize dstSize, Ipp32u numChannels,
                                            int* pBufSize);
QV_API IppStatus ippiResizeGetBufferSize_16u(const ResizeSpec* pSpec, IppiSize dstSize, Ipp32u numChannels,
                                             int* pBufSize);

/* The four border widths (top, left, bottom, right), all equal to lobes. */
QV_API IppStatus ippiResizeGetBorderSize_8u(const ResizeSpec* pSpec, Ipp32u borderSize[4]);
QV_API IppStatus ippiResizeGetBorderSize_16u(const ResizeSpec* pSpec, Ipp32u borderSize[4]);

/* The source rows and columns that a destination region starts from: offset floor(dstOffset *
   ratio), size up to the whole part of the region's last position. Taps reach up to lobes
   pixels beyond it. ippStsSizeWrn when the region is wider or higher than the destination. */
QV_API IppStatus ippiResizeGetSrcRoi_8u(const ResizeSpec* pSpec, IppiPoint dstOffset, IppiSize dstSize,
                                        IppiPoint* srcOffset, IppiSize* srcSize);
QV_API IppStatus ippiResizeGetSrcRoi_16u(const ResizeSpec* pSpec, IppiPoint dstOffset, IppiSize dstSize,
                                         IppiPoint* srcOffset, IppiSize* srcSize);

/* Resize a region of the destination, at dstOffset (absolute in the destination image, so that
   one image can be done in strips) and of dstSize, from pSrc, which addresses the source sample
   at the offset that ippiResizeGetSrcRoi gives for dstOffset. All four channels alike, in 32-bit
   float, each sample rounded once to nearest (ties to even) and saturated. pBorderValue is not
   read. Checks in order: a null pointer; a region width or height of 0 (ippStsNoOperation); a
   wrong mark; a region side below 1; an odd step (16u); an offset outside the destination; an
   invalid border bit (ippStsBorderErr); a border type other than 1 or 6
   (ippStsNotSupportedModeErr). A region reaching past the destination is clamped, with
   ippStsSizeWrn. The scratch buffer's size comes from ippiResizeGetBufferSize. */
QV_API IppStatus ippiResizeLinear_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiPoint dstOffset,
                                         IppiSize dstSize, Ipp32u border, const Ipp8u* pBorderValue,
                                         const ResizeSpec* pSpec, Ipp8u* pBuffer);
QV_API IppStatus ippiResizeLinear_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep,
                                          IppiPoint dstOffset, IppiSize dstSize, Ipp32u border,
                                          const Ipp16u* pBorderValue, const ResizeSpec* pSpec, Ipp8u* pBuffer);

/* The same with the Lanczos kernel of the ResizeSpec's lobes (2 or 3, else
   ippStsNotSupportedModeErr after the other checks). */
QV_API IppStatus ippiResizeLanczos_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiPoint dstOffset,
                                          IppiSize dstSize, Ipp32u border, const Ipp8u* pBorderValue,
                                          const ResizeSpec* pSpec, Ipp8u* pBuffer);
QV_API IppStatus ippiResizeLanczos_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep,
                                           IppiPoint dstOffset, IppiSize dstSize, Ipp32u border,
                                           const Ipp16u* pBorderValue, const ResizeSpec* pSpec, Ipp8u* pBuffer);

QV_END_C

#endif
