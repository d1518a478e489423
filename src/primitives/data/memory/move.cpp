// Long copies and overlapping moves. The moves of 16-bit and 32-bit elements turn their length
// into bytes for the byte move's kernel.

#include "primitives/common/tier_util.h"
#include "primitives/data/memory/fill_kernels.h"
#include "primitives/data/memory/memory.h"

namespace QV_TIER {
namespace {

// From the start to the end. Each 64-byte round is loaded whole before it is stored, so a
// source above an overlapping destination is read before it is overwritten.
void moveForward(const Ipp8u* src, Ipp8u* dst, size_t len) {
  size_t done = 0;
  for (; done + 64 <= len; done += 64) {
    const __m128i a = loadBlock(src + done);
    const __m128i b = loadBlock(src + done + 16);
    const __m128i c = loadBlock(src + done + 32);
    const __m128i d = loadBlock(src + done + 48);
    storeBlock(dst + done, a);
    storeBlock(dst + done + 16, b);
    storeBlock(dst + done + 32, c);
    storeBlock(dst + done + 48, d);
  }
  for (; done + 16 <= len; done += 16) storeBlock(dst + done, loadBlock(src + done));
  for (; done < len; ++done) dst[done] = src[done];
}

// From the end to the start, the mirror of moveForward, for a source below the destination.
void moveBackward(const Ipp8u* src, Ipp8u* dst, size_t len) {
  size_t end = len;
  for (; end >= 64; end -= 64) {
    const __m128i a = loadBlock(src + end - 16);
    const __m128i b = loadBlock(src + end - 32);
    const __m128i c = loadBlock(src + end - 48);
    const __m128i d = loadBlock(src + end - 64);
    storeBlock(dst + end - 16, a);
    storeBlock(dst + end - 32, b);
    storeBlock(dst + end - 48, c);
    storeBlock(dst + end - 64, d);
  }
  for (; end >= 16; end -= 16) storeBlock(dst + end - 16, loadBlock(src + end - 16));
  for (; end > 0; --end) dst[end - 1] = src[end - 1];
}

IppStatus moveBytes(const void* src, void* dst, int len, size_t elementBytes) {
  if (src == nullptr || dst == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  ownsMove_8u(static_cast<const Ipp8u*>(src), static_cast<Ipp8u*>(dst), static_cast<size_t>(len) * elementBytes);
  return ippStsNoErr;
}

IppStatus copyBytes(const void* src, void* dst, int len, size_t elementBytes) {
  if (src == nullptr || dst == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  moveForward(static_cast<const Ipp8u*>(src), static_cast<Ipp8u*>(dst), static_cast<size_t>(len) * elementBytes);
  return ippStsNoErr;
}

}  // namespace

void ownsMove_8u(const Ipp8u* src, Ipp8u* dst, size_t len) {
  if (src == dst) return;
  if (src < dst)
    moveBackward(src, dst, len);
  else
    moveForward(src, dst, len);
}

IppStatus ippsMove_8u(const Ipp8u* pSrc, Ipp8u* pDst, int len) { return moveBytes(pSrc, pDst, len, 1); }
IppStatus ippsMove_16s(const Ipp16s* pSrc, Ipp16s* pDst, int len) { return moveBytes(pSrc, pDst, len, 2); }
IppStatus ippsMove_32f(const Ipp32f* pSrc, Ipp32f* pDst, int len) { return moveBytes(pSrc, pDst, len, 4); }

// Plain copies: no overlap is expected.
IppStatus ippsCopy_8u(const Ipp8u* pSrc, Ipp8u* pDst, int len) { return copyBytes(pSrc, pDst, len, 1); }
IppStatus ippsCopy_32f(const Ipp32f* pSrc, Ipp32f* pDst, int len) { return copyBytes(pSrc, pDst, len, 4); }

}  // namespace QV_TIER
