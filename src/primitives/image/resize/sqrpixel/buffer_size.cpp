// The scratch size of a square-pixel resize: room for the destination region as given, whatever
// the factors, by filter and channel count.

#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

int64_t roundUp(int64_t x, int64_t n) { return (x + n - 1) / n * n; }

// Position tables, weights and row buffers of the interpolating engine.
int64_t interpolatingBytes(Ipp32u filter, int64_t dw, int64_t dh, int64_t c) {
  const int64_t tables = 4 * (roundUp(dw, 16) + roundUp(dh, 16));
  switch (filter) {
    case IPPI_INTER_NN:
      return tables;
    case IPPI_INTER_LINEAR:
      return tables + 4 * (roundUp(dw, 64) + roundUp(dh, 64) + c * ((2 * dw + 127) & ~int64_t{63}));
    case IPPI_INTER_LANCZOS:
      return tables + 4 * (roundUp(dw, 32) + roundUp(dh, 32) + ((6 * dw + 191) & ~int64_t{31}) +
                           ((6 * dh + 191) & ~int64_t{31}) + c * ((6 * dw + 191) & ~int64_t{31}));
    default:  // the four cubics
      return tables + 4 * (roundUp(dw, 32) + roundUp(dh, 32) + ((4 * dw + 127) & ~int64_t{31}) +
                           ((4 * dh + 127) & ~int64_t{31}) + c * ((4 * dw + 255) & ~int64_t{63}));
  }
}

// One filtered row per source row, and a tap list per position of each axis.
int64_t antialiasedBytes(Ipp32u filter, IppiRect srcRoi, int64_t dw, int64_t dh, int64_t c) {
  const double base = filter == IPPI_INTER_LINEAR ? 1.0 : filter == IPPI_INTER_LANCZOS ? 3.0 : 2.0;
  const double fx = static_cast<double>(srcRoi.width) / static_cast<double>(dw);
  const double fy = static_cast<double>(srcRoi.height) / static_cast<double>(dh);
  const int64_t rx = static_cast<int64_t>(__builtin_ceil(fx >= 1.0 ? base * fx : base));
  const int64_t ry = static_cast<int64_t>(__builtin_ceil(fy >= 1.0 ? base * fy : base));
  const int64_t sh = srcRoi.height;
  if (dw * sh >= (int64_t{1} << 40)) return int64_t{1} << 40;  // far past any size that can be answered
  return 8 * roundUp(dw * sh * c, 16) + 4 * roundUp(dw * c, 16) + 8 * roundUp((2 * rx + 2) * dw, 16) +
         8 * roundUp((2 * ry + 2) * dh, 16);
}

bool emptyOrNegative(IppiRect r) { return r.x < 0 || r.y < 0 || r.width <= 0 || r.height <= 0; }

}  // namespace

int64_t ownpiResizeScratchBytes(IppiRect srcRoi, IppiRect dstRoi, int64_t channels, Ipp32u interpolation) {
  const Ipp32u filter = interpolation & kFilterMask;
  const int64_t dw = dstRoi.width, dh = dstRoi.height;
  const bool antialiasing = (interpolation & kAntialiasing) != 0;
  int64_t bytes;
  if (filter == IPPI_INTER_SUPER)
    bytes = 8 * channels * roundUp(srcRoi.width, 16);
  else if (antialiasing && filter != IPPI_INTER_NN)
    bytes = antialiasedBytes(filter, srcRoi, dw, dh, channels);
  else
    bytes = interpolatingBytes(filter, dw, dh, channels);
  return bytes + 16;
}

IppStatus ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, Ipp32u nChannel, Ipp32u interpolation,
                               int* pBufferSize) {
  if (pBufferSize == nullptr) return ippStsNullPtrErr;
  if (emptyOrNegative(srcRoi) || emptyOrNegative(dstRoi)) return ippStsSizeErr;
  if (nChannel != 1 && nChannel != 3 && nChannel != 4) return ippStsNumChannelsErr;
  const Ipp32u filter = interpolation & kFilterMask;
  if (!ownpiIsResizeFilter(filter) || ownpiEdgeFlagCount(interpolation) >= 2) return ippStsInterpolationErr;

  const bool antialiasing = (interpolation & kAntialiasing) != 0;
  const IppStatus status = antialiasing && (filter == IPPI_INTER_SUPER || filter == IPPI_INTER_NN)
                               ? static_cast<IppStatus>(ippStsNoAntialiasing)
                               : ippStsNoErr;
  const int64_t bytes = ownpiResizeScratchBytes(srcRoi, dstRoi, nChannel, interpolation);
  if (bytes >= (int64_t{1} << 31)) {
    *pBufferSize = 0;
    return ippStsSizeErr;
  }
  *pBufferSize = static_cast<int>(bytes);
  return status;
}

}  // namespace QV_TIER
