// QVILConversion: plane copies, fills and channel reorders. Each is one primitive call whose
// status is dropped: the answer is true whatever happened.

#include "classes/buffer_region.h"
#include "platform/vimage.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"

namespace {

using qv::frame::pixelsOf;
using qv::frame::regionOf;
using qv::frame::stepOf;

// The reversal of the four channels, as a constant table.
const int kReversedChannels[4] = {3, 2, 1, 0};

}  // namespace

bool QVILConversion::imageLibCopyPlanar8(const vImage_Buffer* src, const vImage_Buffer* dest) {
  ippiCopy_8u_C1R(pixelsOf<const Ipp8u>(src), stepOf(src), pixelsOf(dest), stepOf(dest), regionOf(dest));
  return true;
}

bool QVILConversion::imageLibCopyPlanar8ToRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest) {
  qv::platform::convertPlanar8ToARGB8888(src, src, src, src, dest, 0);
  return true;
}

bool QVILConversion::imageLibCopyRGBA8888SelectedChannel(vImage_Buffer* src, vImage_Buffer* dest) {
  ippiCopy_8u_C4C1R(pixelsOf<const Ipp8u>(src), stepOf(src), pixelsOf(dest), stepOf(dest), regionOf(src));
  return true;
}

bool QVILConversion::imageLibSetPlanar8(vImage_Buffer* buffer, uint8_t value) {
  ippiSet_8u_C1R(value, pixelsOf(buffer), stepOf(buffer), regionOf(buffer));
  return true;
}

bool QVILConversion::imageLibSetRGBA8888(vImage_Buffer* buffer, const uint8_t* value) {
  ippiSet_8u_C4R(value, pixelsOf(buffer), stepOf(buffer), regionOf(buffer));
  return true;
}

bool QVILConversion::imageLibConvertARGBtoBGRA(const vImage_Buffer* buffer) {
  ippiSwapChannels_8u_C4IR(pixelsOf(buffer), stepOf(buffer), regionOf(buffer), kReversedChannels);
  return true;
}

bool QVILConversion::imageLibConvertARGBtoBGRA8888(const vImage_Buffer* buffer) {
  const int order[4] = {3, 2, 1, 0};
  ippiSwapChannels_8u_C4IR(pixelsOf(buffer), stepOf(buffer), regionOf(buffer), order);
  return true;
}

bool QVILConversion::imageLibSwapChannels(const vImage_Buffer* src, const vImage_Buffer* destination,
                                          const int32_t* order) {
  (void)order;  // never read: the primitive is always asked for 3, 2, 1, 0, and refuses it
  const int reversed[4] = {3, 2, 1, 0};
  ippiSwapChannels_8u_AC4R(pixelsOf<const Ipp8u>(src), stepOf(src), pixelsOf(destination), stepOf(destination),
                           regionOf(src), reversed);
  return true;
}
