// Smallest and largest bytes of a region, and the in-place maximum of two images.
//
// The reductions fold 16-byte blocks from the start of each row into one accumulator that starts
// from all bits set (minimum) or from zero (maximum); the bytes after the last whole block of a
// row are folded singly. Blocks start at row starts, so in a four-channel image lane j of the
// accumulator always holds channel j % 4. The steps are not tested.

#include "primitives/image/pixel/arith/arith.h"
#include "primitives/image/pixel/arith/byte_vectors.h"

namespace QV_TIER {
namespace {

enum class Fold { kMinimum, kMaximum };

template <Fold kind>
QV_INLINE __m128i foldBlocks(__m128i a, __m128i b) {
  return kind == Fold::kMinimum ? _mm_min_epu8(a, b) : _mm_max_epu8(a, b);
}

template <Fold kind>
QV_INLINE Ipp8u foldBytes(Ipp8u a, Ipp8u b) {
  return kind == Fold::kMinimum ? minOf(a, b) : maxOf(a, b);
}

// Folds every byte of the region into lanes[16]; byte x of a row goes to lane x % 16.
template <Fold kind>
void foldRegion(const Ipp8u* src, int srcStep, size_t rowBytes, int rows, Ipp8u lanes[16]) {
  const Ipp8u start = kind == Fold::kMinimum ? 0xFF : 0x00;
  __m128i accumulator = _mm_set1_epi8(static_cast<char>(start));
  for (int i = 0; i < 16; ++i) lanes[i] = start;
  for (int r = 0; r < rows; ++r) {
    const Ipp8u* row = rowAt(src, srcStep, r);
    size_t x = 0;
    for (; x + 16 <= rowBytes; x += 16) accumulator = foldBlocks<kind>(accumulator, loadBlock(row + x));
    for (; x < rowBytes; ++x) lanes[x & 15] = foldBytes<kind>(lanes[x & 15], row[x]);
  }
  Ipp8u blocks[16];
  storeBlock(blocks, accumulator);
  for (int i = 0; i < 16; ++i) lanes[i] = foldBytes<kind>(lanes[i], blocks[i]);
}

// The fold of one channel out of every four lanes, or of all sixteen with stride 1.
template <Fold kind>
Ipp8u foldLanes(const Ipp8u lanes[16], int first, int stride) {
  Ipp8u result = lanes[first];
  for (int i = first + stride; i < 16; i += stride) result = foldBytes<kind>(result, lanes[i]);
  return result;
}

template <Fold kind>
IppStatus reduceOneChannel(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u* pResult) {
  if (pSrc == nullptr || pResult == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  Ipp8u lanes[16];
  foldRegion<kind>(pSrc, srcStep, static_cast<size_t>(roiSize.width), roiSize.height, lanes);
  *pResult = foldLanes<kind>(lanes, 0, 1);
  return ippStsNoErr;
}

}  // namespace

IppStatus ippiMin_8u_C1R(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u* pMin) {
  return reduceOneChannel<Fold::kMinimum>(pSrc, srcStep, roiSize, pMin);
}

IppStatus ippiMax_8u_C1R(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u* pMax) {
  return reduceOneChannel<Fold::kMaximum>(pSrc, srcStep, roiSize, pMax);
}

IppStatus ippiMin_8u_C4R(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u min[4]) {
  if (pSrc == nullptr || min == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  Ipp8u lanes[16];
  foldRegion<Fold::kMinimum>(pSrc, srcStep, 4 * static_cast<size_t>(roiSize.width), roiSize.height, lanes);
  for (int c = 0; c < 4; ++c) min[c] = foldLanes<Fold::kMinimum>(lanes, c, 4);
  return ippStsNoErr;
}

IppStatus ippsMaxEvery_8u_I(const Ipp8u* pSrc, Ipp8u* pSrcDst, int len) {
  if (pSrc == nullptr || pSrcDst == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  const size_t length = static_cast<size_t>(len);
  size_t i = 0;
  for (; i + 16 <= length; i += 16) storeBlock(pSrcDst + i, _mm_max_epu8(loadBlock(pSrc + i), loadBlock(pSrcDst + i)));
  for (; i < length; ++i) pSrcDst[i] = maxOf(pSrc[i], pSrcDst[i]);
  return ippStsNoErr;
}

IppStatus ippiMaxEvery_8u_C1IR(const Ipp8u* pSrc, int srcStep, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize) {
  if (pSrc == nullptr || pSrcDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (srcStep < 1 || srcDstStep < 1) return ippStsStepErr;
  for (int r = 0; r < roiSize.height; ++r)
    ippsMaxEvery_8u_I(rowAt(pSrc, srcStep, r), rowAt(pSrcDst, srcDstStep, r), roiSize.width);
  return ippStsNoErr;
}

}  // namespace QV_TIER
