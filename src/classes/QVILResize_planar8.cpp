// QVILResize: one-channel 8-bit scaling. Modes 5 and 6 go to the library's own edge-extending
// Lanczos scaler; every other mode to the square-pixel front. Never threads, always answers YES.

#include "classes/scale_front.h"
#include "platform/scaler.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippi.h"

namespace {

uint32_t planarFlagOf(int32_t mode) {
  switch (mode) {
    case QVILResizeLinear:
      return IPPI_INTER_LINEAR;
    case QVILResizeCubic:
      return IPPI_INTER_CUBIC;
    case QVILResizeSuper:
      return IPPI_INTER_SUPER;
    case QVILResizeLanczos:
      return IPPI_INTER_LANCZOS;
    default:
      return IPPI_INTER_NN;
  }
}

}  // namespace

bool QVILResize::imageLibScalePlanar8(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode) {
  if (mode == QVILResizeLanczos5) {
    qv::platform::scalePlanar8(source, destination, nullptr,
                               qv::platform::kScaleEdgeExtend | qv::platform::kScaleHighQuality);
    return true;
  }
  if (mode == QVILResizeLanczos3) {
    qv::platform::scalePlanar8(source, destination, nullptr, qv::platform::kScaleEdgeExtend);
    return true;
  }
  qv::scale::squarePixelPlanar8(source, destination, planarFlagOf(mode));
  return true;
}
