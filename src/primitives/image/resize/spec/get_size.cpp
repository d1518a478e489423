// ippiResizeGetSize: the sizes of a ResizeSpec record and of its init buffer.

#include "primitives/image/resize/spec/resize_spec.h"

namespace QV_TIER {
namespace {

struct SpecSizes {
  int64_t spec;
  int64_t init;
};

// Every field of the record and the slack a ResizeSpec needs beyond its arrays.
constexpr int64_t kRecordRoom = 176;

bool knownInterpolation(Ipp32u interpolation) {
  switch (interpolation) {
    case 0:
    case kInterpolationNearest:
    case kInterpolationLinear:
    case kInterpolationCubic:
    case kInterpolationSuper:
    case kInterpolationLanczos:
      return true;
    default:
      return false;
  }
}

bool sourceLargeEnough(IppiSize src, IppiSize dst, Ipp32u interpolation) {
  switch (interpolation) {
    case kInterpolationLinear:
      return src.width >= 2 && src.height >= 2;
    case kInterpolationCubic:
    case kInterpolationLanczos:
      return src.width >= 4 && src.height >= 4;
    case kInterpolationSuper:
      return src.width >= dst.width && src.height >= dst.height;
    default:
      return true;
  }
}

// The table length of an axis of the supersampling filter: d * (s / d + e), with s and d the
// lengths reduced by their gcd and e 0, 1 or 2 as s % d is 0, 1 or more.
int64_t superTableLength(int srcLength, int dstLength) {
  const uint32_t divisor = greatestCommonDivisor(static_cast<uint32_t>(srcLength), static_cast<uint32_t>(dstLength));
  const int64_t s = static_cast<uint32_t>(srcLength) / divisor;
  const int64_t d = static_cast<uint32_t>(dstLength) / divisor;
  const int64_t remainder = s % d;
  const int64_t extra = remainder == 0 ? 0 : (remainder == 1 ? 1 : 2);
  return d * (s / d + extra);
}

// Sizes before the slack, for an interpolation that passed the checks.
SpecSizes sizesFor(IppiSize src, IppiSize dst, Ipp32u interpolation) {
  const int64_t dw = dst.width, dh = dst.height;
  const int64_t both = roundUp32(dw) + roundUp32(dh);
  switch (interpolation) {
    case kInterpolationLinear:
      return {8 * both + kRecordRoom, 0};
    case kInterpolationCubic:
      return {4 * both + kRecordRoom + 4 * (((4 * dw + 127) & ~31) + ((4 * dh + 127) & ~31)), 4 * both};
    case kInterpolationSuper: {
      const int64_t tx = superTableLength(src.width, dst.width);
      const int64_t ty = superTableLength(src.height, dst.height);
      return {4 * (roundUp32(tx) + tx + ty + roundUp32(ty)) + kRecordRoom, 0};
    }
    case kInterpolationLanczos:
      // Room for 3 lobes whatever the init asks.
      return {4 * both + kRecordRoom + 4 * (((6 * dw + 193) & ~31) + ((6 * dh + 193) & ~31)), 4 * both};
    default:  // nearest
      return {4 * both + kRecordRoom, 0};
  }
}

}  // namespace

IppStatus ippiResizeGetSize_8u(IppiSize srcSize, IppiSize dstSize, Ipp32u interpolation, Ipp32u antialiasing,
                               int* pSpecSize, int* pInitBufSize) {
  if (pSpecSize == nullptr || pInitBufSize == nullptr) return ippStsNullPtrErr;
  if (srcSize.width == 0 || srcSize.height == 0 || dstSize.width == 0 || dstSize.height == 0) return ippStsNoOperation;
  if (srcSize.width < 0 || srcSize.height < 0 || dstSize.width < 0 || dstSize.height < 0) return ippStsSizeErr;
  if (!knownInterpolation(interpolation)) return ippStsInterpolationErr;
  if (antialiasing != 0) return ippStsNotSupportedModeErr;
  // Interpolation 0 passes the test above and has no row in the size table.
  if (interpolation == 0) return ippStsNotSupportedModeErr;
  if (!sourceLargeEnough(srcSize, dstSize, interpolation)) return ippStsSizeErr;
  const SpecSizes sizes = sizesFor(srcSize, dstSize, interpolation);
  const int64_t specSize = sizes.spec + kSpecSlack, initSize = sizes.init + kSpecSlack;
  if (specSize >= kSizeLimit || initSize >= kSizeLimit) return ippStsSizeErr;
  *pSpecSize = static_cast<int>(specSize);
  *pInitBufSize = static_cast<int>(initSize);
  return ippStsNoErr;
}

// The ResizeSpec does not depend on the depth.
IppStatus ippiResizeGetSize_16u(IppiSize srcSize, IppiSize dstSize, Ipp32u interpolation, Ipp32u antialiasing,
                                int* pSpecSize, int* pInitBufSize) {
  return QV_TIER::ippiResizeGetSize_8u(srcSize, dstSize, interpolation, antialiasing, pSpecSize, pInitBufSize);
}

}  // namespace QV_TIER
