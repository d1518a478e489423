// Constant fills of one channel and of four. Steps are not tested: a zero or negative step is
// followed as given.

#include "primitives/common/tier_util.h"
#include "primitives/image/pixel/set_kernels.h"

namespace QV_TIER {
namespace {

// Runs the row kernel over the image. A row as long as the step makes the image contiguous,
// and then it is filled as one row of the total length. total is the i32 byte count that
// decides streaming.
void fillImage(void (*fillRow)(const Ipp8u*, Ipp8u*, size_t, bool), const Ipp8u* pattern, Ipp8u* dst, int step,
               size_t rowBytes, int rows) {
  const int total = static_cast<int>(static_cast<unsigned>(rowBytes) * static_cast<unsigned>(rows));
  if (static_cast<long>(rowBytes) == step) {
    rowBytes *= static_cast<size_t>(rows);
    rows = 1;
  }
  const bool streaming = owniSetStreams(total);
  for (int r = 0; r < rows; ++r) fillRow(pattern, rowAt(dst, step, r), rowBytes, streaming);
}

}  // namespace

IppStatus ippiSet_8u_C1R(Ipp8u value, Ipp8u* pDst, int dstStep, IppiSize roiSize) {
  if (pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  alignas(16) Ipp8u pattern[kSetPatternBytes];
  for (Ipp8u& byte : pattern) byte = value;
  fillImage(owniSet_8u_C1_M7, pattern, pDst, dstStep, static_cast<size_t>(roiSize.width), roiSize.height);
  return ippStsNoErr;
}

IppStatus ippiSet_8u_C4R(const Ipp8u value[4], Ipp8u* pDst, int dstStep, IppiSize roiSize) {
  if (pDst == nullptr || value == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  alignas(16) Ipp8u pattern[kSetPatternBytes];
  for (int i = 0; i < kSetPatternBytes; ++i) pattern[i] = value[i % 4];
  fillImage(owniSet_8u_C4_M7, pattern, pDst, dstStep, 4 * static_cast<size_t>(roiSize.width), roiSize.height);
  return ippStsNoErr;
}

}  // namespace QV_TIER
