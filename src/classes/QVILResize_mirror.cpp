// QVILResize: flip, flop and mirror of RGBA images of 8 or 16 bits a channel.

#include "classes/buffer_region.h"
#include "platform/log.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"

bool QVILResize::imageLibFlipRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                                  uint64_t bitsPerChannel) {
  return imageLibMirrorRGBA(source, destination, bitsPerChannel, MirrorAxisHorizontal);
}

bool QVILResize::imageLibFlopRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                                  uint64_t bitsPerChannel) {
  return imageLibMirrorRGBA(source, destination, bitsPerChannel, MirrorAxisVertical);
}

bool QVILResize::imageLibMirrorRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                                    uint64_t bitsPerChannel, int32_t axis) {
  const IppiSize region = qv::frame::regionOf(destination);
  const int sourceStep = qv::frame::stepOf(source);
  const int destinationStep = qv::frame::stepOf(destination);
  IppStatus status;
  if (bitsPerChannel == 16)
    status = ippiMirror_16u_C4R(qv::frame::pixelsOf<const Ipp16u>(source), sourceStep,
                                qv::frame::pixelsOf<Ipp16u>(destination), destinationStep, region, axis);
  else if (bitsPerChannel == 8)
    status = ippiMirror_8u_C4R(qv::frame::pixelsOf<const Ipp8u>(source), sourceStep,
                               qv::frame::pixelsOf<Ipp8u>(destination), destinationStep, region, axis);
  else
    return true;  // other depths are accepted and left alone
  if (status == ippStsNoErr) return true;
  qv::platform::logLine("QVImageLib mirror operation failed with error: %s", ippGetStatusString(status));
  return false;
}
