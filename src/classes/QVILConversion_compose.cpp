// QVILConversion: premultiplied "over" composition of one RGBA buffer onto another.

#include "classes/buffer_region.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"

// Source 1 is the first buffer, source 2 and destination the second; the region is the first
// buffer's. The primitive's status is dropped.
bool QVILConversion::imageLibCompositeOverPremultipliedRGBASource(vImage_Buffer* source, vImage_Buffer* dest) {
  Ipp8u* destPixels = qv::frame::pixelsOf(dest);
  ippiAlphaComp_8u_AC4R(qv::frame::pixelsOf(source), qv::frame::stepOf(source), destPixels, qv::frame::stepOf(dest),
                        destPixels, qv::frame::stepOf(dest), qv::frame::regionOf(source), ippAlphaOverPremul);
  return true;
}
