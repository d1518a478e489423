// Depth conversion of four-channel images: 8 bits to 16 and back.
//
// Both directions flatten a contiguous image into one row and stream their stores on large
// images. The accurate 16-to-8 form sets the SSE rounding mode to nearest before it looks at
// its arguments, and puts the earlier control word back only after a completed conversion, and
// only when the earlier rounding field was not nearest already.

#include "primitives/common/tier_util.h"
#include "primitives/image/pixel/arith/scale_kernels.h"
#include "primitives/image/pixel/arith/scale_plan.h"

namespace QV_TIER {

qv::arith::ScalePlan owniPlanScale8u16u(int srcStep, int dstStep, IppiSize roiSize);
qv::arith::ScalePlan owniPlanScale16u8u(int srcStep, int dstStep, IppiSize roiSize, int hint);

namespace {

constexpr int kStreamingStartUp = 1398101;   // channels written going up to 16 bits
constexpr int kStreamingStartDown = 838860;  // channels written going down to 8 bits
constexpr int64_t kLongestRow = 0x7FFFFFFF;  // a flattened row stays below this
constexpr unsigned kRoundingField = 0x6000;  // bits 13-14 of the SSE control word
constexpr int kHintAccurate = 2;

IppStatus checkScaleArguments(const void* src, int srcStep, const void* dst, int dstStep, IppiSize roiSize) {
  if (src == nullptr || dst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (srcStep < 1 || dstStep < 1) return ippStsStepErr;
  return ippStsNoErr;
}

// One row of every channel when the 16-bit rows are exactly twice the 8-bit rows and the 8-bit
// rows have no padding; streaming from streamingStart channels in all (as i32), 0 for never.
qv::arith::ScalePlan planScale(int wideStep, int narrowStep, IppiSize roiSize, int streamingStart) {
  const int64_t count = 4 * static_cast<int64_t>(roiSize.width);
  const int64_t total = count * roiSize.height;
  qv::arith::ScalePlan plan{count, roiSize.height, false};
  if (wideStep == 2 * static_cast<int64_t>(narrowStep) && narrowStep == count && total < kLongestRow)
    plan = {total, 1, false};
  plan.streaming = streamingStart != 0 && static_cast<int32_t>(total) >= streamingStart;
  return plan;
}

}  // namespace

qv::arith::ScalePlan owniPlanScale8u16u(int srcStep, int dstStep, IppiSize roiSize) {
  return planScale(dstStep, srcStep, roiSize, kStreamingStartUp);
}

qv::arith::ScalePlan owniPlanScale16u8u(int srcStep, int dstStep, IppiSize roiSize, int hint) {
  return planScale(srcStep, dstStep, roiSize, hint == kHintAccurate ? 0 : kStreamingStartDown);
}

IppStatus ippiScale_8u16u_C4R(const Ipp8u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiSize roiSize) {
  const IppStatus status = checkScaleArguments(pSrc, srcStep, pDst, dstStep, roiSize);
  if (status != ippStsNoErr) return status;
  const qv::arith::ScalePlan plan = owniPlanScale8u16u(srcStep, dstStep, roiSize);
  const size_t count = static_cast<size_t>(plan.channelsPerRow);
  for (int r = 0; r < plan.rows; ++r)
    owniScale_8u16u_M7(rowAt(pSrc, srcStep, r), rowAt(pDst, dstStep, r), count, plan.streaming);
  if (plan.streaming) _mm_sfence();
  return ippStsNoErr;
}

IppStatus ippiScale_16u8u_C4R(const Ipp16u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize, int hint) {
  const bool accurate = hint == kHintAccurate;
  const unsigned earlierControlWord = _mm_getcsr();
  if (accurate) ipp_set_rc_ssx(0);  // nearest; left so on an early return
  const IppStatus status = checkScaleArguments(pSrc, srcStep, pDst, dstStep, roiSize);
  if (status != ippStsNoErr) return status;
  const qv::arith::ScalePlan plan = owniPlanScale16u8u(srcStep, dstStep, roiSize, hint);
  const size_t count = static_cast<size_t>(plan.channelsPerRow);
  for (int r = 0; r < plan.rows; ++r) {
    const Ipp16u* from = rowAt(pSrc, srcStep, r);
    Ipp8u* to = rowAt(pDst, dstStep, r);
    if (accurate)
      owniScale_16u8u_M7_Accurate(from, to, count);
    else
      owniScale_16u8u_M7_Fast(from, to, count, plan.streaming);
  }
  if (plan.streaming) _mm_sfence();
  if (accurate && (earlierControlWord & kRoundingField) != 0) ipp_set_cw_ssx(earlierControlWord);
  return ippStsNoErr;
}

}  // namespace QV_TIER
