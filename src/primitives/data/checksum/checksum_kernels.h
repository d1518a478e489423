#ifndef QV_PRIMITIVES_DATA_CHECKSUM_CHECKSUM_KERNELS_H
#define QV_PRIMITIVES_DATA_CHECKSUM_CHECKSUM_KERNELS_H

// The two roads of the CRC-32 inside one tier. Both take and return the value in the form that
// zlib returns (not inverted) and give the same value for the same bytes.

#include "primitives/common/tier.h"

namespace QV_TIER {

// Slice-by-eight table form; every tier has it. len is at least 1.
Ipp32u ownsCRC32_8u(const Ipp8u* src, int len, Ipp32u crc);

#if QV_TIER_LEVEL >= 3
// Carry-less multiplication folding form; run only when PCLMULQDQ is in the enabled mask.
Ipp32u owns_zlib_reduction_crc_proc(const Ipp8u* src, int len, Ipp32u crc);
#endif

}  // namespace QV_TIER

#endif
