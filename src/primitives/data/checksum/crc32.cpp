// ippsCRC32_8u: the arguments, then the road. Tiers m7 and u8 always take the table form; y8 and
// e9 take the folding form when PCLMULQDQ is in the enabled mask, so that
// ippSetCpuFeaturesMask can turn it off at run time.

#include "core/cpu_state.h"
#include "primitives/data/checksum/checksum_kernels.h"

namespace QV_TIER {

namespace {
constexpr Ipp64u kPclmulqdqFeature = 0x800;
}  // namespace

IppStatus ippsCRC32_8u(const Ipp8u* pSrc, int len, Ipp32u* pCRC32) {
  if (pSrc == nullptr || pCRC32 == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
#if QV_TIER_LEVEL >= 3
  if (ownGetFeature(kPclmulqdqFeature)) {
    *pCRC32 = owns_zlib_reduction_crc_proc(pSrc, len, *pCRC32);
    return ippStsNoErr;
  }
#endif
  *pCRC32 = ownsCRC32_8u(pSrc, len, *pCRC32);
  return ippStsNoErr;
}

}  // namespace QV_TIER
