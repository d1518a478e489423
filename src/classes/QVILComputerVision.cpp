// QVILComputerVision: the shared instance and the flood fill of planar 8-bit images.

#include "qvimage/QVILComputerVision.h"

#include "classes/buffer_region.h"
#include "classes/shared_instance.h"
#include "qvimage/ippi.h"

namespace {

QVILComputerVision* sharedComputerVision = nullptr;

IppiSize truncatedSize(CGSize size) { return {static_cast<int>(size.width), static_cast<int>(size.height)}; }

IppiPoint truncatedPoint(CGPoint point) { return {static_cast<int>(point.x), static_cast<int>(point.y)}; }

CGRect rectOf(const IppiRect& box) {
  return {{static_cast<CGFloat>(box.x), static_cast<CGFloat>(box.y)},
          {static_cast<CGFloat>(box.width), static_cast<CGFloat>(box.height)}};
}

}  // namespace

QVILComputerVision* QVILComputerVision::sharedInstance() {
  return qv::frame::sharedInstanceOf(sharedComputerVision, [] { return new QVILComputerVision(); });
}

bool QVILComputerVision::floodFillGetSize_Grad(CGSize size, int32_t* bufSize) {
  ippiFloodFillGetSize_Grad(truncatedSize(size), bufSize);  // status dropped
  return true;
}

bool QVILComputerVision::floodFillRange4ConPlanar(vImage_Buffer* image, CGPoint seedPoint, uint8_t newVal,
                                                  uint8_t minDelta, uint8_t maxDelta, CGRect* filledRegion,
                                                  uint8_t* tempBuffer) {
  IppiConnectedComp region{};
  const IppStatus status = ippiFloodFill_Range4Con_8u_C1IR(qv::frame::pixelsOf<Ipp8u>(image), qv::frame::stepOf(image),
                                                           qv::frame::regionOf(image), truncatedPoint(seedPoint),
                                                           newVal, minDelta, maxDelta, &region, tempBuffer);
  if (status != ippStsNoErr) {
    if (filledRegion != nullptr) *filledRegion = CGRect{{0, 0}, {0, 0}};
    return false;
  }
  // When the seed already held newVal the primitive wrote nothing: the box is the zeroed record,
  // which callers do not use.
  if (filledRegion != nullptr) *filledRegion = rectOf(region.rect);
  return true;
}
