#ifndef QV_TESTS_COPY_COPY_SUPPORT_H
#define QV_TESTS_COPY_COPY_SUPPORT_H

// Plain references for the copy, fill and channel tests, written from the rules of each
// operation one byte at a time, and the per-tier entry points that the tests reach directly.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "primitives/image/pixel/pixel_roads.h"
#include "qvimage/ippi.h"
#include "qvimage/ipps.h"
#include "support/images.h"
#include "support/playback_cpu.h"

// The tiers' own functions: the road decisions and the internal long forms.
#define QVTEST_DECLARE_TIER_INTERNALS(tier)                                                                     \
  namespace tier {                                                                                              \
  qv::pixel::CopyPlan owniPlanCopy(int srcStep, int dstStep, size_t rowBytes, int rows);                        \
  bool owniSetStreams(int total);                                                                               \
  qv::pixel::SwapRoad owniPlanSwapAC4(const void* src, int srcStep, const void* dst, int dstStep, IppiSize roi, \
                                      const int order[3]);                                                      \
  qv::pixel::SwapRoad owniPlanSwapC4I(const void* buffer, int step, IppiSize roi);                              \
  bool ownsSet32sStreams(const void* dst, int len);                                                             \
  IppStatus ippsCopy_8u(const Ipp8u* pSrc, Ipp8u* pDst, int len);                                               \
  IppStatus ippsCopy_32f(const Ipp32f* pSrc, Ipp32f* pDst, int len);                                            \
  IppStatus ippsMove_16s(const Ipp16s* pSrc, Ipp16s* pDst, int len);                                            \
  IppStatus ippsMove_32f(const Ipp32f* pSrc, Ipp32f* pDst, int len);                                            \
  IppStatus ippsSet_32f(Ipp32f value, Ipp32f* pDst, int len);                                                   \
  IppStatus ippsSet_64f(Ipp64f value, Ipp64f* pDst, int len);                                                   \
  }

QVTEST_DECLARE_TIER_INTERNALS(m7)
QVTEST_DECLARE_TIER_INTERNALS(u8)
QVTEST_DECLARE_TIER_INTERNALS(y8)
QVTEST_DECLARE_TIER_INTERNALS(e9)

namespace qvtest {

// One tier's entries, in the order of allTiers(): m7, u8, y8, e9.
struct TierInternals {
  const char* name;
  qv::pixel::CopyPlan (*planCopy)(int, int, size_t, int);
  bool (*setStreams)(int);
  qv::pixel::SwapRoad (*planSwapAC4)(const void*, int, const void*, int, IppiSize, const int*);
  qv::pixel::SwapRoad (*planSwapC4I)(const void*, int, IppiSize);
  bool (*set32sStreams)(const void*, int);
  IppStatus (*copy8u)(const Ipp8u*, Ipp8u*, int);
  IppStatus (*copy32f)(const Ipp32f*, Ipp32f*, int);
  IppStatus (*move16s)(const Ipp16s*, Ipp16s*, int);
  IppStatus (*move32f)(const Ipp32f*, Ipp32f*, int);
  IppStatus (*set32f)(Ipp32f, Ipp32f*, int);
  IppStatus (*set64f)(Ipp64f, Ipp64f*, int);
};

const std::vector<TierInternals>& tierInternals();
const TierInternals& internalsOf(const char* tierName);

// Row r of a region, whatever the sign of the step.
inline const uint8_t* rowOf(const uint8_t* base, int step, int r) { return base + static_cast<ptrdiff_t>(step) * r; }
inline uint8_t* rowOf(uint8_t* base, int step, int r) { return base + static_cast<ptrdiff_t>(step) * r; }

// Byte i of each row of the destination is byte i of the source row, rows in order.
void referenceCopy(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, size_t rowBytes, int rows);
// Byte x of each destination row is byte 4x of the source row.
void referenceCopyChannel(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, int width, int height);
// Byte i of each row becomes value[i % channels].
void referenceFill(const uint8_t* value, int channels, uint8_t* dst, int step, int width, int height);
// Destination channel c (c < channels) becomes source channel order[c] of the same pixel, read
// before anything is written.
void referenceSwap(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, int width, int height, const int* order,
                   int channels);

// A GenuineIntel processor with the highest standard leaf 2 whose leaf 2 names one descriptor
// in EBX (AL = 1, no other descriptor).
void answerLeaf2(PlaybackProcessor& cpu, uint32_t descriptor);
// A GenuineIntel processor whose leaf 4 names one data cache of exactly bytes bytes.
void answerLeaf4(PlaybackProcessor& cpu, uint32_t bytes);

}  // namespace qvtest

#endif
