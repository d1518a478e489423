#include "classes/scale_front.h"

#include "classes/buffer_region.h"
#include "platform/log.h"
#include "platform/text.h"
#include "qvimage/QVILSharedInternal.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"
#include "qvimage/ipps.h"

namespace qv::scale {
namespace {

struct FrontCall {
  IppiRect srcRoi, dstRoi;
  double xFactor, yFactor;
};

FrontCall frontCallOf(const vImage_Buffer* src, const vImage_Buffer* dst) {
  const IppiSize s = frame::regionOf(src), d = frame::regionOf(dst);
  return {{0, 0, s.width, s.height},
          {0, 0, d.width, d.height},
          static_cast<double>(dst->width) / static_cast<double>(src->width),
          static_cast<double>(dst->height) / static_cast<double>(src->height)};
}

void logFailure(IppStatus status, const vImage_Buffer* src, const vImage_Buffer* dst) {
  const std::string from =
      platform::stringFromSize({static_cast<double>(src->width), static_cast<double>(src->height)});
  const std::string to = platform::stringFromSize({static_cast<double>(dst->width), static_cast<double>(dst->height)});
  platform::logLine("Scale initialization error: %s srcSize: %s destSize: %s", ippGetStatusString(status), from.c_str(),
                    to.c_str());
}

}  // namespace

void squarePixelRGBA(const vImage_Buffer* src, const vImage_Buffer* dst, uint32_t flag, uint64_t bitsPerChannel) {
  const FrontCall call = frontCallOf(src, dst);
  // A failed query leaves the size at 0, and the resize then meets a null scratch block.
  int size = 0;
  IppStatus status =
      ippiResizeGetBufSize(call.srcRoi, call.dstRoi, QVILSharedInternal::numberOfChannelsPerPixel(), flag, &size);
  if (status != ippStsNoErr) logFailure(status, src, dst);
  Ipp8u* buffer = ippsMalloc_8u(size);
  const IppiSize srcSize = frame::regionOf(src);
  if (bitsPerChannel == 16)
    status = ippiResizeSqrPixel_16u_C4R(frame::pixelsOf<const Ipp16u>(src), srcSize, frame::stepOf(src), call.srcRoi,
                                        frame::pixelsOf<Ipp16u>(dst), frame::stepOf(dst), call.dstRoi, call.xFactor,
                                        call.yFactor, 0.0, 0.0, flag, buffer);
  else if (bitsPerChannel == 8)
    status = ippiResizeSqrPixel_8u_C4R(frame::pixelsOf<const Ipp8u>(src), srcSize, frame::stepOf(src), call.srcRoi,
                                       frame::pixelsOf<Ipp8u>(dst), frame::stepOf(dst), call.dstRoi, call.xFactor,
                                       call.yFactor, 0.0, 0.0, flag, buffer);
  if (status != ippStsNoErr) logFailure(status, src, dst);
  if (buffer != nullptr) ippsFree(buffer);
}

void squarePixelPlanar8(const vImage_Buffer* src, const vImage_Buffer* dst, uint32_t flag) {
  const FrontCall call = frontCallOf(src, dst);
  int size = 0;
  ippiResizeGetBufSize(call.srcRoi, call.dstRoi, 1, flag, &size);
  Ipp8u* buffer = ippsMalloc_8u(size);
  ippiResizeSqrPixel_8u_C1R(frame::pixelsOf<const Ipp8u>(src), frame::regionOf(src), frame::stepOf(src), call.srcRoi,
                            frame::pixelsOf<Ipp8u>(dst), frame::stepOf(dst), call.dstRoi, call.xFactor, call.yFactor,
                            0.0, 0.0, flag, buffer);
  if (buffer != nullptr) ippsFree(buffer);
}

}  // namespace qv::scale
